// Message boxes as they come up on the screen, with real inserts.
#include "ui/message_box.h"

#include "messages.h"
#include "module/module_state.h"
#include "res/resource.h"
#include "support/modal_windows.h"

#include <doctest/doctest.h>

#include <string>

using namespace tidewell;

namespace {

constexpr UINT kInformation = MB_OK | MB_ICONINFORMATION;
constexpr UINT kQuestion = MB_YESNO | MB_ICONQUESTION;
constexpr UINT kExclamation = MB_ICONEXCLAMATION;
constexpr UINT kError = MB_OK | MB_ICONHAND;

DWORD_PTR text(const char* value) {
    return reinterpret_cast<DWORD_PTR>(value);
}

// What a box shows; the text with plain line ends.
struct Box {
    std::string title;
    std::string text;
    int shown = 0;
};

// With plain line ends. Where a 32-bit program runs without its display, Wine takes the ANSI texts of windows
// for UTF-8: there, any characters but ASCII ones are as good as others.
std::string comparable(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == '\r') continue;
#ifndef _WIN64
        if (static_cast<unsigned char>(c) >= 0x80) {
            if (result.empty() || result.back() != '?') result += '?';
            continue;
        }
#endif
        result += c;
    }
    return result;
}

// Calls `show`, which shows at most one box, and presses `button` in it.
template <typename Show>
Box boxOf(Show show, int button, const char* screenshot = nullptr) {
    Box box;
    const ModalDriver driver([&](HWND window) {
        box.title = windowText(window);
        box.text = comparable(labelText(window));
        if (screenshot) takeScreenshot(window, screenshot);
        press(window, button);
    });
    CHECK(show() == button);
    box.shown = driver.shown();
    return box;
}

std::string systemText(ErrorCode error) {
    char buffer[500] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, error, 0, buffer, sizeof buffer, nullptr);
    return comparable(buffer);
}

struct ModuleState {
    ModuleState() { InitializeModuleState(GetModuleHandleA(nullptr)); }
};

}  // namespace

