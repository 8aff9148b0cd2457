# The library's code. Every program links these very objects, the tests included.

add_library(tidewell_core OBJECT ${TIDEWELL_CORE_SOURCES})
target_include_directories(tidewell_core PUBLIC
  ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/include ${TIDEWELL_MESSAGES_FOLDER})
add_dependencies(tidewell_core tidewell_messages)
target_compile_options(tidewell_core PRIVATE ${TIDEWELL_PRODUCT_OPTIONS})
if(NOT WIN32)
  target_include_directories(tidewell_core BEFORE PUBLIC ${PROJECT_SOURCE_DIR}/platform/include)
endif()

if(WIN32)
  add_library(tidewell_windowed OBJECT ${TIDEWELL_WINDOWED_SOURCES})
  target_include_directories(tidewell_windowed PUBLIC
    ${PROJECT_SOURCE_DIR}/src ${PROJECT_SOURCE_DIR}/include ${TIDEWELL_MESSAGES_FOLDER})
  add_dependencies(tidewell_windowed tidewell_messages)
  target_compile_options(tidewell_windowed PRIVATE ${TIDEWELL_PRODUCT_OPTIONS})
endif()

# What the library calls of Windows.
set(TIDEWELL_SYSTEM_LIBRARIES "")
if(WIN32)
  set(TIDEWELL_SYSTEM_LIBRARIES comctl32 comdlg32 shell32 ole32 advapi32 gdi32 user32 kernel32)
endif()
