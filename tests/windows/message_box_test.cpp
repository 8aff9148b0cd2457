// Message boxes as they come up on the screen, with real inserts.
#include "ui/message_box.h"

#include "messages.h"
#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <set>
#include <string>

using namespace tidewell;

namespace {

constexpr UINT kError = MB_OK | MB_ICONHAND;

std::string withPlainLineEnds(std::string text) {
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    return text;
}

// The title of the box that `show` shows, a bar, and its text. `button` is pressed in it.
template <typename Show>
std::string boxOf(Show show, int button = IDOK, const char* screenshot = nullptr) {
    std::string box;
    const ModalDriver driver([&](HWND window) {
        box = withPlainLineEnds(windowText(window) + "|" + labelTexts(window));
        if (screenshot) takeScreenshot(window, screenshot);
        press(window, button);
    });
    CHECK(show() == button);
    CHECK(driver.shown() == 1);
    return box;
}

struct Messages : ModuleState {
    std::set<DWORD> shown;

    template <typename... Inserts>
    void check(DWORD id, const char* expected, Inserts... inserts) {
        CAPTURE(id);
        shown.insert(id);
        const auto show = [&] { return MessageBoxFromTable(nullptr, id, IDS_TITLE, MB_OK, inserts...); };
        CHECK(boxOf(show) == std::string("Tidewell 98|") + expected);
    }
    // `expected`: what comes before the system's text.
    template <typename... Inserts>
    void checkError(DWORD id, ErrorCode error, const char* expected, Inserts... inserts) {
        CAPTURE(id);
        shown.insert(id);
        char text[500] = "";
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, error, 0, text, sizeof text, nullptr);
        const auto show = [&] {
            return ShowErrorMessage(nullptr, error, id, IDS_ERROR_TITLE, kError, inserts...);
        };
        CHECK(boxOf(show) == std::string("Tidewell 98 Error|") + expected + withPlainLineEnds(text));
    }
};

}  // namespace

