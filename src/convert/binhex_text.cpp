#include "convert/binhex_text.h"

#include "convert/binhex_alphabet.h"
#include "convert/binhex_groups.h"

#include <cstring>

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

bool isBlank(uint8_t character) {
    return kBinHexMeanings.of[character] == kBinHexBlank;
}

bool startsWith(const uint8_t* text, const uint8_t* end, const char* marker, size_t length) {
    return static_cast<size_t>(end - text) > length && std::memcmp(text, marker, length) == 0;
}

const uint8_t* skipBlanks(const uint8_t* text, const uint8_t* end) {
    while (text < end && isBlank(*text))
        ++text;
    return text;
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
        if (characters == 0) next = DecodeBinHexGroups(next, end, out);
        if (next == end) return ERROR_HANDLE_EOF;
        const uint8_t meaning = kBinHexMeanings.of[*next];
        if (meaning == kBinHexOther) break;
        ++next;
        if (meaning == kBinHexBlank) continue;
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
