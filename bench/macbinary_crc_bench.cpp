#include "convert/macbinary_crc.h"

#include <benchmark/benchmark.h>

#include <vector>

static void macBinaryCrc(benchmark::State& state) {
    const std::vector<unsigned char> bytes(static_cast<size_t>(state.range(0)), 0xA5);
    for (auto _ : state)
        benchmark::DoNotOptimize(tidewell::MacBinaryCrc(bytes.data(), bytes.size()));
    state.SetBytesProcessed(state.iterations() * state.range(0));
}
BENCHMARK(macBinaryCrc)->Arg(124)->Arg(64 * 1024)->Arg(16 * 1024 * 1024);

BENCHMARK_MAIN();
