// The progress window as the system shows it, with its real timers and messages.
#include "ui/progress.h"

#include "res/resource.h"
#include "support/screenshot.h"
#include "ui/progress_arithmetic.h"

#include <doctest/doctest.h>

#include <windows.h>
#include <commctrl.h>

#include <string>

using namespace tidewell;

namespace {

constexpr int64_t kSecond = 10'000'000;
constexpr char kTitle[] = "Creating MacBinary file...";

class ProgressInWindow {
  public:
    explicit ProgressInWindow(BOOL startPaused = FALSE)
        : dialog_(ProgressCreate(GetModuleHandleA(nullptr), kTitle, nullptr, startPaused)) {
        REQUIRE(dialog_ != nullptr);
    }
    ~ProgressInWindow() { ProgressDestroy(dialog_); }
    ProgressInWindow(const ProgressInWindow&) = delete;
    ProgressInWindow& operator=(const ProgressInWindow&) = delete;

    operator ProgressDialog*() const { return dialog_; }
    ProgressDialog* operator->() const { return dialog_; }
    HWND window() const { return ProgressWindow(dialog_); }
    HWND control(int id) const {
        HWND const control = GetDlgItem(window(), id);
        REQUIRE(control != nullptr);
        return control;
    }
    bool shows(int id) const { return (GetWindowLongA(control(id), GWL_STYLE) & WS_VISIBLE) != 0; }
    std::string text(int id) const {
        char text[200];
        GetDlgItemTextA(window(), id, text, sizeof text);
        return text;
    }
    LRESULT askBar(UINT message, WPARAM wParam = 0) const {
        return SendMessageA(control(IDC_PROGRESS_BAR), message, wParam, 0);
    }

    // Works on until `condition` holds; false when `milliseconds` pass before.
    template <typename Condition>
    bool workUntil(Condition condition, DWORD milliseconds) const {
        const DWORD start = GetTickCount();
        while (!condition()) {
            if (GetTickCount() - start > milliseconds) return false;
            ProgressPump(dialog_);
            Sleep(5);
        }
        return true;
    }
    void workFor(DWORD milliseconds) const {
        workUntil([] { return false; }, milliseconds);
    }

  private:
    ProgressDialog* dialog_;
};

// The library's icon; a blank one for a 32-bit program where Wine runs those without their display, and
// loads no icons.
HICON packIcon() {
#ifdef _WIN64
    return LoadIconA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDI_CREATE_MACBINARY));
#else
    const BYTE blank[128] = {};
    static HICON const icon = CreateIcon(GetModuleHandleA(nullptr), 32, 32, 1, 1, blank, blank);
    return icon;
#endif
}

}  // namespace

TEST_CASE("The window shows after a second, and the time remaining after two") {
    HWND const active = GetActiveWindow();
    const ProgressInWindow progress;
    CHECK(ProgressSetIcon(progress, packIcon()) == 0);
    CHECK(ProgressSetText(progress, "Quarterly Report", nullptr));
    const uint64_t total = 3'000'000;
    CHECK(ProgressSetTotal(progress, &total));
    CHECK(ProgressAdvance(progress, 1'500'000));

    progress.workFor(500);
    CHECK_FALSE(IsWindowVisible(progress.window()));
    CHECK(GetActiveWindow() == active);
    CHECK(progress.workUntil([&] { return IsWindowVisible(progress.window()); }, 5000));
    CHECK_FALSE(progress.shows(IDC_PROGRESS_BAR));
    CHECK(progress.text(IDC_PROGRESS_TIME).empty());

    // As much time is to come as the work has taken.
    progress->clock = SystemTime100ns() - 140 * kSecond;
    CHECK(progress.workUntil([&] { return progress.shows(IDC_PROGRESS_BAR); }, 5000));
    CHECK(progress.text(IDC_PROGRESS_TIME) == "3 Minutes Remaining");
    CHECK(progress.askBar(PBM_GETPOS) == 22);

    progress->clock = SystemTime100ns() - 42 * kSecond;
    CHECK(
        progress.workUntil([&] { return progress.text(IDC_PROGRESS_TIME) == "45 Seconds Remaining"; }, 5000));
#ifdef _WIN64
    // A 32-bit program's windows are not painted where Wine runs it without its display.
    UpdateWindow(progress.window());
    CHECK(saveScreenshot(progress.window(), "PROGRESS"));
#endif
}

TEST_CASE("No time is shown while the work is paused from the start") {
    const ProgressInWindow progress(TRUE);
    const uint64_t total = 1000;
    CHECK(ProgressSetTotal(progress, &total));
    CHECK(ProgressAdvance(progress, 1));
    progress.workFor(2300);
    CHECK(IsWindowVisible(progress.window()));
    CHECK(progress.text(IDC_PROGRESS_TIME).empty());
    CHECK_FALSE(progress.shows(IDC_PROGRESS_BAR));
}

TEST_CASE("A pause shows the window at once") {
    const ProgressInWindow progress;
    CHECK_FALSE(IsWindowVisible(progress.window()));
    CHECK(ProgressPause(progress));
    CHECK(IsWindowVisible(progress.window()));
    CHECK(ProgressResume(progress));
    CHECK(IsWindowVisible(progress.window()));
}

