# The test programs, the command's scripts and the checks of what was built.
# tools/test-totals reads doctest's own counts from the log of CTest.

# doctest is a header of the host; the Windows compilers must not see the host's other headers.
find_file(TIDEWELL_DOCTEST doctest/doctest.h PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(COPY ${TIDEWELL_DOCTEST} DESTINATION ${PROJECT_BINARY_DIR}/include/doctest)

# Under Wine a test waits for the system most of the time: what is compiled for it alone needs no optimisation,
# which takes a third of the whole time to build it. What ships is tested as it ships.
if(WIN32)
  set(TIDEWELL_TEST_OPTIONS -O0)
else()
  set(TIDEWELL_TEST_OPTIONS "")
endif()

function(tidewell_add_test_program name)
  add_executable(${name} ${ARGN})
  target_compile_options(${name} PRIVATE ${TIDEWELL_TEST_OPTIONS})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/platform)
  target_include_directories(${name} SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/include)
  # The win32 thread model has no std::mutex.
  target_compile_definitions(${name} PRIVATE DOCTEST_CONFIG_NO_MULTITHREADING)
  target_link_libraries(${name} PRIVATE tidewell_core tidewell_resources ${TIDEWELL_SYSTEM_LIBRARIES})
  # Tests that need files make them where they are started.
  file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/testdata)
  add_test(NAME ${name} COMMAND ${name} --no-colors WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/testdata)
  # A program in which no test ran has failed: nothing was tested.
  set_tests_properties(${name} PROPERTIES FAIL_REGULAR_EXPRESSION "test cases: +0 ")
endfunction()

if(TIDEWELL_TEST_SOURCES)
  tidewell_add_test_program(tidewell_tests ${TIDEWELL_TEST_SOURCES} ${TIDEWELL_TEST_SUPPORT_SOURCES})
  target_link_libraries(tidewell_tests PRIVATE tidewell_pc tidewell_kernel)
  # Two lists that have to agree: the types in the code, and the script with what they are.
  file(RELATIVE_PATH strings ${PROJECT_BINARY_DIR}/testdata ${PROJECT_SOURCE_DIR}/src/res/resource_type_strings.rc)
  set_source_files_properties(${PROJECT_SOURCE_DIR}/tests/resources/resource_type_test.cpp PROPERTIES
    COMPILE_DEFINITIONS "TIDEWELL_TYPE_STRINGS=\"${strings}\"")
  if(WIN32)
    target_link_libraries(tidewell_tests PRIVATE tidewell_windowed tidewell_attach)
    # Some load the libraries and start the command.
    add_dependencies(tidewell_tests tidewell_library tidewell_locale_de tidewell)
  endif()
endif()

if(WIN32)
  # A program of somebody else's: C, the public header, the import library, and nothing of ours besides.
  enable_language(C)
  add_executable(outside_program ${PROJECT_SOURCE_DIR}/tests/windows/outside_program.c)
  set_target_properties(outside_program PROPERTIES C_STANDARD 90 C_EXTENSIONS OFF)
  target_compile_options(outside_program PRIVATE -pedantic -Wall -Wextra -Wstrict-prototypes -Werror)
  target_include_directories(outside_program PRIVATE ${PROJECT_SOURCE_DIR}/include)
  target_link_libraries(outside_program PRIVATE ${PROJECT_BINARY_DIR}/libtidewell.a)
  add_dependencies(outside_program tidewell_import_library tidewell_library)
  add_test(NAME outside_program COMMAND outside_program WORKING_DIRECTORY ${PROJECT_BINARY_DIR}/testdata)

  # Has a library loaded while setup replaces it; in both builds, because the script wants both.
  add_executable(hold_library ${PROJECT_SOURCE_DIR}/tests/setup/hold_library.c)
  set_target_properties(hold_library PROPERTIES C_STANDARD 90 C_EXTENSIONS OFF)
  target_compile_options(hold_library PRIVATE -pedantic -Wall -Wextra -Werror)
  if(TARGET tidewell_setup)
    add_test(NAME setup COMMAND ${PROJECT_SOURCE_DIR}/tests/setup/setup.sh)
    cmake_path(GET PROJECT_BINARY_DIR PARENT_PATH builds)
    set_tests_properties(setup PROPERTIES ENVIRONMENT "TIDEWELL_BUILD=${builds}")
  endif()
  # A stand-in for Explorer, which the test of the setup program runs on what is installed.
  add_executable(explorer_host ${TIDEWELL_HOST_SOURCES} ${PROJECT_SOURCE_DIR}/tests/support/modal_windows.cpp)
  target_include_directories(explorer_host PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_include_directories(explorer_host SYSTEM PRIVATE ${PROJECT_BINARY_DIR}/include)
  target_compile_definitions(explorer_host PRIVATE DOCTEST_CONFIG_NO_MULTITHREADING)
  target_compile_options(explorer_host PRIVATE ${TIDEWELL_TEST_OPTIONS})
  target_link_libraries(explorer_host PRIVATE comctl32 ole32 shell32 shlwapi user32 advapi32 uuid kernel32)

  add_test(NAME library_imports
           COMMAND ${PROJECT_SOURCE_DIR}/tools/check-imports $<TARGET_FILE:tidewell_library>)
  add_test(NAME library_exports
           COMMAND ${PROJECT_SOURCE_DIR}/tools/check-exports $<TARGET_FILE:tidewell_library>
                   ${PROJECT_SOURCE_DIR}/src/tidewell.def ${PROJECT_SOURCE_DIR}/include/tidewell.h)
  add_test(NAME library_system_version
           COMMAND ${PROJECT_SOURCE_DIR}/tools/check-system-version $<TARGET_FILE:tidewell_library>)
  if(TARGET tidewell)
    add_test(NAME command_imports
             COMMAND ${PROJECT_SOURCE_DIR}/tools/check-imports $<TARGET_FILE:tidewell>)
    add_test(NAME command_system_version
             COMMAND ${PROJECT_SOURCE_DIR}/tools/check-system-version $<TARGET_FILE:tidewell>)
  endif()
elseif(TARGET tidewell)
  # Each script finds the command in $TIDEWELL.
  file(GLOB scripts CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tests/cli/*.sh)
  foreach(script IN LISTS scripts)
    get_filename_component(name ${script} NAME_WE)
    add_test(NAME cli_${name} COMMAND ${script})
    set_tests_properties(cli_${name} PROPERTIES ENVIRONMENT "TIDEWELL=$<TARGET_FILE:tidewell>")
  endforeach()
endif()
