# Fuzzers, where the sanitizers are and the compiler has libFuzzer. CTest runs each for a few seconds; for longer:
#   TMPDIR=/dev/shm build/asan/fuzz_binhex -max_total_time=1800 -max_len=4096 build/asan/corpus/binhex fuzz/corpus/binhex
# What they find is kept in the build folder. fuzz/make-corpus makes what they begin with.

if(NOT TIDEWELL_SANITIZE OR NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  return()
endif()

# Where the fuzzers have to see which way the code goes.
foreach(part tidewell_core tidewell_pc tidewell_kernel)
  target_compile_options(${part} PRIVATE -fsanitize=fuzzer-no-link)
endforeach()

# A run's files are in a folder of its own, in memory where the host has such a folder.
set(TIDEWELL_FUZZ_ENVIRONMENT "")
if(IS_DIRECTORY /dev/shm)
  set(TIDEWELL_FUZZ_ENVIRONMENT "TMPDIR=/dev/shm")
endif()

# What they share with the tests.
set(TIDEWELL_FUZZ_SUPPORT_SOURCES "")
foreach(name test_pc temp_folder_native archive_writer binhex_reference scripted_user)
  list(APPEND TIDEWELL_FUZZ_SUPPORT_SOURCES ${PROJECT_SOURCE_DIR}/tests/support/${name}.cpp)
endforeach()

function(tidewell_add_fuzzer format)
  set(name fuzz_${format})
  add_executable(${name} ${ARGN} ${TIDEWELL_FUZZ_SUPPORT_SOURCES})
  target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
  target_compile_options(${name} PRIVATE -fsanitize=fuzzer-no-link)
  target_link_options(${name} PRIVATE -fsanitize=fuzzer)
  target_link_libraries(${name} PRIVATE tidewell_core tidewell_pc tidewell_kernel tidewell_resources)
  set(found ${PROJECT_BINARY_DIR}/corpus/${format})
  file(MAKE_DIRECTORY ${found})
  # No claim of a few bytes is worth 64 MB of memory.
  add_test(NAME ${name}
           COMMAND ${name} -max_total_time=5 -max_len=4096 -timeout=10 -malloc_limit_mb=64 -print_final_stats=1
                   -artifact_prefix=${PROJECT_BINARY_DIR}/${name}- ${found}
                   ${PROJECT_SOURCE_DIR}/fuzz/corpus/${format})
  set_tests_properties(${name} PROPERTIES ENVIRONMENT "${TIDEWELL_FUZZ_ENVIRONMENT}")
endfunction()

tidewell_add_fuzzer(macbinary ${PROJECT_SOURCE_DIR}/fuzz/extraction_fuzzer.cpp)
target_compile_definitions(fuzz_macbinary PRIVATE TIDEWELL_FUZZ_EXTENSION=".bin")
tidewell_add_fuzzer(binhex ${PROJECT_SOURCE_DIR}/fuzz/extraction_fuzzer.cpp
                    ${PROJECT_SOURCE_DIR}/fuzz/binhex_mutator.cpp)
target_compile_definitions(fuzz_binhex PRIVATE TIDEWELL_FUZZ_EXTENSION=".hqx")
tidewell_add_fuzzer(apple_double ${PROJECT_SOURCE_DIR}/fuzz/apple_double_fuzzer.cpp)
