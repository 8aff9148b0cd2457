// Numbers and sizes in the user's format.
#include "ui/number_format.h"

#include "module/module_state.h"
#include "res/resource.h"
#include "support/locale_setting_windows.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>

using namespace tidewell;

namespace {

struct ModuleState {
    ModuleState() { InitializeModuleState(GetModuleHandleA(nullptr)); }
};

INT_PTR CALLBACK doNothing(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

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

TEST_CASE_FIXTURE(ModuleState, "Sizes in English and in German form") {
    struct {
        uint64_t value;
        const char* english;
        const char* englishBytes;
        const char* german;
        const char* germanBytes;
    } const rows[] = {
        {0, "0 bytes", "0 bytes", "0 bytes", "0 bytes"},
        {1, "1 byte", "1 byte", "1 byte", "1 byte"},
        {2, "2 bytes", "2 bytes", "2 bytes", "2 bytes"},
        {1000, "1,000 bytes", "1,000 bytes", "1.000 bytes", "1.000 bytes"},
        {1001, "1.0KB", "1,001 bytes", "1,0KB", "1.001 bytes"},
        {1024, "1KB", "1,024 bytes", "1KB", "1.024 bytes"},
        {1076, "1.1KB", "1,076 bytes", "1,1KB", "1.076 bytes"},  // 1.05: an exact half
        {1536, "1.5KB", "1,536 bytes", "1,5KB", "1.536 bytes"},
        {1'048'576, "1MB", "1,048,576 bytes", "1MB", "1.048.576 bytes"},
        {1'572'864, "1.5MB", "1,572,864 bytes", "1,5MB", "1.572.864 bytes"},
        {3'219'456, "3.1MB", "3,219,456 bytes", "3,1MB", "3.219.456 bytes"},
        {uint64_t{2000} << 30, "2,000GB", "2,147,483,648,000 bytes", "2.000GB", "2.147.483.648.000 bytes"},
        {UINT64_MAX, "17,179,869,184.0GB", "18,446,744,073,709,551,615 bytes", "17.179.869.184,0GB",
         "18.446.744.073.709.551.615 bytes"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.value);
        {
            const EnglishNumbers english;
            CHECK(sizeText(row.value, TRUE) == row.english);
            CHECK(sizeText(row.value, FALSE) == row.englishBytes);
        }
        const GermanNumbers german;
        CHECK(sizeText(row.value, TRUE) == row.german);
        CHECK(sizeText(row.value, FALSE) == row.germanBytes);
    }
}

TEST_CASE_FIXTURE(ModuleState, "A size that does not fit tells what it needs and writes nothing") {
    const EnglishNumbers english;
    char text[16] = "untouched";
    CHECK(FormatSize(1536, nullptr, 0, TRUE) == 6);
    CHECK(FormatSize(1536, nullptr, 100, TRUE) == 6);
    CHECK(FormatSize(1536, text, 5, TRUE) == 6);
    CHECK(std::string(text) == "untouched");
    CHECK(FormatSize(1536, text, 6, TRUE) == 5);
    CHECK(std::string(text) == "1.5KB");
}

TEST_CASE_FIXTURE(ModuleState, "Without its units a size is shown as its digits") {
    ResourceModule = GetModuleHandleA("kernel32.dll");
    CHECK(sizeText(1'572'864, TRUE) == "1572864");
    CHECK(FormatSize(1'572'864, nullptr, 0, FALSE) == 8);
}

TEST_CASE_FIXTURE(ModuleState, "Numbers follow the user's separators, grouping and sign") {
    {
        const EnglishNumbers english;
        CHECK(numberText(0) == "0");
        CHECK(numberText(999) == "999");
        CHECK(numberText(1'234'567) == "1,234,567");
        CHECK(numberText(INT32_MIN) == "-2,147,483,648");
        char tiny[4];
        CHECK(FormatNumber(12345, tiny, sizeof tiny) == 0);
    }
    const GermanNumbers german;
    CHECK(numberText(1'234'567) == "1.234.567");
    const LocaleSetting ungrouped(LOCALE_SGROUPING, "0;0");
    CHECK(numberText(1'234'567) == "1234567");
}

TEST_CASE_FIXTURE(ModuleState, "A control shows a size in both forms where they differ") {
    const EnglishNumbers english;
    HWND const window =
        CreateDialogParamA(ModuleInstance, MAKEINTRESOURCEA(IDD_VIEWER), nullptr, doNothing, 0);
    REQUIRE(window != nullptr);
    struct {
        uint64_t value;
        const char* expected;
    } const rows[] = {
        {1'572'864, "1.5MB (1,572,864 bytes)"},
        {512, "512 bytes"},
        {UINT64_MAX, "17,179,869,184.0GB (18,446,744,073,709,551,615 bytes)"},
    };
    for (const auto& row : rows) {
        CHECK(SetDlgItemSize(window, IDC_VIEWER_SIZE, row.value));
        char text[200];
        GetDlgItemTextA(window, IDC_VIEWER_SIZE, text, sizeof text);
        CHECK(std::string(text) == row.expected);
    }
    CHECK_FALSE(SetDlgItemSize(window, 999, 1));
    DestroyWindow(window);
}
