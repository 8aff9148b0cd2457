# Which file belongs to which program: its place and its name decide, so a file is in the build as soon as it
# exists, and a .cpp that no program takes is an error.
#
#   src/module/dllmain.cpp         the library's entry point: TIDEWELL.DLL only
#   src/**/*_window.cpp            windowed: Windows builds only, in TIDEWELL.DLL and its window tests. They
#   TIDEWELL_WINDOWED_NAMES        call what has no native stand-in: windows, the shell, the registry, the
#                                  locale, the message formatter. A file that shows one window is named
#                                  *_window.cpp; the helpers of such files are listed below
#   src/**/*.cpp, all others       core: in every program, on every system
#   platform/pc, platform/kernel   the PC and Win32 over it: the native programs, the test programs
#   platform/attach                puts a PC under the library: Windows test programs
#   cli/*.cpp                      the tidewell command
#   tests/support/*.cpp            what the tests share
#   tests/windows/*_test.cpp       tests of windows and of the built library: Windows builds only, on Windows
#                                  itself instead of a PC; of tests/support they have main.cpp, *_windows.cpp
#   tests/**/*_test.cpp            all other tests
#   bench/*.cpp                    benchmarks: the host build
#
# Outside src, *_windows.cpp and *_windows_test.cpp are for Windows builds only, *_native.cpp and
# *_native_test.cpp for all others.

set(TIDEWELL_WINDOWED_NAMES
    module/administrator module/attach module/locale_library module/unload
    ui/busy_cursor ui/context_help ui/format_text ui/message_box ui/number_format ui/pump_messages
    ui/settings ui/shell_folders ui/strings)

set(TIDEWELL_CLAIMED_SOURCES "")

# Sets `variable` to the .cpp files below `folder` that this system builds; they count as taken.
function(tidewell_sources variable folder)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  set(TIDEWELL_CLAIMED_SOURCES ${TIDEWELL_CLAIMED_SOURCES} ${files} PARENT_SCOPE)
  if(NOT folder MATCHES "^src")
    if(WIN32)
      list(FILTER files EXCLUDE REGEX "_native(_test)?\\.cpp$")
    else()
      list(FILTER files EXCLUDE REGEX "_windows(_test)?\\.cpp$")
    endif()
  endif()
  set(${variable} ${files} PARENT_SCOPE)
endfunction()

tidewell_sources(TIDEWELL_CORE_SOURCES src)
set(TIDEWELL_ENTRY_SOURCES ${TIDEWELL_CORE_SOURCES})
set(TIDEWELL_WINDOWED_SOURCES ${TIDEWELL_CORE_SOURCES})
list(FILTER TIDEWELL_ENTRY_SOURCES INCLUDE REGEX "/src/module/dllmain\\.cpp$")
list(FILTER TIDEWELL_WINDOWED_SOURCES INCLUDE REGEX "_window\\.cpp$")
foreach(name IN LISTS TIDEWELL_WINDOWED_NAMES)
  if(NOT EXISTS ${PROJECT_SOURCE_DIR}/src/${name}.cpp)
    message(FATAL_ERROR "src/${name}.cpp is in the list of windowed files, but does not exist")
  endif()
  list(APPEND TIDEWELL_WINDOWED_SOURCES ${PROJECT_SOURCE_DIR}/src/${name}.cpp)
endforeach()
list(REMOVE_ITEM TIDEWELL_CORE_SOURCES ${TIDEWELL_ENTRY_SOURCES} ${TIDEWELL_WINDOWED_SOURCES} "")

tidewell_sources(TIDEWELL_PC_SOURCES platform/pc)
tidewell_sources(TIDEWELL_KERNEL_SOURCES platform/kernel)
tidewell_sources(TIDEWELL_ATTACH_SOURCES platform/attach)
tidewell_sources(TIDEWELL_COMMAND_SOURCES cli)
tidewell_sources(TIDEWELL_TEST_SUPPORT_SOURCES tests/support)
set(TIDEWELL_WINDOW_TEST_SUPPORT_SOURCES ${TIDEWELL_TEST_SUPPORT_SOURCES})
list(FILTER TIDEWELL_WINDOW_TEST_SUPPORT_SOURCES INCLUDE REGEX "/main\\.cpp$|_windows\\.cpp$")
tidewell_sources(TIDEWELL_BENCHMARK_SOURCES bench)

tidewell_sources(TIDEWELL_TEST_SOURCES tests)
list(FILTER TIDEWELL_TEST_SOURCES INCLUDE REGEX "_test\\.cpp$")
set(TIDEWELL_WINDOW_TEST_SOURCES ${TIDEWELL_TEST_SOURCES})
list(FILTER TIDEWELL_WINDOW_TEST_SOURCES INCLUDE REGEX "/tests/windows/")
list(FILTER TIDEWELL_TEST_SOURCES EXCLUDE REGEX "/tests/windows/")

# A test that is misnamed would silently not run; so would a folder that nobody builds.
function(tidewell_check_no_stray_sources)
  file(GLOB_RECURSE all CONFIGURE_DEPENDS
       ${PROJECT_SOURCE_DIR}/src/*.cpp ${PROJECT_SOURCE_DIR}/platform/*.cpp ${PROJECT_SOURCE_DIR}/cli/*.cpp
       ${PROJECT_SOURCE_DIR}/tests/*.cpp ${PROJECT_SOURCE_DIR}/bench/*.cpp)
  foreach(file IN LISTS all)
    if(NOT file IN_LIST TIDEWELL_CLAIMED_SOURCES)
      message(FATAL_ERROR "${file} belongs to no program; cmake/sources.cmake tells where files go")
    elseif(file MATCHES "/tests/" AND NOT file MATCHES "/tests/support/" AND NOT file MATCHES "_test\\.cpp$")
      message(FATAL_ERROR "${file}: a test's name ends in _test.cpp; helpers are in tests/support")
    endif()
  endforeach()
endfunction()
