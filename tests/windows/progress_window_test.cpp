// The progress window as the system shows it, with its real messages.
#include "ui/progress.h"

#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/test_module_windows.h"
#include "support/timers_windows.h"
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
    explicit ProgressInWindow(BOOL startPaused = FALSE, HWND owner = nullptr)
        : dialog_(ProgressCreate(GetModuleHandleA(nullptr), kTitle, owner, startPaused)) {
        REQUIRE(dialog_ != nullptr);
    }
    ~ProgressInWindow() { ProgressDestroy(dialog_); }
    ProgressInWindow(const ProgressInWindow&) = delete;
    ProgressInWindow& operator=(const ProgressInWindow&) = delete;

    operator ProgressDialog*() const { return dialog_; }
    ProgressDialog* operator->() const { return dialog_; }
    HWND window() const { return ProgressWindow(dialog_); }
    HWND control(int id) const { return GetDlgItem(window(), id); }
    bool shows(int id) const { return (GetWindowLongA(control(id), GWL_STYLE) & WS_VISIBLE) != 0; }
    std::string text(int id) const { return windowText(control(id)); }
    // A timer's time has come.
    void ring(UINT_PTR timer) const {
        PostMessageA(window(), WM_TIMER, timer, 0);
        CHECK(ProgressPump(dialog_));
    }

  private:
    ProgressDialog* dialog_;
};

}  // namespace

TEST_CASE_FIXTURE(ModuleState, "The window shows after a second, and the time remaining every two") {
    const TestWindow owner("owner", WS_POPUP | WS_VISIBLE);
    SetActiveWindow(owner);
    const ProgressInWindow paused(TRUE);
    const ProgressInWindow seconds(FALSE, owner);
    CHECK(GetWindow(seconds.window(), GW_OWNER) == owner);
    CHECK(IsWindowEnabled(owner));
    const uint64_t total = 3'000'000;
    for (const ProgressInWindow* const progress : {&paused, &seconds}) {
        CHECK((timersOf[progress->window()] == Timers{{0, 1000}, {1, 2000}}));
        progress->ring(1);  // with nothing done
        CHECK(ProgressSetTotal(*progress, &total));
        CHECK(ProgressAdvance(*progress, total / 2));
        CHECK_FALSE(IsWindowVisible(progress->window()));
    }
    CHECK(GetActiveWindow() == owner);
    // As much time is to come as the work has taken.
    seconds->clock = SystemTime100ns() - 42 * kSecond;

    for (const ProgressInWindow* const progress : {&paused, &seconds}) {
        progress->ring(2);
        CHECK_FALSE(IsWindowVisible(progress->window()));
        CHECK(progress->text(IDC_PROGRESS_TIME).empty());
        progress->ring(0);
        CHECK(IsWindowVisible(progress->window()));
        CHECK(GetActiveWindow() == progress->window());
        CHECK((timersOf[progress->window()] == Timers{{1, 2000}}));
        CHECK_FALSE(progress->shows(IDC_PROGRESS_BAR));
        progress->ring(1);
        CHECK(progress->shows(IDC_PROGRESS_BAR) == (progress != &paused));
    }
    CHECK(seconds.text(IDC_PROGRESS_TIME) == "45 Seconds Remaining");
    CHECK(paused.text(IDC_PROGRESS_TIME).empty());
    // Less than a second is not told; what was there stays.
    seconds->clock = SystemTime100ns() - kSecond / 2;
    seconds.ring(1);
    CHECK(seconds.text(IDC_PROGRESS_TIME) == "45 Seconds Remaining");
}

