# Fuzzers, where the sanitizers are and the compiler has libFuzzer. CTest runs each for a few seconds; for longer:
#   build/asan/fuzz_binhex -entropic=0 -runs=10000000 -max_len=4096 build/asan/corpus/binhex fuzz/corpus/binhex
# What they find is kept in the build folder. fuzz/corpus/README.md tells what they begin with.

if(NOT TIDEWELL_SANITIZE OR NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  return()
endif()

# Where the fuzzers have to see which way the code goes: in the library, and where AppleDouble files are read.
# To look at the rest of the PC as well would take most of the time.
target_compile_options(tidewell_core PRIVATE -O2 -fsanitize=fuzzer-no-link)
target_compile_options(tidewell_pc PRIVATE -O2)
target_compile_options(tidewell_kernel PRIVATE -O2)
file(GLOB apple_double ${PROJECT_SOURCE_DIR}/platform/pc/apple_double/*.cpp)
set(own ${PROJECT_BINARY_DIR}/apple-double-functions.txt)
file(WRITE ${own} "src:*\nfun:_ZN2pc*\nfun:_ZNK2pc*\n")  # and not what they use of the C++ library
set_source_files_properties(${apple_double} PROPERTIES COMPILE_OPTIONS
                            "-fsanitize=fuzzer-no-link;-fsanitize-coverage-allowlist=${own}")

# What they share with the tests.
set(TIDEWELL_FUZZ_SUPPORT_SOURCES)
foreach(name test_pc host_folder archive_writer binhex_reference scripted_user)
  list(APPEND TIDEWELL_FUZZ_SUPPORT_SOURCES ${PROJECT_SOURCE_DIR}/tests/support/${name}.cpp)
endforeach()

function(tidewell_add_fuzzer format)
  set(name fuzz_${format})
  add_executable(${name} ${ARGN} ${TIDEWELL_FUZZ_SUPPORT_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_options(${name} PRIVATE -O2)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name} PRIVATE tidewell_core tidewell_pc tidewell_kernel tidewell_resources)
  set(found ${PROJECT_BINARY_DIR}/corpus/${format})
  file(MAKE_DIRECTORY ${found})
  # No claim of a few bytes is worth 64 MB of memory. To weigh the inputs by how rare what they reach is takes as long
  # as the runs, some tens of microseconds each.
  add_test(NAME ${name}
           COMMAND ${name} -max_total_time=5 -max_len=4096 -entropic=0 -timeout=10 -malloc_limit_mb=64
                   -print_final_stats=1 -artifact_prefix=${PROJECT_BINARY_DIR}/${name}- ${found}
                   ${PROJECT_SOURCE_DIR}/fuzz/corpus/${format})
  # One frame tells which line took memory; that of the last runs need not be held back.
  set_tests_properties(${name} PROPERTIES ENVIRONMENT
                       ASAN_OPTIONS=malloc_context_size=1:quarantine_size_mb=8:max_malloc_fill_size=64)
endfunction()

tidewell_add_fuzzer(macbinary ${PROJECT_SOURCE_DIR}/fuzz/extraction_fuzzer.cpp)
target_compile_definitions(fuzz_macbinary PRIVATE TIDEWELL_FUZZ_NAME="in.bin")
tidewell_add_fuzzer(binhex ${PROJECT_SOURCE_DIR}/fuzz/extraction_fuzzer.cpp
                    ${PROJECT_SOURCE_DIR}/fuzz/binhex_mutator.cpp)
target_compile_definitions(fuzz_binhex PRIVATE TIDEWELL_FUZZ_NAME="in.hqx")
tidewell_add_fuzzer(apple_double ${PROJECT_SOURCE_DIR}/fuzz/apple_double_fuzzer.cpp)
tidewell_add_fuzzer(resource_fork ${PROJECT_SOURCE_DIR}/fuzz/resource_fork_fuzzer.cpp)