TEST_CASE("The window carries its title, its texts and its icon") {
    const ProgressInWindow progress;
    char title[100];
    GetWindowTextA(progress.window(), title, sizeof title);
    CHECK(std::string(title) == kTitle);

    CHECK(ProgressSetText(progress, "A & B", "second"));
    CHECK(ProgressSetText(progress, nullptr, "other"));
    CHECK(progress.text(IDC_PROGRESS_LINE1) == "A & B");
    CHECK(progress.text(IDC_PROGRESS_LINE2) == "other");
    CHECK((GetWindowLongA(progress.control(IDC_PROGRESS_LINE1), GWL_STYLE) & SS_NOPREFIX) != 0);

    CHECK_FALSE(progress.shows(IDC_PROGRESS_ICON));
    HICON const icon = packIcon();
    REQUIRE(icon != nullptr);
    CHECK(ProgressSetIcon(progress, icon) == 0);
    CHECK(ProgressSetIcon(progress, icon) == reinterpret_cast<LRESULT>(icon));
    CHECK(SendDlgItemMessageA(progress.window(), IDC_PROGRESS_ICON, STM_GETICON, 0, 0) ==
          reinterpret_cast<LRESULT>(icon));
    CHECK(progress.shows(IDC_PROGRESS_ICON));
    CHECK(IsWindowEnabled(progress.control(IDC_PROGRESS_ICON)));
    CHECK_FALSE(progress.shows(IDC_PROGRESS_ANIMATION));
    CHECK_FALSE(IsWindowEnabled(progress.control(IDC_PROGRESS_ANIMATION)));
}

TEST_CASE("The window's bar follows the work though it is not yet shown") {
    const ProgressInWindow progress;
    uint64_t value = 65536;
    CHECK(ProgressSetTotal(progress, &value));
    CHECK(progress.askBar(PBM_GETRANGE, FALSE) == 1);
    value = 65535;
    CHECK(ProgressSetTotal(progress, &value));
    CHECK(progress.askBar(PBM_GETRANGE, FALSE) == 65535);
    value = 40000;
    CHECK(ProgressSetDone(progress, &value));
    CHECK(progress.askBar(PBM_GETPOS) == 40000);
    value = 0x5'0000'0000;
    CHECK(ProgressSetDone(progress, &value));
    CHECK(progress.askBar(PBM_GETRANGE, FALSE) == 5);
    CHECK(progress.askBar(PBM_GETPOS) == 5);
    CHECK_FALSE(progress.shows(IDC_PROGRESS_BAR));
}

TEST_CASE("Every way to cancel stops the work and leaves the window") {
    struct {
        const char* name;
        UINT message;
        WPARAM wParam;
        int control;  // 0: the window itself
    } const ways[] = {
        {"button", BM_CLICK, 0, IDCANCEL},
        {"Escape", WM_KEYDOWN, VK_ESCAPE, 0},
        {"Escape on the button", WM_KEYDOWN, VK_ESCAPE, IDCANCEL},
        {"Enter", WM_KEYDOWN, VK_RETURN, 0},
        {"system menu", WM_SYSCOMMAND, SC_CLOSE, 0},
        {"close", WM_CLOSE, 0, 0},
    };
    for (const auto& way : ways) {
        CAPTURE(way.name);
        const ProgressInWindow progress;
        CHECK(ProgressPause(progress));
        CHECK(ProgressResume(progress));
        CHECK(ProgressPump(progress) == 1);
        HWND const target = way.control ? progress.control(way.control) : progress.window();
        PostMessageA(target, way.message, way.wParam, 0);
        // What the user did meanwhile acts with the next step; the pump tells of it.
        CHECK(ProgressAdvance(progress, 1) == 1);
        CHECK(ProgressPump(progress) == 0);
        CHECK(IsWindow(progress.window()));
        CHECK(ProgressPump(progress) == 0);
    }
}

TEST_CASE("Commands other than Cancel do not cancel") {
    const ProgressInWindow progress;
    PostMessageA(progress.window(), WM_COMMAND, IDOK, 0);
    PostMessageA(progress.window(), WM_COMMAND, IDC_PROGRESS_LINE1, 0);
    CHECK(ProgressPump(progress) == 1);
}

TEST_CASE("The pump takes no message but the window's own") {
    HWND const other = CreateWindowExA(0, "STATIC", "other", WS_POPUP, 0, 0, 50, 50, nullptr, nullptr,
                                       GetModuleHandleA(nullptr), nullptr);
    const ProgressInWindow progress;
    PostMessageA(other, WM_APP, 5, 0);
    PostQuitMessage(7);
    CHECK(ProgressPump(progress) == 1);
    MSG message;
    CHECK(PeekMessageA(&message, other, WM_APP, WM_APP, PM_REMOVE));
    CHECK(message.wParam == 5);
    CHECK(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    CHECK(message.message == WM_QUIT);
    CHECK(message.wParam == 7);
    DestroyWindow(other);
}

TEST_CASE("Cancel is heard while the thread is asked to end") {
    const ProgressInWindow progress;
    PostQuitMessage(7);
    PostMessageA(progress.window(), WM_KEYDOWN, VK_ESCAPE, 0);
    CHECK_FALSE(ProgressPump(progress));
    MSG message;
    REQUIRE(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    CHECK(message.wParam == 7);
}

TEST_CASE("Destroying the progress destroys the window") {
    HWND window;
    {
        const ProgressInWindow progress;
        window = progress.window();
        CHECK(IsWindow(window));
    }
    CHECK_FALSE(IsWindow(window));
}

TEST_CASE("A window that cannot be made gives the system's reason") {
    SetLastError(0);
    CHECK(ProgressCreate(GetModuleHandleA("comctl32.dll"), kTitle, nullptr, FALSE) == nullptr);
    CHECK(GetLastError() == ERROR_RESOURCE_NAME_NOT_FOUND);
    SetLastError(0);
    CHECK(ProgressCreate(nullptr, kTitle, nullptr, FALSE) == nullptr);
    CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    CHECK(FindWindowA(nullptr, kTitle) == nullptr);
}