TEST_CASE_FIXTURE(
    ModuleState,
    "The window carries its title, its texts and its icon, a pause shows it, and it goes with its object") {
    HWND window;
    {
        const ProgressInWindow progress;
        window = progress.window();
        CHECK(windowText(window) == kTitle);
        CHECK(LOWORD(SendMessageA(window, DM_GETDEFID, 0, 0)) == IDCANCEL);
        CHECK(ProgressSetText(progress, "A & B", "second"));
        CHECK(ProgressSetText(progress, nullptr, "other"));
        CHECK(progress.text(IDC_PROGRESS_LINE1) == "A & B");
        CHECK(ProgressSetText(progress, "C", nullptr));
        CHECK(progress.text(IDC_PROGRESS_LINE2) == "other");
        CHECK((GetWindowLongA(progress.control(IDC_PROGRESS_LINE1), GWL_STYLE) & SS_NOPREFIX) != 0);

        // As much room below the last line as beside it.
        RECT margins = {7, 7, 250, 84 + 7};
        MapDialogRect(window, &margins);
        RECT client = {};
        GetClientRect(window, &client);
        CHECK(client.right == margins.right);
        CHECK(client.bottom == margins.bottom);

        CHECK_FALSE(progress.shows(IDC_PROGRESS_ICON));
        ShowWindow(progress.control(IDC_PROGRESS_ANIMATION), SW_SHOW);
        EnableWindow(progress.control(IDC_PROGRESS_ANIMATION), TRUE);
        const BYTE blank[128] = {};
        HICON const icon = CreateIcon(GetModuleHandleA(nullptr), 32, 32, 1, 1, blank, blank);
        REQUIRE(icon != nullptr);
        CHECK(ProgressSetIcon(progress, icon) == 0);
        CHECK(ProgressSetIcon(progress, icon) == reinterpret_cast<LRESULT>(icon));
        CHECK(iconOf(window) == icon);
        CHECK(progress.shows(IDC_PROGRESS_ICON));
        CHECK(IsWindowEnabled(progress.control(IDC_PROGRESS_ICON)));
        CHECK_FALSE(progress.shows(IDC_PROGRESS_ANIMATION));
        CHECK_FALSE(IsWindowEnabled(progress.control(IDC_PROGRESS_ANIMATION)));

        // The whole of the bar's 16 bits reaches the control, though it is not yet shown.
        uint64_t value = 65535;
        CHECK(ProgressSetTotal(progress, &value));
        value = 40000;
        CHECK(ProgressSetDone(progress, &value));
        HWND const bar = progress.control(IDC_PROGRESS_BAR);
        CHECK(SendMessageA(bar, PBM_GETRANGE, FALSE, 0) == 65535);
        CHECK(SendMessageA(bar, PBM_GETPOS, 0, 0) == 40000);
        CHECK(SendMessageA(bar, PBM_SETSTEP, 1, 0) == 10);
        CHECK_FALSE(progress.shows(IDC_PROGRESS_BAR));

        CHECK_FALSE(IsWindowVisible(window));
        CHECK(ProgressPause(progress));
        CHECK(IsWindowVisible(window));
        if (kHasDisplay) CHECK_FALSE(GetUpdateRect(window, nullptr, FALSE));
        CHECK((timersOf[window] == Timers{{1, 2000}}));
        CHECK(ProgressResume(progress));
        CHECK(IsWindowVisible(window));
    }
    CHECK_FALSE(IsWindow(window));
}

TEST_CASE_FIXTURE(ModuleState, "Every way to cancel stops the work and leaves the window") {
    const struct {
        UINT message;
        WPARAM wParam;
        bool onButton;
    } ways[] = {
        {WM_KEYDOWN, VK_ESCAPE, true},
        {WM_KEYDOWN, VK_RETURN, false},
        {WM_SYSCOMMAND, SC_CLOSE, false},
    };
    for (const auto& way : ways) {
        CAPTURE(way.message);
        const ProgressInWindow progress;
        CHECK(ProgressPause(progress));
        CHECK(ProgressResume(progress));
        PostMessageA(progress.window(), WM_COMMAND, IDOK, 0);
        CHECK(ProgressPump(progress) == 1);
        PostMessageA(way.onButton ? progress.control(IDCANCEL) : progress.window(), way.message, way.wParam,
                     0);
        // What the user did meanwhile acts with the next step; the pump tells of it.
        CHECK(ProgressAdvance(progress, 1) == 1);
        CHECK(ProgressPump(progress) == 0);
        CHECK(IsWindow(progress.window()));
        CHECK(ProgressPump(progress) == 0);
    }
}

TEST_CASE_FIXTURE(
    ModuleState,
    "The pump takes no message but the window's own, and hears Cancel while the thread is to end") {
    const TestWindow other("other");
    const ProgressInWindow progress;
    PostMessageA(other, WM_APP, 5, 0);
    PostQuitMessage(7);
    PostMessageA(progress.window(), WM_KEYDOWN, VK_ESCAPE, 0);
    CHECK(ProgressPump(progress) == 0);
    MSG message;
    CHECK(PeekMessageA(&message, other, WM_APP, WM_APP, PM_REMOVE));
    CHECK(PeekMessageA(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
    CHECK(message.message == WM_QUIT);
    CHECK(message.wParam == 7);
}

TEST_CASE("A window that cannot be made gives the system's reason") {
    const ModuleState library;
    SetLastError(0);
    CHECK(ProgressCreate(GetModuleHandleA("comctl32.dll"), kTitle, nullptr, FALSE) == nullptr);
    CHECK(GetLastError() == ERROR_RESOURCE_NAME_NOT_FOUND);
    CHECK(FindWindowA(nullptr, kTitle) == nullptr);
}
