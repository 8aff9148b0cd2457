# The example of a locale library: texts in German, no code.

set(folder ${PROJECT_SOURCE_DIR}/examples/locale)
set(messages ${PROJECT_BINARY_DIR}/locale_messages)
tidewell_add_messages(tidewell_locale_messages ${folder}/messages.mc ${messages})

file(GLOB locale_files CONFIGURE_DEPENDS ${folder}/*)
set_source_files_properties(${folder}/german.rc PROPERTIES
  OBJECT_DEPENDS "${locale_files};${TIDEWELL_RESOURCE_FILES};${tidewell_locale_messages_FILES}")
add_library(tidewell_locale_de MODULE ${folder}/german.rc)
add_dependencies(tidewell_locale_de tidewell_locale_messages)
# Its own messages.rc, and of the library's files only those that it does not have itself.
target_include_directories(tidewell_locale_de PRIVATE ${folder} ${messages} ${PROJECT_SOURCE_DIR}/src/res)
set_target_properties(tidewell_locale_de PROPERTIES
  PREFIX "" OUTPUT_NAME "TIDEWELL_DE" SUFFIX ".DLL" LINKER_LANGUAGE CXX
  LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR})
target_link_options(tidewell_locale_de PRIVATE
  -nostartfiles -nodefaultlibs -Wl,--entry=0 -Wl,--subsystem,windows:4.0)
