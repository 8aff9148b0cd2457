// The compiled resource file, as it is; the build names it.
    .section .rodata
    .balign 4
    .globl tidewell_resources_begin
    .globl tidewell_resources_end
tidewell_resources_begin:
    .incbin TIDEWELL_RES_FILE
tidewell_resources_end:
    .section .note.GNU-stack, "", %progbits
