// Message boxes as they come up on the screen, with real inserts.
#include "ui/message_box.h"

#include "messages.h"
#include "res/resource.h"
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

DWORD WINAPI formatMessage(DWORD flags, LPCVOID source, DWORD id, DWORD language, LPSTR buffer, DWORD size,
                           va_list* inserts) {
    static const auto real = systemFunction<decltype(&FormatMessageA)>("kernel32.dll", "FormatMessageA");
    if (flags & FORMAT_MESSAGE_FROM_SYSTEM) {
        const char text[] = "100% of %1 is used.";
        if (id == kErrorWithPercent) {
            *reinterpret_cast<char**>(buffer) =
                static_cast<char*>(std::memcpy(LocalAlloc(LMEM_FIXED, sizeof text), text, sizeof text));
            return sizeof text - 1;
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
    struct {
        ErrorCode error;
        const char* text;
    } const rows[] = {
        {ERROR_BAD_EXE_FORMAT, "193"},  // on every system a text with an insert
        {kErrorWithPercent, "100% of %1 is used."},
        {kErrorWithInserts, "-1342242814"},
    };
    for (const auto& row : rows) {
        CHECK(boxOf([&] {
                  return ShowErrorMessage(nullptr, row.error, 0xE0000029, IDS_ERROR_TITLE, kError, 'A',
                                          "Disk %2");
              }) ==
              std::string(
                  "Tidewell 98 Error|The disk in drive 'A:' has been formatted, but it cannot be labelled "
                  "'Disk %2': ") +
                  row.text);
    }
    char system[500] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, ERROR_ACCESS_DENIED, 0, system, sizeof system,
                   nullptr);
    std::string text = system;
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    CHECK(text.size() > 5);
    CHECK(boxOf([] {
              return ShowErrorMessage(nullptr, ERROR_ACCESS_DENIED, 0xE000001C, IDS_ERROR_TITLE, kError);
          }) == "Tidewell 98 Error|An error occurred while saving the resource: " + text);
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
        const char* screenshot;
    } const rows[] = {
        {MSG_NO_RESOURCES, 0x10, "[OK*]", IDI_HAND, IDOK, "ERROR"},
        {MSG_OPEN_FAILED, 0x15, "[&Retry*][Cancel]", IDI_HAND, IDRETRY, "RETRY"},
        {MSG_UNFORMATTED, 0x40, "[OK*]", IDI_ASTERISK, IDOK, "INFORMATION"},
        {MSG_EXTRACT_LOSES_INFORMATION, 0x24, "[&Yes*][&No]", IDI_QUESTION, IDYES, "EXTRACT_LOSES"},
        {MSG_ASK_UNFORMAT, 0x134, "[&Yes][&No*]", IDI_EXCLAMATION, IDNO, "ASK_UNFORMAT"},
        {MSG_FORMAT_DISK_IN_USE, 0x35, "[&Retry*][Cancel]", IDI_EXCLAMATION, IDCANCEL, "DISK_IN_USE"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.screenshot);
        int shown = 0;
        for (const int title : {kOwnersTitle, IDS_ERROR_TITLE}) {
            const ModalDriver driver([&](HWND box) {
                ++shown;
                CHECK(windowText(box) ==
                      (title == kOwnersTitle ? "Format Mac Disk - A:" : "Tidewell 98 Error"));
                CHECK(GetWindow(box, GW_OWNER) == owner);
                CHECK(buttonTexts(box) == row.buttons);
                CHECK(iconOf(box) == LoadIconA(nullptr, row.icon));
                takeScreenshot(box, row.screenshot);
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
    HWND gone = nullptr;
    {
        const TestWindow window("gone");
        gone = window;
    }

    CHECK(ShowErrorMessage(nullptr, kNoSuchError, MSG_SAVE_FAILED, IDS_ERROR_TITLE, kError) == -1);
    CHECK(ShowErrorMessage(nullptr, ERROR_CRC, kNoSuchMessage, IDS_ERROR_TITLE, kError) == -1);
    CHECK(ShowErrorMessage(nullptr, ERROR_CRC, MSG_SAVE_FAILED, kNoSuchString, kError) == -1);
    CHECK(MessageBoxFromTable(nullptr, kNoSuchMessage, IDS_TITLE, kError) == -1);
    CHECK(MessageBoxFromTable(nullptr, MSG_FORMAT_NONE, kNoSuchString, kError) == -1);
    CHECK(MessageBoxFromTable(untitled, MSG_FORMAT_NONE, kOwnersTitle, kError) == -1);
    CHECK(MessageBoxFromTable(gone, MSG_FORMAT_NONE, IDS_TITLE, kError) == -1);
    SetLastError(0);
    CHECK(MessageBoxFromTable(nullptr, MSG_FORMAT_NONE, kOwnersTitle, kError) == -1);
    CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    CHECK(driver.shown() == 0);
}

// Other programs and other languages know them by number.
TEST_CASE_FIXTURE(ModuleState, "The messages have their numbers") {
    std::string numbers;
    for (const auto& [id, text] : messagesOf(ModuleInstance)) {
        char number[16];
        wsprintfA(number, "%X ", id);
        numbers += number;
    }
    CHECK(
        numbers ==
        "20000003 2000000E 60000002 60000014 6000001A 6000001B 6000001D 60000022 60000025 60000026 60000027 "
        "60000028 6000002B 6000002C A0000005 A0000008 A000000C A000000F A0000010 A0000011 A0000012 A0000013 "
        "A0000024 A000002D A000002E E0000004 E0000007 E0000009 E000000A E0000015 E0000016 E0000018 E0000019 "
        "E000001C E000001E E000001F E0000020 E0000021 E0000023 E0000029 E000002F ");
}
