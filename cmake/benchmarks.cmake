# Benchmarks, for the optimised native build.

if(TIDEWELL_BENCHMARK_SOURCES AND NOT WIN32 AND NOT TIDEWELL_SANITIZE)
  find_package(benchmark REQUIRED)
  add_executable(tidewell_bench ${TIDEWELL_BENCHMARK_SOURCES})
  target_include_directories(tidewell_bench PRIVATE ${PROJECT_SOURCE_DIR}/platform ${PROJECT_SOURCE_DIR}/tests)
  target_link_libraries(tidewell_bench PRIVATE
    tidewell_core tidewell_pc tidewell_kernel tidewell_resources benchmark::benchmark)
endif()
