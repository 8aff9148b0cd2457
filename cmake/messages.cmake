# Message tables. tidewell_add_messages(NAME SCRIPT FOLDER) compiles a message text file (.mc) into FOLDER: the
# resource script messages.rc with its table, and the header messages.h with the identifiers. TARGET is built
# when they are there; the files are in the variable ${TARGET}_FILES.
#
# The customer bit is set (-c), and each message gives its facility, which is 0: without both, identifiers
# would not be the 0x2..., 0x6..., 0xA... and 0xE... that the library shows them by.

find_program(TIDEWELL_WINDMC i686-w64-mingw32-windmc REQUIRED)

function(tidewell_add_messages target script folder)
  get_filename_component(name ${script} NAME_WE)
  file(MAKE_DIRECTORY ${folder})
  # windmc copies line ends as they are, and a message box wants both characters.
  configure_file(${script} ${folder}/${name}.mc @ONLY NEWLINE_STYLE CRLF)
  add_custom_command(
    OUTPUT ${folder}/${name}.rc ${folder}/${name}.h
    COMMAND ${TIDEWELL_WINDMC} -c -C 65001 -O 65001 -h ${folder} -r ${folder} ${folder}/${name}.mc
    DEPENDS ${folder}/${name}.mc
    COMMENT "Compiling the messages of ${name}"
    VERBATIM)
  add_custom_target(${target} DEPENDS ${folder}/${name}.rc ${folder}/${name}.h)
  set(${target}_FILES ${folder}/${name}.rc ${folder}/${name}.h PARENT_SCOPE)
endfunction()
