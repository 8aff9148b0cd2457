// The 64 characters of BinHex 4.0 and the blanks between them.
#ifndef TIDEWELL_CONVERT_BINHEX_ALPHABET_H
#define TIDEWELL_CONVERT_BINHEX_ALPHABET_H

#include <cstdint>
#include <initializer_list>

namespace tidewell {

// What a character means: its six bits, or one of these.
constexpr uint8_t kBinHexBlank = 0x40;
constexpr uint8_t kBinHexOther = 0x80;

struct BinHexMeanings {
    uint8_t of[256];

    constexpr BinHexMeanings() : of() {
        constexpr char kAlphabet[] = "!\"#$%&'()*+,-012345689@ABCDEFGHIJKLMNPQRSTUVXYZ[`abcdefhijklmpqr";
        static_assert(sizeof kAlphabet - 1 == 64);
        for (uint8_t& meaning : of)
            meaning = kBinHexOther;
        for (const char blank : {'\t', '\n', '\r', ' '})
            of[static_cast<uint8_t>(blank)] = kBinHexBlank;
        for (uint8_t value = 0; value < 64; ++value)
            of[static_cast<uint8_t>(kAlphabet[value])] = value;
    }
};

constexpr BinHexMeanings kBinHexMeanings;

}  // namespace tidewell

#endif
