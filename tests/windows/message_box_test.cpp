// Message boxes as they come up on the screen, with real inserts.
#include "ui/message_box.h"

#include "messages.h"
#include "res/resource.h"
#include "support/local_allocations_windows.h"
#include "support/modal_windows.h"
#include "support/replaced_import_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>
#include <string>

using namespace tidewell;

namespace {

constexpr UINT kError = MB_OK | MB_ICONHAND;

// Errors that no system knows: one whose text has percent signs, one whose text would need inserts.
constexpr ErrorCode kErrorWithPercent = 0x2FFF0001;
constexpr ErrorCode kErrorWithInserts = 0xAFFF0002;
const std::string kPercentSigns = "%1" + std::string(500, '%');

DWORD WINAPI formatMessage(DWORD flags, LPCVOID source, DWORD id, DWORD language, LPSTR buffer, DWORD size,
                           va_list* inserts) {
    static const auto real = systemFunction<decltype(&FormatMessageA)>("kernel32.dll", "FormatMessageA");
    if (flags & FORMAT_MESSAGE_FROM_SYSTEM) {
        if (id == kErrorWithPercent) {
            auto* const text = static_cast<char*>(LocalAlloc(LMEM_FIXED, kPercentSigns.size() + 1));
            *reinterpret_cast<char**>(buffer) = std::strcpy(text, kPercentSigns.c_str());
            return static_cast<DWORD>(kPercentSigns.size());
        }
        if (id == kErrorWithInserts) {
            SetLastError(ERROR_INVALID_PARAMETER);
            return 0;
        }
    }
    return real(flags, source, id, language, buffer, size, inserts);
}

// The title of the box that `show` shows, a bar, and its text.
template <typename Show>
std::string boxOf(Show show) {
    std::string box;
    const ModalDriver driver([&](HWND window) {
        box = windowText(window) + "|" + labelTexts(window);
        press(window, IDOK);
    });
    CHECK(show() == IDOK);
    CHECK(driver.shown() == 1);
    box.erase(std::remove(box.begin(), box.end(), '\r'), box.end());
    return box;
}

}  // namespace

REPLACE_IMPORT(FormatMessageA, 28, formatMessage);

TEST_CASE_FIXTURE(ModuleState,
                  "Letters, numbers and texts come into a message, the error's text among them") {
    CHECK(boxOf([] {
              return MessageBoxFromTable(nullptr, 0x6000002C, IDS_TITLE, MB_OK, 'A', "100%1", "1.4MB");
          }) == "Tidewell 98|The disk in drive 'A:' has been formatted as '100%1'.\n1.4MB are free on it.");
    CHECK(boxOf([] { return MessageBoxFromTable(nullptr, 0x6000001B, IDS_TITLE, MB_OK, -12); }) ==
          "Tidewell 98|-12 resource(s)");
    largestAllocation = 0;
    struct {
        ErrorCode error;
        std::string text;
    } const rows[] = {
        {ERROR_BAD_EXE_FORMAT, "193"},  // on every system a text with an insert
        {kErrorWithPercent, kPercentSigns},
        {kErrorWithInserts, "-1342242814"},
    };
    for (const auto& row : rows) {
        CHECK(boxOf([&] {
                  return ShowErrorMessage(nullptr, row.error, 0xE0000029, IDS_ERROR_TITLE, kError, 'A',
                                          "Disk %2");
              }) ==
              "Tidewell 98 Error|The disk in drive 'A:' has been formatted, but it cannot be labelled "
              "'Disk %2': " +
                  row.text);
    }
    // Every sign may be doubled.
    CHECK(largestAllocation == 2 * kPercentSigns.size() + 1);
}

TEST_CASE_FIXTURE(ModuleState,
                  "A box has its owner, and the buttons, the default and the icon of its style") {
    const TestWindow owner("Format Mac Disk - A:");
    struct {
        DWORD id;
        UINT style;
        const char* buttons;
        LPCSTR icon;
        int button;
    } const rows[] = {
        {MSG_NO_RESOURCES, 0x10, "[OK*]", IDI_HAND, IDOK},
        {MSG_OPEN_FAILED, 0x15, "[&Retry*][Cancel]", IDI_HAND, IDRETRY},
        {MSG_UNFORMATTED, 0x40, "[OK*]", IDI_ASTERISK, IDOK},
        {MSG_EXTRACT_LOSES_INFORMATION, 0x24, "[&Yes*][&No]", IDI_QUESTION, IDYES},
        {MSG_ASK_UNFORMAT, 0x134, "[&Yes][&No*]", IDI_EXCLAMATION, IDNO},
        {MSG_FORMAT_DISK_IN_USE, 0x35, "[&Retry*][Cancel]", IDI_EXCLAMATION, IDCANCEL},
    };
    for (const auto& row : rows) {
        CAPTURE(row.id);
        int shown = 0;
        for (const int title : {kOwnersTitle, IDS_ERROR_TITLE}) {
            const ModalDriver driver([&](HWND box) {
                ++shown;
                CHECK(windowText(box) ==
                      (title == kOwnersTitle ? "Format Mac Disk - A:" : "Tidewell 98 Error"));
                CHECK(GetWindow(box, GW_OWNER) == owner);
                CHECK(buttonTexts(box) == row.buttons);
                CHECK(iconOf(box) == LoadIconA(nullptr, row.icon));
                press(box, row.button);
            });
            CHECK((title == kOwnersTitle
                       ? MessageBoxFromTable(owner, row.id, title, row.style, "A")
                       : ShowErrorMessage(owner, ERROR_CRC, row.id, title, row.style, "A")) == row.button);
        }
        CHECK(shown == 2);
    }
}

TEST_CASE_FIXTURE(ModuleState, "What cannot be shown is not shown, and gives -1") {
    const ModalDriver driver([](HWND window) { EndDialog(window, IDCANCEL); });
    constexpr ErrorCode kNoSuchError = 0x2FFF1234;
    constexpr DWORD kNoSuchMessage = 0xE0007777;
    constexpr int kNoSuchString = 999;
    const TestWindow untitled("");
    CHECK(ShowErrorMessage(nullptr, kNoSuchError, MSG_SAVE_FAILED, IDS_ERROR_TITLE, kError) == -1);
    CHECK(ShowErrorMessage(nullptr, ERROR_CRC, kNoSuchMessage, IDS_ERROR_TITLE, kError) == -1);
    CHECK(ShowErrorMessage(nullptr, ERROR_CRC, MSG_SAVE_FAILED, kNoSuchString, kError) == -1);
    CHECK(MessageBoxFromTable(nullptr, kNoSuchMessage, IDS_TITLE, kError) == -1);
    CHECK(MessageBoxFromTable(nullptr, MSG_FORMAT_NONE, kNoSuchString, kError) == -1);
    CHECK(MessageBoxFromTable(untitled, MSG_FORMAT_NONE, kOwnersTitle, kError) == -1);
    CHECK(MessageBoxFromTable(goneWindow(), MSG_FORMAT_NONE, IDS_TITLE, kError) == -1);
    SetLastError(0);
    CHECK(MessageBoxFromTable(nullptr, MSG_FORMAT_NONE, kOwnersTitle, kError) == -1);
    CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    CHECK(driver.shown() == 0);
}