TEST_CASE_FIXTURE(ModuleState, "Every message without an error shows its text and its inserts") {
    struct {
        DWORD id;
        UINT style;
        int button;
        DWORD_PTR inserts[3];
        const char* expected;
    } const rows[] = {
        {0x60000002, MB_OKCANCEL, IDCANCEL, {'B'}, "Please insert the destination disk in drive 'B:'."},
        {0x20000003, kInformation, IDOK, {'A'}, "The disk in drive 'A:' has been succesfully copied."},
        {0xA0000005,
         kQuestion,
         IDYES,
         {},
         "Some Mac-specific information will be lost because the file is not being extracted to a Mac disk.\n"
         "Do you want to continue?"},
        {0xA0000008,
         kQuestion,
         IDNO,
         {},
         "If you change the type or the creator of a file, Mac programs may no longer be able to open it.\n"
         "Do you want to change them?"},
        {0xA000000C,
         MB_YESNO | kExclamation | MB_DEFBUTTON2,
         IDYES,
         {'E'},
         "Unformatting erases ALL data on the Mac disk in drive 'E:'.\nDo you want to unformat the disk?"},
        {0x2000000E, kInformation, IDOK, {}, "The disk has been unformatted. It is no longer a Mac disk."},
        {0xA000000F,
         MB_YESNO | kExclamation | MB_DEFBUTTON2,
         IDNO,
         {'E'},
         "The disk in drive 'E:' is not a Mac disk, but it already holds files.\n"
         "Formatting erases ALL data on it.\nDo you want to format the disk?"},
        {0xA0000010,
         MB_YESNO | kExclamation | MB_DEFBUTTON2,
         IDNO,
         {'A'},
         "Formatting erases ALL data on the disk in drive 'A:'.\nDo you want to format the disk?"},
        {0xA0000011,
         MB_OKCANCEL | kExclamation,
         IDOK,
         {},
         "A quick format of this disk is not possible.\n"
         "Choose OK to format the whole disk, track by track."},
        {0xA0000012,
         MB_RETRYCANCEL | kExclamation,
         IDRETRY,
         {},
         "The disk cannot be formatted because it is in use.\n"
         "Close every window and program that uses the disk, then choose Retry."},
        {0x60000014, kInformation, IDOK, {text("System Folder")}, "Volume 'System Folder'"},
        {0xE0000015,
         kInformation,
         IDOK,
         {},
         "Tidewell\xA0"
         "98 cannot change volumes on this drive.  Quit any disk utilities or other programs "
         "that are using this drive, and make sure that no window is displaying the contents of the drive.  "
         "Then try changing volumes again."},
        {0x6000001A, kInformation, IDOK, {text("Read Me")}, "Tidewell 98 - Read Me Resources"},
        {0x6000001B, kInformation, IDOK, {12}, "12 resource(s)"},
        {0x6000001D, kInformation, IDOK, {text("8.4KB"), text("97.7KB")}, "8.4KB of 97.7KB"},
        {0xE000001F,
         kError,
         IDOK,
         {text("Read 100% & %1")},
         "The file 'Read 100% & %1' does not contain any resources."},
        {0xE0000021,
         kError,
         IDOK,
         {},
         "You do not have permission to format a non-floppy disk.\nAdministrative privileges are required.\n"
         "For assistance, contact your system administrator."},
        {0x60000022, kInformation, IDOK, {text("3\xBD Floppy (A:)")}, "Format Mac Disk - 3\xBD Floppy (A:)"},
        {0xE0000023,
         MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2,
         IDNO,
         {},
         "This is not a high-density disk, and it has not been formatted.\n"
         "Only 1.44 MB floppy disks can be used in this drive as Mac disks.\n"
         "Do you want to try again with another disk?"},
        {0xA0000024,
         kQuestion,
         IDYES,
         {text("Letter")},
         "'Letter' is read-only.\nDo you want to change its Mac properties all the same?"},
        {0x60000025, kInformation, IDOK, {text("abcd")}, "'abcd' resource"},
        {0x60000026, kInformation, IDOK, {text("1.4MB")}, "Mac OS Standard (HFS) 1.4MB"},
        {0x60000027, kInformation, IDOK, {text("98.9MB")}, "Mac OS Extended (HFS+) 98.9MB"},
        {0x60000028, kInformation, IDOK, {}, "Unformat"},
        {0x6000002B, kInformation, IDOK, {'A'}, "The disk in drive 'A:' has been formatted."},
        {0x6000002C,
         kInformation,
         IDOK,
         {'A', text("Untitled"), text("1.4MB")},
         "The disk in drive 'A:' has been formatted as 'Untitled'.\n1.4MB are free on it."},
        {0xA000002D,
         MB_RETRYCANCEL | kExclamation,
         IDCANCEL,
         {},
         "The disk cannot be unformatted because it is in use.\n"
         "Close every window and program that uses the disk, then choose Retry."},
        {0xA000002E, MB_OK | kExclamation, IDOK, {}, "Formatting was cancelled. The disk is not formatted."},
        {0xE000002F, kError, IDOK, {'A'}, "The disk in drive 'A:' is damaged and cannot be formatted."},
    };
    for (const auto& row : rows) {
        CAPTURE(row.id);
        const Box box = boxOf(
            [&] {
                return MessageBoxFromTable(nullptr, row.id, IDS_TITLE, row.style, row.inserts[0],
                                           row.inserts[1], row.inserts[2]);
            },
            row.button, row.id == 0xA0000005 ? "EXTRACT_LOSES" : nullptr);
        CHECK(box.shown == 1);
        CHECK(box.title == "Tidewell 98");
        CHECK(box.text == comparable(row.expected));
    }
}

