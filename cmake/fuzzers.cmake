# Fuzzers, where the sanitizers are and the compiler has libFuzzer. CTest runs each for a few seconds; for longer:
#   build/asan/fuzz_binhex -max_total_time=1800 -max_len=4096 build/asan/corpus/binhex fuzz/corpus/binhex
# What they find is kept in the build folder. fuzz/make-corpus makes what they begin with.

if(NOT TIDEWELL_SANITIZE OR NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  return()
endif()

# Where the fuzzers have to see which way the code goes.
foreach(part tidewell_core tidewell_pc tidewell_kernel)
  target_compile_options(${part} PRIVATE -fsanitize=fuzzer-no-link)
endforeach()

foreach(format macbinary binhex apple_double)
  set(name fuzz_${format})
  # A format may have a mutator of its own.
  file(GLOB mutator CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/fuzz/${format}_mutator.cpp)
  add_executable(${name}
    ${PROJECT_SOURCE_DIR}/fuzz/${format}_fuzzer.cpp ${mutator} ${PROJECT_SOURCE_DIR}/fuzz/extraction.cpp
    ${PROJECT_SOURCE_DIR}/fuzz/fuzz_pc.cpp ${PROJECT_SOURCE_DIR}/fuzz/no_display.cpp)
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
endforeach()
