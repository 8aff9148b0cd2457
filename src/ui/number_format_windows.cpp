#include "ui/number_format.h"

#include "res/resource.h"
#include "ui/size_scale.h"
#include "ui/strings.h"

namespace tidewell {

namespace {

constexpr int kLocaleCapacity = 10;  // of the longest, the grouping
// Without it a zero alone would leave nothing.
constexpr UINT kLeadingZero = 1;
constexpr UINT kMinusBeforeNumber = 1;

struct LocaleNumbers {
    UINT grouping = 0;
    char decimal[kLocaleCapacity] = ".";
    char thousands[kLocaleCapacity] = ",";

    LocaleNumbers() {
        char groups[kLocaleCapacity] = "";
        GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SGROUPING, groups, sizeof groups);
        // One digit, and what more groups there are behind it.
        if (*groups >= '0' && *groups <= '9') grouping = static_cast<UINT>(*groups - '0');
        GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, decimal, sizeof decimal);
        GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, thousands, sizeof thousands);
    }
};

// `digits`: with a period before its decimals, whatever the locale.
int formatForLocale(const char* digits, UINT decimals, char* buffer, int capacity) {
    LocaleNumbers locale;
    const NUMBERFMTA format = {decimals,       kLeadingZero,     locale.grouping,
                               locale.decimal, locale.thousands, kMinusBeforeNumber};
    return GetNumberFormatA(LOCALE_USER_DEFAULT, 0, digits, &format, buffer, capacity);
}

// The entry of a list of strings; the empty one at its end when it has fewer.
const char* entryOf(const char* list, unsigned index) {
    for (; index > 0 && *list != '\0'; --index)
        list += lstrlenA(list) + 1;
    return list;
}

// Two texts, one after the other.
DWORD copyTexts(const char* first, const char* second, char* buffer, DWORD bufferSize) {
    const auto firstLength = static_cast<DWORD>(lstrlenA(first));
    const DWORD length = firstLength + static_cast<DWORD>(lstrlenA(second));
    if (!buffer || length >= bufferSize) return length + 1;
    lstrcpyA(buffer, first);
    lstrcpyA(buffer + firstLength, second);
    return length;
}

}  // namespace

int FormatNumber(int32_t value, char* buffer, int bufferSize) {
    char digits[kDigitsCapacity];
    wsprintfA(digits, "%d", static_cast<int>(value));
    return formatForLocale(digits, 0, buffer, bufferSize);
}

DWORD FormatSize(uint64_t value, char* buffer, DWORD bufferSize, BOOL withUnit) {
    char digits[kDigitsCapacity + 2];
    const LocalText units(LoadStringList(IDS_SIZE_UNITS));
    if (!units) {
        FormatDigits(value, digits);
        return copyTexts(digits, "", buffer, bufferSize);
    }
    const ScaledSize size = withUnit ? ScaleSize(value) : ScaledSize{value, 0, 0};
    if (size.hundredths != 0)
        FormatTenths(size, digits);
    else
        FormatDigits(size.whole, digits);

    char number[kShortTextCapacity];
    const bool formatted = formatForLocale(digits, size.hundredths != 0, number, sizeof number) != 0;
    const bool single = size.whole == 1 && size.hundredths == 0;
    return copyTexts(formatted ? number : digits, entryOf(units.get(), 2 * size.unit + (single ? 0 : 1)),
                     buffer, bufferSize);
}

BOOL SetDlgItemSize(HWND dialog, int controlId, uint64_t value) {
    char size[kShortTextCapacity] = "";
    char bytes[kShortTextCapacity] = "";
    FormatSize(value, size, sizeof size, TRUE);
    FormatSize(value, bytes, sizeof bytes, FALSE);
    if (lstrcmpA(size, bytes) == 0) return SetDlgItemTextA(dialog, controlId, size);
    char both[kPrintedCapacity];
    wsprintfA(both, "%s (%s)", size, bytes);
    return SetDlgItemTextA(dialog, controlId, both);
}

}  // namespace tidewell
