// Numbers and sizes in the user's format.
#include "ui/number_format.h"

#include "support/modal_windows.h"
#include "support/replaced_import_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>

using namespace tidewell;

namespace {

// The user's number format.
const char* decimal;
const char* thousands;
const char* grouping;

void use(const char* newDecimal, const char* newThousands, const char* newGrouping) {
    decimal = newDecimal;
    thousands = newThousands;
    grouping = newGrouping;
}

int WINAPI localeInfo(LCID locale, LCTYPE type, LPSTR buffer, int size) {
    CHECK(locale == LOCALE_USER_DEFAULT);
    const char* const text = type == LOCALE_SDECIMAL    ? decimal
                             : type == LOCALE_STHOUSAND ? thousands
                                                        : grouping;
    const int length = lstrlenA(text) + 1;
    if (length > size) return 0;
    lstrcpyA(buffer, text);
    return length;
}

struct Numbers : ModuleState {
    Numbers() { use(".", ",", "3;0"); }
};

std::string sizeText(uint64_t value, BOOL withUnit) {
    char text[128];
    const DWORD length = FormatSize(value, text, sizeof text, withUnit);
    CHECK(length == std::strlen(text));
    return text;
}

std::string numberText(int32_t value) {
    char text[64];
    const int size = FormatNumber(value, text, sizeof text);
    CHECK(size == static_cast<int>(std::strlen(text)) + 1);
    return text;
}

}  // namespace

REPLACE_IMPORT(GetLocaleInfoA, 16, localeInfo);

TEST_CASE_FIXTURE(Numbers, "A size is shown in its unit or in bytes") {
    struct {
        uint64_t value;
        const char* withUnit;
        const char* inBytes;
    } const rows[] = {
        {0, "0 bytes", "0 bytes"},
        {1, "1 byte", "1 byte"},
        {1001, "1.0KB", "1,001 bytes"},
        {1024, "1KB", "1,024 bytes"},
        {1'572'864, "1.5MB", "1,572,864 bytes"},
        {UINT64_MAX, "17,179,869,184.0GB", "18,446,744,073,709,551,615 bytes"},
    };
    for (const auto& row : rows) {
        CHECK(sizeText(row.value, TRUE) == row.withUnit);
        CHECK(sizeText(row.value, FALSE) == row.inBytes);
    }
    char text[16] = "untouched";
    CHECK(FormatSize(1536, nullptr, 100, TRUE) == 6);
    CHECK(FormatSize(1536, text, 5, TRUE) == 6);
    CHECK(std::string(text) == "untouched");
    CHECK(FormatSize(1536, text, 6, TRUE) == 5);
    CHECK(std::string(text) == "1.5KB");
    // Without the names of its units.
    ResourceModule = GetModuleHandleA("kernel32.dll");
    CHECK(sizeText(1'572'864, TRUE) == "1572864");
    CHECK(FormatSize(1'572'864, nullptr, 0, FALSE) == 8);
}

TEST_CASE_FIXTURE(Numbers, "Numbers follow the user's separators, grouping and sign") {
    CHECK(numberText(0) == "0");
    CHECK(numberText(INT32_MIN) == "-2,147,483,648");
    char tiny[4];
    CHECK(FormatNumber(12345, tiny, sizeof tiny) == 0);
    use(",", ".", "3;2;2;2;0");
    CHECK(numberText(1'234'567) == "1.234.567");
    CHECK(sizeText(UINT64_MAX, TRUE) == "17.179.869.184,0GB");
    for (const char* const nonsense : {"/", ":", "", "0;0"}) {
        use(",", ".", nonsense);
        CHECK(numberText(1'234'567) == "1234567");
    }
    use(",", ".", "9;0");
    CHECK(numberText(INT32_MIN) == "-2.147483648");
}

TEST_CASE_FIXTURE(Numbers, "A control shows a size in both forms where they differ") {
    const TestWindow window("dialog");
    HWND const label = CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 50, 50, window,
                                       reinterpret_cast<HMENU>(UINT_PTR{7}), nullptr, nullptr);
    CHECK(SetDlgItemSize(window, 7, 512));
    CHECK(windowText(label) == "512 bytes");
    CHECK(SetDlgItemSize(window, 7, UINT64_MAX));
    CHECK(windowText(label) == "17,179,869,184.0GB (18,446,744,073,709,551,615 bytes)");
    CHECK_FALSE(SetDlgItemSize(window, 8, 1));
}