// By the identifiers that other programs know them by.
TEST_CASE_FIXTURE(Messages, "Every message shows its text and its inserts") {
    check(0x60000002, "Please insert the destination disk in drive 'B:'.", 'B');
    check(0x20000003, "The disk in drive 'A:' has been succesfully copied.", 'A');
    checkError(0xE0000004, ERROR_CRC, "Error while copying disk: ");
    check(
        0xA0000005,
        "Some Mac-specific information will be lost because the file is not being extracted to a Mac disk.\n"
        "Do you want to continue?");
    checkError(0xE0000007, ERROR_DISK_FULL,
               "Unable to extract the original Mac file from 'A %1 file.hqx' to 'C:\\100%2': ",
               "A %1 file.hqx", "C:\\100%2");
    check(0xA0000008,
          "If you change the type or the creator of a file, Mac programs may no longer be able to open it.\n"
          "Do you want to change them?");
    checkError(0xE0000009, ERROR_WRITE_PROTECT,
               "The Mac properties of 'Letter' cannot be changed: ", "Letter");
    checkError(0xE000000A, ERROR_NOT_READY, "The disk in drive 'A:' cannot be formatted: ", 'A');
    check(0xA000000C,
          "Unformatting erases ALL data on the Mac disk in drive 'E:'.\nDo you want to unformat the disk?",
          'E');
    check(0x2000000E, "The disk has been unformatted. It is no longer a Mac disk.");
    check(0xA000000F,
          "The disk in drive 'E:' is not a Mac disk, but it already holds files.\n"
          "Formatting erases ALL data on it.\nDo you want to format the disk?",
          'E');
    check(0xA0000010,
          "Formatting erases ALL data on the disk in drive 'A:'.\nDo you want to format the disk?", 'A');
    check(0xA0000011,
          "A quick format of this disk is not possible.\n"
          "Choose OK to format the whole disk, track by track.");
    check(0xA0000012,
          "The disk cannot be formatted because it is in use.\n"
          "Close every window and program that uses the disk, then choose Retry.");
    checkError(0xA0000013, ERROR_WRITE_PROTECT,
               "The format of the disk in drive 'A:' cannot be changed: ", 'A');
    check(0x60000014, "Volume 'System Folder'", "System Folder");
    check(0xE0000015,
          "Tidewell\xA0"
          "98 cannot change volumes on this drive.  Quit any disk utilities or other programs "
          "that are using this drive, and make sure that no window is displaying the contents of the drive.  "
          "Then try changing volumes again.");
    checkError(0xE0000016, ERROR_INVALID_PARAMETER, "Tidewell 98 cannot change volumes on this drive: ");
    checkError(0xE0000018, ERROR_FILE_NOT_FOUND, "An error occurred while converting 'Letter': ", "Letter");
    checkError(0xE0000019, ERROR_INVALID_DATA, "Conversion error: ");
    check(0x6000001A, "Tidewell 98 - Read Me Resources", "Read Me");
    check(0x6000001B, "12 resource(s)", 12);
    checkError(0xE000001C, ERROR_ACCESS_DENIED, "An error occurred while saving the resource: ");
    check(0x6000001D, "8.4KB of 97.7KB", "8.4KB", "97.7KB");
    checkError(0xE000001E, ERROR_NOT_ENOUGH_MEMORY, "An error occurred while viewing the resource: ");
    check(0xE000001F, "The file 'Read 100% & %1' does not contain any resources.", "Read 100% & %1");
    checkError(0xE0000020, ERROR_SHARING_VIOLATION, "An error occurred while opening 'Letter': ", "Letter");
    check(0xE0000021,
          "You do not have permission to format a non-floppy disk.\nAdministrative privileges are required.\n"
          "For assistance, contact your system administrator.");
    check(0x60000022, "Format Mac Disk - 3\xBD Floppy (A:)", "3\xBD Floppy (A:)");
    check(0xE0000023,
          "This is not a high-density disk, and it has not been formatted.\n"
          "Only 1.44 MB floppy disks can be used in this drive as Mac disks.\n"
          "Do you want to try again with another disk?");
    check(0xA0000024, "'Letter' is read-only.\nDo you want to change its Mac properties all the same?",
          "Letter");
    check(0x60000025, "'abcd' resource", "abcd");
    check(0x60000026, "Mac OS Standard (HFS) 1.4MB", "1.4MB");
    check(0x60000027, "Mac OS Extended (HFS+) 98.9MB", "98.9MB");
    check(0x60000028, "Unformat");
    checkError(0xE0000029, ERROR_INVALID_NAME,
               "The disk in drive 'A:' has been formatted, but it cannot be labelled 'Disk-One': ", 'A',
               "Disk-One");
    check(0x6000002B, "The disk in drive 'A:' has been formatted.", 'A');
    check(0x6000002C, "The disk in drive 'A:' has been formatted as 'Untitled'.\n1.4MB are free on it.", 'A',
          "Untitled", "1.4MB");
    check(0xA000002D,
          "The disk cannot be unformatted because it is in use.\n"
          "Close every window and program that uses the disk, then choose Retry.");
    check(0xA000002E, "Formatting was cancelled. The disk is not formatted.");
    check(0xE000002F, "The disk in drive 'A:' is damaged and cannot be formatted.", 'A');

    // An error whose text would need inserts shows as its number.
    const auto show = [] {
        return ShowErrorMessage(nullptr, ERROR_BAD_EXE_FORMAT, MSG_SAVE_FAILED, IDS_ERROR_TITLE, kError);
    };
    CHECK(boxOf(show) == "Tidewell 98 Error|An error occurred while saving the resource: 193");

    std::set<DWORD> all;
    for (const auto& message : messagesOf(ModuleInstance))
        all.insert(message.first);
    CHECK(shown == all);
}

TEST_CASE_FIXTURE(ModuleState, "A box has the buttons of its style, and over a dialog the dialog's title") {
    const TestWindow owner("Format Mac Disk - A:");
    struct {
        DWORD id;
        UINT style;
        int button;
        const char* screenshot;
    } const rows[] = {
        {MSG_EXTRACT_LOSES_INFORMATION, MB_YESNO | MB_ICONQUESTION, IDYES, "EXTRACT_LOSES"},
        {MSG_NOT_HIGH_DENSITY, MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2, IDNO, "NOT_HIGH_DENSITY"},
        {MSG_FORMAT_DISK_IN_USE, MB_RETRYCANCEL | MB_ICONEXCLAMATION, IDRETRY, "DISK_IN_USE"},
        {MSG_QUICK_FORMAT_IMPOSSIBLE, MB_OKCANCEL | MB_ICONHAND, IDCANCEL, "NO_QUICK_FORMAT"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.id);
        const auto show = [&] { return MessageBoxFromTable(owner, row.id, kOwnersTitle, row.style); };
        CHECK(boxOf(show, row.button, row.screenshot).find("Format Mac Disk - A:|") == 0);
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
    SetLastError(0);
    CHECK(MessageBoxFromTable(nullptr, MSG_FORMAT_NONE, kOwnersTitle, kError) == -1);
    CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    CHECK(driver.shown() == 0);
}
