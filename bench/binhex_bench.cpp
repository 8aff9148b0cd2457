#include "convert/binhex_values.h"

#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

// A block of text in lines of 64 characters, as every encoder makes them, into bytes.
static void decodeBinHexText(benchmark::State& state) {
    constexpr char kAlphabet[] = "!\"#$%&'()*+,-012345689@ABCDEFGHIJKLMNPQRSTUVXYZ[`abcdefhijklmpqr";
    std::minstd_rand random;
    std::string text;
    for (int64_t i = 0; i < state.range(0); ++i) {
        if (text.size() % 65 == 64) text += '\n';
        text += kAlphabet[random() % 64];
    }
    const auto* const characters = reinterpret_cast<const uint8_t*>(text.data());
    std::vector<uint8_t> values(text.size() + tidewell::kBinHexOverrun);
    for (auto _ : state) {
        uint8_t* out = values.data();
        benchmark::DoNotOptimize(tidewell::TakeBinHexValues(characters, characters + text.size(), out));
        tidewell::PackBinHexValues(values.data(), static_cast<size_t>(out - values.data()) / 4);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(decodeBinHexText)->Arg(128 * 1024);
