#include "convert/binhex_text.h"

#include <benchmark/benchmark.h>

#include <random>
#include <string>

// A text in lines of 64 characters, as every encoder makes them. It is decoded in place, so each round begins
// with a copy of it.
static void decodeBinHexText(benchmark::State& state) {
    constexpr char kAlphabet[] = "!\"#$%&'()*+,-012345689@ABCDEFGHIJKLMNPQRSTUVXYZ[`abcdefhijklmpqr";
    std::minstd_rand random;
    std::string text = ":";
    for (int64_t i = 0; i < state.range(0); ++i) {
        if (text.size() % 65 == 64) text += '\n';
        text += kAlphabet[random() % 64];
    }
    text += ':';
    std::string copy;
    for (auto _ : state) {
        copy = text;
        size_t produced = 0;
        benchmark::DoNotOptimize(
            tidewell::DecodeBinHexText(reinterpret_cast<uint8_t*>(copy.data()), copy.size(), produced));
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(text.size()));
}
BENCHMARK(decodeBinHexText)->Arg(64 * 1024)->Arg(16 * 1024 * 1024);