TEST_CASE_FIXTURE(ModuleState, "Every message about an error shows the system's text and its inserts") {
    struct {
        DWORD id;
        UINT style;
        int button;
        ErrorCode error;
        DWORD_PTR inserts[2];
        const char* expected;  // what comes before the system's text
    } const rows[] = {
        {0xE0000004, kError, IDOK, ERROR_CRC, {}, "Error while copying disk: "},
        {0xE0000007,
         MB_RETRYCANCEL | kExclamation,
         IDRETRY,
         ERROR_DISK_FULL,
         {text("A %1 file.hqx"), text("C:\\100%2")},
         "Unable to extract the original Mac file from 'A %1 file.hqx' to 'C:\\100%2': "},
        {0xE0000009,
         MB_RETRYCANCEL | MB_ICONHAND,
         IDCANCEL,
         ERROR_WRITE_PROTECT,
         {text("Letter")},
         "The Mac properties of 'Letter' cannot be changed: "},
        {0xE000000A, kError, IDOK, ERROR_NOT_READY, {'A'}, "The disk in drive 'A:' cannot be formatted: "},
        {0xA0000013,
         MB_RETRYCANCEL | MB_ICONHAND,
         IDRETRY,
         ERROR_WRITE_PROTECT,
         {'A'},
         "The format of the disk in drive 'A:' cannot be changed: "},
        {0xE0000016,
         kError,
         IDOK,
         ERROR_INVALID_PARAMETER,
         {},
         "Tidewell 98 cannot change volumes on this drive: "},
        {0xE0000018,
         MB_OKCANCEL | kExclamation,
         IDCANCEL,
         ERROR_FILE_NOT_FOUND,
         {text("Letter")},
         "An error occurred while converting 'Letter': "},
        {0xE0000019, kError, IDOK, ERROR_INVALID_DATA, {}, "Conversion error: "},
        {0xE000001C, kError, IDOK, ERROR_ACCESS_DENIED, {}, "An error occurred while saving the resource: "},
        {0xE000001E,
         kError,
         IDOK,
         ERROR_NOT_ENOUGH_MEMORY,
         {},
         "An error occurred while viewing the resource: "},
        {0xE0000020,
         kError,
         IDOK,
         ERROR_SHARING_VIOLATION,
         {text("Letter")},
         "An error occurred while opening 'Letter': "},
        {0xE0000029,
         kError,
         IDOK,
         ERROR_INVALID_NAME,
         {'A', text("Disk-One")},
         "The disk in drive 'A:' has been formatted, but it cannot be labelled 'Disk-One': "},
    };
    for (const auto& row : rows) {
        CAPTURE(row.id);
        const Box box = boxOf(
            [&] {
                return ShowErrorMessage(nullptr, row.error, row.id, IDS_ERROR_TITLE, row.style,
                                        row.inserts[0], row.inserts[1]);
            },
            row.button, row.id == 0xE0000007 ? "EXTRACT_FAILED" : nullptr);
        CHECK(box.shown == 1);
        CHECK(box.title == "Tidewell 98 Error");
        CHECK(systemText(row.error).back() == '\n');
        CHECK(box.text == row.expected + systemText(row.error));
    }
}

TEST_CASE_FIXTURE(ModuleState, "An error whose text needs inserts shows as its number") {
    const Box box = boxOf(
        [] {
            return ShowErrorMessage(nullptr, ERROR_BAD_EXE_FORMAT, MSG_SAVE_FAILED, IDS_ERROR_TITLE, kError);
        },
        IDOK);
    CHECK(box.text == "An error occurred while saving the resource: 193");
}

TEST_CASE_FIXTURE(ModuleState, "What cannot be shown is not shown, and gives -1") {
    const ModalDriver driver([](HWND window) { EndDialog(window, IDCANCEL); });
    constexpr ErrorCode kNoSuchError = 0x2FFF1234;
    constexpr DWORD kNoSuchMessage = 0xE0007777;
    constexpr int kNoSuchString = 999;
    HWND const untitled =
        CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr);

    CHECK(ShowErrorMessage(nullptr, kNoSuchError, MSG_SAVE_FAILED, IDS_ERROR_TITLE, kError) == -1);
    CHECK(ShowErrorMessage(nullptr, ERROR_CRC, kNoSuchMessage, IDS_ERROR_TITLE, kError) == -1);
    CHECK(ShowErrorMessage(nullptr, ERROR_CRC, MSG_SAVE_FAILED, kNoSuchString, kError) == -1);
    CHECK(MessageBoxFromTable(nullptr, kNoSuchMessage, IDS_TITLE, kError) == -1);
    CHECK(MessageBoxFromTable(nullptr, MSG_FORMAT_NONE, kNoSuchString, kError) == -1);
    CHECK(MessageBoxFromTable(untitled, MSG_FORMAT_NONE, kOwnersTitle, kError) == -1);
    SetLastError(0);
    CHECK(MessageBoxFromTable(nullptr, MSG_FORMAT_NONE, kOwnersTitle, kError) == -1);
    CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    CHECK(driver.shown() == 0);
    DestroyWindow(untitled);
}

TEST_CASE_FIXTURE(ModuleState, "A box over a dialog takes the dialog's title") {
    HWND const owner = CreateWindowExA(0, "STATIC", "Format Mac Disk - A:", WS_POPUP, 0, 0, 50, 50, nullptr,
                                       nullptr, nullptr, nullptr);
    const Box box = boxOf(
        [&] { return MessageBoxFromTable(owner, MSG_FORMAT_CANCELLED, kOwnersTitle, MB_OK | kExclamation); },
        IDOK);
    CHECK(box.title == "Format Mac Disk - A:");
    DestroyWindow(owner);
}
