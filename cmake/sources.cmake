# Which file belongs to which program: its place and its name decide, so a file is in the build as soon as it
# exists, and a .cpp that no program takes is an error.
#
#   src/dllmain.cpp                the library's entry point: TIDEWELL.DLL only
#   src/**/*.cpp                   the library's code: in every program, on every system
#   platform/pc, platform/kernel   the PC and Win32 over it: the native programs, the test programs
#   platform/attach                puts a PC under the library: Windows test programs
#   cli/*.cpp                      the tidewell command
#   tests/support/*.cpp            what the tests share
#   tests/**/*_test.cpp            the tests
#   tests/windows/explorer_host*   the stand-in for Explorer: Windows builds
#   bench/*.cpp                    benchmarks: the host build
#
# Everywhere *_windows.cpp and *_windows_test.cpp are for Windows builds only, *_native.cpp and *_native_test.cpp
# for all others. In src *_windows.cpp is what has no stand-in off Windows: it calls windows, the shell, the
# registry, the locale, or the message formatter for more than texts as inserts. TIDEWELL.DLL and the tests have
# it, the command does not.
# tests/windows is for Windows builds only, too: tests of the real system, and of what is built beside them.

set(TIDEWELL_CLAIMED_SOURCES "")

# Sets `variable` to the .cpp files below `folder` that this system builds; they count as taken.
function(tidewell_sources variable folder)
  file(GLOB_RECURSE files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  set(TIDEWELL_CLAIMED_SOURCES ${TIDEWELL_CLAIMED_SOURCES} ${files} PARENT_SCOPE)
  if(WIN32)
    list(FILTER files EXCLUDE REGEX "_native(_test)?\\.cpp$")
  else()
    list(FILTER files EXCLUDE REGEX "_windows(_test)?\\.cpp$|/tests/windows/")
  endif()
  set(${variable} ${files} PARENT_SCOPE)
endfunction()

tidewell_sources(TIDEWELL_CORE_SOURCES src)
set(TIDEWELL_ENTRY_SOURCES ${PROJECT_SOURCE_DIR}/src/dllmain.cpp)
list(REMOVE_ITEM TIDEWELL_CORE_SOURCES ${TIDEWELL_ENTRY_SOURCES})
set(TIDEWELL_WINDOWED_SOURCES ${TIDEWELL_CORE_SOURCES})
list(FILTER TIDEWELL_WINDOWED_SOURCES INCLUDE REGEX "_windows\\.cpp$")
list(FILTER TIDEWELL_CORE_SOURCES EXCLUDE REGEX "_windows\\.cpp$")

tidewell_sources(TIDEWELL_PC_SOURCES platform/pc)
tidewell_sources(TIDEWELL_KERNEL_SOURCES platform/kernel)
tidewell_sources(TIDEWELL_ATTACH_SOURCES platform/attach)
tidewell_sources(TIDEWELL_COMMAND_SOURCES cli)
tidewell_sources(TIDEWELL_TEST_SUPPORT_SOURCES tests/support)
tidewell_sources(TIDEWELL_BENCHMARK_SOURCES bench)

tidewell_sources(TIDEWELL_TEST_SOURCES tests)
list(FILTER TIDEWELL_TEST_SOURCES INCLUDE REGEX "_test\\.cpp$")
set(TIDEWELL_HOST_SOURCES ${PROJECT_SOURCE_DIR}/tests/windows/explorer_host.cpp
    ${PROJECT_SOURCE_DIR}/tests/windows/explorer_host_limits.cpp)

# A test that is misnamed would silently not run; so would a folder that nobody builds.
function(tidewell_check_no_stray_sources)
  file(GLOB_RECURSE all CONFIGURE_DEPENDS
       ${PROJECT_SOURCE_DIR}/src/*.cpp ${PROJECT_SOURCE_DIR}/platform/*.cpp ${PROJECT_SOURCE_DIR}/cli/*.cpp
       ${PROJECT_SOURCE_DIR}/tests/*.cpp ${PROJECT_SOURCE_DIR}/bench/*.cpp)
  foreach(file IN LISTS all)
    if(NOT file IN_LIST TIDEWELL_CLAIMED_SOURCES)
      message(FATAL_ERROR "${file} belongs to no program; cmake/sources.cmake tells where files go")
    elseif(file MATCHES "/tests/" AND NOT file IN_LIST TIDEWELL_HOST_SOURCES
           AND NOT file MATCHES "/tests/support/" AND NOT file MATCHES "_test\\.cpp$")
      message(FATAL_ERROR "${file}: a test's name ends in _test.cpp; helpers are in tests/support")
    endif()
  endforeach()
endfunction()
