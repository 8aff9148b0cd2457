# The setup program, in the 32-bit build, of both libraries: those of this build and of build/win64 beside it. It is
# looked for in every build, because that one may be made before or after this one.

find_program(TIDEWELL_MAKENSIS makensis REQUIRED)
file(STRINGS ${PROJECT_SOURCE_DIR}/src/res/version.h version REGEX "TIDEWELL_VERSION \"")
string(REGEX REPLACE ".*\"(.*)\".*" "\\1" TIDEWELL_VERSION "${version}")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/res/version.h)
# Notepad of Windows 95 to 8 knows no other line ends.
set(readme ${PROJECT_BINARY_DIR}/setup/Readme.txt)
configure_file(${PROJECT_SOURCE_DIR}/setup/readme.txt ${readme} @ONLY NEWLINE_STYLE CRLF)

set(TIDEWELL_SETUP ${PROJECT_BINARY_DIR}/TidewellSetup.exe)
cmake_path(REPLACE_FILENAME PROJECT_BINARY_DIR win64 OUTPUT_VARIABLE build64)
add_custom_target(tidewell_setup ALL
  COMMAND ${PROJECT_SOURCE_DIR}/tools/make-setup ${TIDEWELL_MAKENSIS} ${TIDEWELL_VERSION}
          ${PROJECT_BINARY_DIR} ${build64} ${readme} ${TIDEWELL_SETUP}
  COMMENT "The setup program"
  VERBATIM)
add_dependencies(tidewell_setup tidewell_library tidewell)
