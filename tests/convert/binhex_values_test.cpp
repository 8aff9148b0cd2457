#include "convert/binhex_values.h"

#include "support/archive_writer.h"

#include <doctest/doctest.h>

#include <cstring>
#include <random>

using namespace tidewell;

namespace {

constexpr char kBlanks[] = "\t\n\r ";
constexpr uint8_t kUntouched = 0xEE;

std::string taken(const std::string& text, size_t& stop) {
    Bytes out(text.size() + kBinHexOverrun + 1, kUntouched);
    uint8_t* end = out.data();
    // On the heap, so that a look before or behind it is found.
    const Bytes copy = bytesOf(text);
    stop = static_cast<size_t>(TakeBinHexValues(copy.data(), copy.data() + copy.size(), end) - copy.data());
    CHECK(out.back() == kUntouched);
    return std::string(out.data(), end);
}

std::string valuesBefore(const std::string& text, size_t stop) {
    std::string values;
    for (size_t i = 0; i < stop; ++i) {
        if (std::strchr(kBlanks, text[i]) != nullptr) continue;
        values += static_cast<char>(std::strchr(kBinHexAlphabet, text[i]) - kBinHexAlphabet);
    }
    return values;
}

}  // namespace

TEST_CASE("Each character has its value, is a blank, or stops") {
    const std::string letters = kBinHexAlphabet;
    for (int c = 0; c < 256; ++c) {
        for (const size_t at : {0u, 1u, 15u, 16u, 31u, 40u, 63u}) {
            std::string text = letters;
            text[at] = static_cast<char>(c);
            const bool passes = c != 0 && (std::strchr(kBinHexAlphabet, c) || std::strchr(kBlanks, c));
            size_t stop = 0;
            const std::string values = taken(text, stop);
            CHECK_MESSAGE(stop == (passes ? text.size() : at), c);
            CHECK_MESSAGE(values == valuesBefore(text, stop), c);
        }
    }
}

TEST_CASE("Blanks may be anywhere, in lines of any length") {
    std::minstd_rand random;
    for (size_t line = 0; line < 140; ++line) {
        std::string text;
        for (size_t i = 0; i < 500; ++i) {
            if (line != 0 && i % line == line - 1) text.append(1 + random() % 3, kBlanks[random() % 4]);
            text += kBinHexAlphabet[random() % 64];
        }
        text.resize(text.size() - line % 17);
        size_t stop = 0;
        CHECK_MESSAGE(taken(text, stop) == valuesBefore(text, text.size()), line);
        CHECK(stop == text.size());
    }
}

TEST_CASE("Four values are three bytes, and the values behind them stay") {
    for (size_t groups = 0; groups < 20; ++groups) {
        Bytes values;
        for (const uint8_t value : patternOf(groups * 4 + 3, static_cast<unsigned>(groups)))
            values.push_back(value & 63);
        Bytes wanted;
        for (size_t i = 0; i < groups; ++i) {
            const uint8_t* const v = &values[4 * i];
            const unsigned group = ((v[0] * 64u + v[1]) * 64u + v[2]) * 64u + v[3];
            wanted.resize(wanted.size() + 3);
            storeBig(wanted, 3 * i, 3, group);
        }
        const Bytes behind(values.end() - 3, values.end());
        PackBinHexValues(values.data(), groups);
        CHECK(Bytes(values.end() - 3, values.end()) == behind);
        values.resize(3 * groups);
        CHECK_MESSAGE(values == wanted, groups);
    }
}
