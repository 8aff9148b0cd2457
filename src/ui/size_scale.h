// The numbers of a size text, without any locale.
#ifndef TIDEWELL_UI_SIZE_SCALE_H
#define TIDEWELL_UI_SIZE_SCALE_H

#include <windows.h>

#include <cstdint>

namespace tidewell {

// The largest 64-bit number and its NUL.
constexpr size_t kDigitsCapacity = 21;

// Writes the value as decimal digits with a NUL, up to kDigitsCapacity bytes. Returns the count of digits.
DWORD FormatDigits(uint64_t value, char* buffer);

struct ScaledSize {
    uint64_t whole;
    unsigned hundredths;  // 0 to 99
    unsigned unit;        // 0: bytes, 1: KB, 2: MB, 3: GB
};

// A count of bytes in the unit that leaves at most 1000 of it; GB is the largest.
ScaledSize ScaleSize(uint64_t bytes);

// Rounds to one decimal, a half away from zero, and writes digits, a period and the decimal: no locale
// rounds it again. Up to kDigitsCapacity + 2 bytes.
void FormatTenths(const ScaledSize& size, char* buffer);

}  // namespace tidewell

#endif
