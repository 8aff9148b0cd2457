# The library's resources: linked by windres into Windows programs, embedded as a .res file in native ones.

file(GLOB TIDEWELL_RESOURCE_FILES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/src/res/*)
set(script ${PROJECT_SOURCE_DIR}/src/res/tidewell.rc)

# The message table, and messages.h for whoever shows a message.
set(TIDEWELL_MESSAGES_FOLDER ${PROJECT_BINARY_DIR}/messages)
tidewell_add_messages(tidewell_messages ${PROJECT_SOURCE_DIR}/src/res/messages.mc ${TIDEWELL_MESSAGES_FOLDER})

if(WIN32)
  enable_language(RC)
  set_source_files_properties(${script} PROPERTIES
    OBJECT_DEPENDS "${TIDEWELL_RESOURCE_FILES};${tidewell_messages_FILES}")
  add_library(tidewell_resources OBJECT ${script})
  add_dependencies(tidewell_resources tidewell_messages)
  target_include_directories(tidewell_resources PRIVATE
    ${PROJECT_SOURCE_DIR}/src/res ${TIDEWELL_MESSAGES_FOLDER})
else()
  enable_language(ASM)
  find_program(TIDEWELL_WINDRES i686-w64-mingw32-windres REQUIRED)
  set(compiled ${PROJECT_BINARY_DIR}/tidewell.res)
  # The host's preprocessor, so that the native command needs no Windows compiler.
  add_custom_command(
    OUTPUT ${compiled}
    COMMAND ${TIDEWELL_WINDRES} --preprocessor=${CMAKE_CXX_COMPILER} --preprocessor-arg=-E
            --preprocessor-arg=-xc --preprocessor-arg=-DRC_INVOKED --preprocessor-arg=-D_WIN32
            --preprocessor-arg=-nostdinc --preprocessor-arg=-w
            -I ${PROJECT_SOURCE_DIR}/src/res -I ${TIDEWELL_MESSAGES_FOLDER}
            -I /usr/i686-w64-mingw32/include
            -i ${script} -O res -o ${compiled}
    DEPENDS ${TIDEWELL_RESOURCE_FILES} ${tidewell_messages_FILES}
    COMMENT "Compiling the resources"
    VERBATIM)
  set(embedding ${PROJECT_SOURCE_DIR}/platform/kernel/embedded_resources.S)
  set_source_files_properties(${embedding} PROPERTIES
    OBJECT_DEPENDS ${compiled}
    COMPILE_DEFINITIONS "TIDEWELL_RES_FILE=\"${compiled}\"")
  add_library(tidewell_resources OBJECT ${embedding})
  add_dependencies(tidewell_resources tidewell_messages)
endif()
