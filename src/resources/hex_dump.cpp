#include "resources/hex_dump.h"

#include "base/error_code.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tidewell {

namespace {

// A line: 0000: 00010203 04050607 08090a0b 0c0d0e0f  ................
constexpr uint32_t kBytesPerLine = 16;
constexpr uint32_t kBytesPerGroup = 4;
constexpr size_t kColonColumn = 4;
constexpr size_t kDigitsColumn = 6;
constexpr size_t kCharactersColumn = 43;
constexpr size_t kLineLength = kCharactersColumn + kBytesPerLine;
constexpr size_t kLineEndLength = 2;

using DigitPairs = std::array<char[2], 256>;

constexpr DigitPairs digitPairs() {
    constexpr char kDigits[] = "0123456789abcdef";
    DigitPairs pairs{};
    for (size_t value = 0; value < pairs.size(); ++value) {
        pairs[value][0] = kDigits[value / 16];
        pairs[value][1] = kDigits[value % 16];
    }
    return pairs;
}

constexpr DigitPairs kDigitPairs = digitPairs();

void writeDigits(char* to, uint8_t value) {
    std::memcpy(to, kDigitPairs[value], sizeof kDigitPairs[value]);
}

char shownAs(uint8_t value) {
    return value >= ' ' && value <= '~' ? static_cast<char>(value) : '.';
}

void writeOffset(char* line, uint32_t offset) {
    writeDigits(line, static_cast<uint8_t>(offset >> 8));
    writeDigits(line + 2, static_cast<uint8_t>(offset));
    line[kColonColumn] = ':';
}

// Up to kBytesPerLine bytes. Whole lines are most of a dump: there the compiler is to know the count.
inline __attribute__((always_inline)) void writeBytes(char* line, const uint8_t* data, uint32_t count) {
    std::memset(line + kColonColumn + 1, ' ', kCharactersColumn - kColonColumn - 1);
    for (uint32_t i = 0; i < count; ++i)
        writeDigits(line + kDigitsColumn + size_t{2} * i + i / kBytesPerGroup, data[i]);
    for (uint32_t i = 0; i < count; ++i)
        line[kCharactersColumn + i] = shownAs(data[i]);
}

}  // namespace

size_t HexDump(char* output, const uint8_t* data, uint32_t length) {
    char* line = output;
    uint32_t offset = 0;
    for (; length - offset > kBytesPerLine; offset += kBytesPerLine) {
        writeOffset(line, offset);
        writeBytes(line, data + offset, kBytesPerLine);
        line[kLineLength] = '\r';
        line[kLineLength + 1] = '\n';
        line += kLineLength + kLineEndLength;
    }
    writeOffset(line, offset);
    char* end = line + kColonColumn + 1;
    if (const uint32_t left = length - offset) {
        writeBytes(line, data + offset, left);
        end = line + kCharactersColumn + left;
    }
    *end = '\0';
    return static_cast<size_t>(end - output);
}

PageBuffer HexDumpAlloc(const uint8_t* data, uint32_t length, size_t* textLength) {
    const uint64_t capacity = HexDumpCapacity(length);
    const auto size = static_cast<SIZE_T>(capacity);
    PageBuffer text;
    if (size == capacity) text = PageBuffer::allocate(size);
    if (!text) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return text;
    }
    const size_t written = HexDump(reinterpret_cast<char*>(text.data()), data, length);
    if (textLength != nullptr) *textLength = written;
    return text;
}

}  // namespace tidewell
