#include "convert/binhex_text.h"

#include <bit>
#include <cstring>
#include <initializer_list>

namespace tidewell {

namespace {

constexpr char kEnglishMarker[] = "(This file must be converted with BinHex 4.0)";
static_assert(sizeof kEnglishMarker - 1 == 45);

// "（このファイルは BinHex4.0 で変換される必要があります。）" in Shift-JIS.
constexpr char kJapaneseMarker[] =
    "\x81\x69\x82\xB1\x82\xCC\x83\x74\x83\x40\x83\x43\x83\x8B\x82\xCD\x20"
    "BinHex4.0"
    "\x20\x82\xC5\x95\xCF\x8A\xB7\x82\xB3\x82\xEA\x82\xE9\x95\x4B\x97\x76\x82\xAA\x82\xA0\x82\xE8\x82\xDC"
    "\x82\xB7\x81\x42\x81\x6A";
static_assert(sizeof kJapaneseMarker - 1 == 57);

constexpr char kAlphabet[] = "!\"#$%&'()*+,-012345689@ABCDEFGHIJKLMNPQRSTUVXYZ[`abcdefhijklmpqr";
static_assert(sizeof kAlphabet - 1 == 64);

// What a character means: its six bits, or one of these.
constexpr uint8_t kBlank = 0x40;
constexpr uint8_t kOther = 0x80;

struct Meanings {
    uint8_t of[256];
    // The bits of a group's n-th character at their place in its three bytes; kNoGroup for one that is none
    // of the alphabet.
    uint32_t placed[4][256];

    constexpr Meanings() : of(), placed() {
        for (uint8_t& meaning : of)
            meaning = kOther;
        for (const char blank : {'\t', '\n', '\r', ' '})
            of[static_cast<uint8_t>(blank)] = kBlank;
        for (uint8_t value = 0; value < 64; ++value)
            of[static_cast<uint8_t>(kAlphabet[value])] = value;
        for (unsigned n = 0; n < 4; ++n) {
            for (unsigned c = 0; c < 256; ++c)
                placed[n][c] = of[c] < 64 ? static_cast<uint32_t>(of[c]) << (18 - 6 * n) : kNoGroup;
        }
    }
    static constexpr uint32_t kNoGroup = 0x80000000;
};
constexpr Meanings kMeanings;

bool isBlank(uint8_t character) {
    return kMeanings.of[character] == kBlank;
}

bool startsWith(const uint8_t* text, const uint8_t* end, const char* marker, size_t length) {
    return static_cast<size_t>(end - text) > length && std::memcmp(text, marker, length) == 0;
}

const uint8_t* skipBlanks(const uint8_t* text, const uint8_t* end) {
    while (text < end && isBlank(*text))
        ++text;
    return text;
}

// The three bytes of four characters, or with kNoGroup.
uint32_t groupOf(uint32_t characters) {
    return kMeanings.placed[0][characters & 0xFF] | kMeanings.placed[1][characters >> 8 & 0xFF] |
           kMeanings.placed[2][characters >> 16 & 0xFF] | kMeanings.placed[3][characters >> 24];
}

// Whole groups without a blank in them, as most of a file is. Returns where it stopped reading. Four bytes
// are written for three: the fourth lies where characters have been read already.
const uint8_t* decodeGroups(const uint8_t* next, const uint8_t* end, uint8_t*& out) {
    static_assert(std::endian::native == std::endian::little);
    while (end - next >= 4) {
        uint32_t characters = 0;
        std::memcpy(&characters, next, sizeof characters);
        const uint32_t group = groupOf(characters);
        if ((group & Meanings::kNoGroup) != 0) break;
        const uint32_t bytes = __builtin_bswap32(group) >> 8;
        std::memcpy(out, &bytes, sizeof bytes);
        out += 3;
        next += 4;
    }
    return next;
}

}  // namespace

const uint8_t* FindBinHexStart(const uint8_t* buffer, size_t length) {
    const uint8_t* const end = buffer + length;
    for (const uint8_t* at = buffer; at < end; ++at) {
        if (startsWith(at, end, kEnglishMarker, sizeof kEnglishMarker - 1))
            return skipBlanks(at + sizeof kEnglishMarker - 1, end);
        if (startsWith(at, end, kJapaneseMarker, sizeof kJapaneseMarker - 1))
            return skipBlanks(at + sizeof kJapaneseMarker - 1, end);
    }
    return nullptr;
}

ErrorCode DecodeBinHexText(uint8_t* text, size_t length, size_t& produced) {
    const uint8_t* const end = text + length;
    const uint8_t* next = skipBlanks(text, end);
    if (next == end || *next != ':') return ERROR_INVALID_DATA;
    ++next;

    uint8_t* out = text;
    unsigned bits = 0;  // of the group, so far
    int characters = 0;
    for (;;) {
        if (characters == 0) next = decodeGroups(next, end, out);
        if (next == end) return ERROR_HANDLE_EOF;
        const uint8_t meaning = kMeanings.of[*next];
        if (meaning == kOther) break;
        ++next;
        if (meaning == kBlank) continue;
        bits = bits << 6 | meaning;
        characters = (characters + 1) % 4;
        // Each character after a group's first completes a byte.
        if (characters == 2) *out++ = static_cast<uint8_t>(bits >> 4);
        if (characters == 3) *out++ = static_cast<uint8_t>(bits >> 2);
        if (characters == 0) *out++ = static_cast<uint8_t>(bits);
    }
    if (*next != ':') return ERROR_INVALID_DATA;
    // A byte begun by the group's last character counts, its missing bits zero.
    if (characters == 1) *out++ = static_cast<uint8_t>(bits << 2);
    if (characters == 2) *out++ = static_cast<uint8_t>(bits << 4);
    if (characters == 3) *out++ = static_cast<uint8_t>(bits << 6);
    produced = static_cast<size_t>(out - text);
    return 0;
}

}  // namespace tidewell
