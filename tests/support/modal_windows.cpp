#include "modal_windows.h"

#include "screenshot.h"

#include <doctest/doctest.h>

#include <utility>

namespace {

constexpr UINT kLookInterval = 10;     // ms
constexpr DWORD kSettleTime = 60;      // ms, until it is painted
constexpr DWORD kPressAgain = 500;     // ms: a click is lost while the system activates another window
constexpr DWORD kLongestWait = 10000;  // ms
constexpr char kDialogClass[] = "#32770";

ModalDriver* activeDriver = nullptr;
HWND pressedButton = nullptr;
DWORD pressedAt = 0;

std::string classOf(HWND window) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

BOOL CALLBACK keepDialog(HWND window, LPARAM result) {
    if (!IsWindowVisible(window) || classOf(window) != kDialogClass) return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
}

struct Search {
    const char* text;
    HWND found;
};

BOOL CALLBACK compareText(HWND window, LPARAM parameter) {
    auto& search = *reinterpret_cast<Search*>(parameter);
    if (windowText(window) != search.text) return TRUE;
    search.found = window;
    return FALSE;
}

BOOL CALLBACK appendLabel(HWND window, LPARAM parameter) {
    const std::string text = windowText(window);
    auto& texts = *reinterpret_cast<std::string*>(parameter);
    if (classOf(window) == "Static" && !text.empty()) texts += (texts.empty() ? "" : "\n") + text;
    return TRUE;
}

}  // namespace

ModalDriver::ModalDriver(std::function<void(HWND)> action)
    : action_(std::move(action)), timer_(SetTimer(nullptr, 0, kLookInterval, onTimer)) {
    REQUIRE(activeDriver == nullptr);
    activeDriver = this;
}

ModalDriver::~ModalDriver() {
    KillTimer(nullptr, timer_);
    activeDriver = nullptr;
}

void CALLBACK ModalDriver::onTimer(HWND, UINT, UINT_PTR, DWORD) {
    if (activeDriver) activeDriver->look();
}

void ModalDriver::look() {
    HWND window = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), keepDialog, reinterpret_cast<LPARAM>(&window));
    if (window != current_) {
        current_ = window;
        since_ = GetTickCount();
        acted_ = false;
        pressedButton = nullptr;
    }
    if (!window) return;
    const DWORD waited = GetTickCount() - since_;
    if (!acted_ && waited > kSettleTime) {
        acted_ = true;
        ++shown_;
        action_(window);
    } else if (pressedButton && waited <= kLongestWait) {
        if (GetTickCount() - pressedAt < kPressAgain) return;
        PostMessageA(pressedButton, BM_CLICK, 0, 0);
        pressedAt = GetTickCount();
    } else if (waited > kLongestWait) {
        FAIL_CHECK("a window stayed open: " << windowText(window));
        EndDialog(window, IDCANCEL);
    }
}

std::string windowText(HWND window) {
    char text[2000] = "";
    // Not GetWindowText: that does not ask the controls of another thread.
    SendMessageA(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    return text;
}

std::string labelText(HWND window) {
    std::string texts;
    EnumChildWindows(window, appendLabel, reinterpret_cast<LPARAM>(&texts));
    return texts;
}

HWND childWithText(HWND window, const char* text) {
    Search search = {text, nullptr};
    EnumChildWindows(window, compareText, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void press(HWND dialog, int button) {
    HWND const control = GetDlgItem(dialog, button);
    REQUIRE_MESSAGE(control != nullptr, "no button " << button);
    PostMessageA(control, BM_CLICK, 0, 0);
    pressedButton = control;
    pressedAt = GetTickCount();
}

void takeScreenshot(HWND window, const char* name) {
#ifdef _WIN64
    CHECK(saveScreenshot(window, name));
#else
    static_cast<void>(window);
    static_cast<void>(name);
#endif
}
