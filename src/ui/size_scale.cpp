#include "ui/size_scale.h"

namespace tidewell {

namespace {

constexpr uint64_t kUnit = 1024;
constexpr uint64_t kMostOfUnit = 1000;
constexpr unsigned kLargestUnit = 3;

}  // namespace

DWORD FormatDigits(uint64_t value, char* buffer) {
    char reversed[kDigitsCapacity];
    DWORD count = 0;
    do {
        reversed[count++] = static_cast<char>('0' + value % 10);
        value /= 10;
    } while (value != 0);
    for (DWORD i = 0; i < count; ++i)
        buffer[i] = reversed[count - 1 - i];
    buffer[count] = '\0';
    return count;
}

ScaledSize ScaleSize(uint64_t bytes) {
    ScaledSize size = {bytes, 0, 0};
    while (size.unit < kLargestUnit && size.whole > kMostOfUnit) {
        size.hundredths = static_cast<unsigned>(size.whole % kUnit * 100 / kUnit);
        size.whole /= kUnit;
        ++size.unit;
    }
    return size;
}

void FormatTenths(const ScaledSize& size, char* buffer) {
    const unsigned tenths = (size.hundredths + 5) / 10;
    char* end = buffer + FormatDigits(size.whole + tenths / 10, buffer);
    *end++ = '.';
    *end++ = static_cast<char>('0' + tenths % 10);
    *end = '\0';
}

}  // namespace tidewell
