# TIDEWELL.DLL. It is loaded into the shell's process, so it brings no run-time library of its own: only
# libgcc's arithmetic, and the block operations of MSVCRT that the compiler calls by itself.

add_library(tidewell_library MODULE ${TIDEWELL_ENTRY_SOURCES} ${PROJECT_SOURCE_DIR}/src/tidewell.def)
set_target_properties(tidewell_library PROPERTIES
  PREFIX "" OUTPUT_NAME "TIDEWELL" SUFFIX ".DLL"
  LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
target_compile_options(tidewell_library PRIVATE ${TIDEWELL_PRODUCT_OPTIONS})
target_link_libraries(tidewell_library PRIVATE
  tidewell_core tidewell_windowed tidewell_resources ${TIDEWELL_SYSTEM_LIBRARIES} gcc msvcrt)

if(CMAKE_SYSTEM_PROCESSOR STREQUAL "i686")
  set(entry _DllMain@12)
else()
  set(entry DllMain)
endif()
# The .def file names the functions without their decoration; the fix-up finds them by it.
target_link_options(tidewell_library PRIVATE
  -nostartfiles -nodefaultlibs -Wl,-e,${entry} -Wl,--enable-stdcall-fixup -Wl,--subsystem,windows:4.0)

# For the programs that link with it (include/tidewell.h).
set(import_library ${PROJECT_BINARY_DIR}/libtidewell.a)
add_custom_command(
  OUTPUT ${import_library}
  COMMAND ${PROJECT_SOURCE_DIR}/tools/make-import-library ${TIDEWELL_TRIPLE}-
          ${PROJECT_SOURCE_DIR}/src/tidewell.def ${import_library}
          $<TARGET_OBJECTS:tidewell_core> $<TARGET_OBJECTS:tidewell_windowed>
  DEPENDS ${PROJECT_SOURCE_DIR}/src/tidewell.def ${PROJECT_SOURCE_DIR}/tools/make-import-library
          tidewell_core tidewell_windowed
  COMMAND_EXPAND_LISTS
  VERBATIM)
add_custom_target(tidewell_import_library ALL DEPENDS ${import_library})
