#include "resources/hex_dump.h"

#include <benchmark/benchmark.h>

#include <vector>

// A resource, as it is saved as text. The rate is that of the resource's bytes; the text is four times as
// long.
static void dumpAsHex(benchmark::State& state) {
    std::vector<uint8_t> data(static_cast<size_t>(state.range(0)));
    for (size_t i = 0; i < data.size(); ++i)
        data[i] = static_cast<uint8_t>(i * 2654435761u >> 24);
    std::vector<char> text(tidewell::HexDumpCapacity(data.size()));
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            tidewell::HexDump(text.data(), data.data(), static_cast<uint32_t>(data.size())));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(data.size()));
}
BENCHMARK(dumpAsHex)->Arg(8592)->Arg(4 * 1024 * 1024);
