#include "modal_windows.h"

#include <doctest/doctest.h>

#include <map>
#include <utility>

namespace {

constexpr UINT kLookInterval = 10;     // ms
constexpr DWORD kLongestWait = 10000;  // ms

ModalDriver* activeDriver = nullptr;

BOOL CALLBACK keepDialog(HWND window, LPARAM result) {
    if (!IsWindowVisible(window) || classOf(window) != "#32770") return TRUE;
    *reinterpret_cast<HWND*>(result) = window;
    return FALSE;
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

// Timers come after all other messages: a window that is seen here has been initialised and painted.
void ModalDriver::look() {
    HWND window = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), keepDialog, reinterpret_cast<LPARAM>(&window));
    if (window != current_) {
        current_ = window;
        since_ = GetTickCount();
        if (!window) return;
        ++shown_;
        action_(window);
    } else if (window && GetTickCount() - since_ > kLongestWait) {
        FAIL_CHECK("a window stayed open: " << windowText(window));
        EndDialog(window, IDCANCEL);
    }
}

TestWindow::TestWindow(HWND window) : window_(window) {
    REQUIRE(window != nullptr);
}

TestWindow::TestWindow(const char* text, DWORD style)
    : TestWindow(
          CreateWindowExA(0, "STATIC", text, style, 0, 0, 50, 50, nullptr, nullptr, nullptr, nullptr)) {}

HWND goneWindow() {
    const TestWindow window("gone");
    return window;
}

std::string classOf(HWND window) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

// As characters of the system's code page. Without a display Wine itself takes another one.
std::string windowText(HWND window) {
    WCHAR text[2000] = L"";
    GetWindowTextW(window, text, 2000);
    char characters[4000] = "";
    WideCharToMultiByte(CP_ACP, 0, text, -1, characters, sizeof characters, nullptr, nullptr);
    return characters;
}

std::string buttonTexts(HWND dialog) {
    std::multimap<LONG, std::string> buttons;  // by their places
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (classOf(child) != "Button" || !IsWindowVisible(child)) continue;
        const char* const mark = child == GetFocus() ? "*" : IsWindowEnabled(child) ? "" : "-";
        buttons.emplace(frameOf(child).left, "[" + windowText(child) + mark + "]");
    }
    std::string texts;
    for (const auto& [place, text] : buttons)
        texts += text;
    return texts;
}

bool isIcon(HWND control) {
    return classOf(control) == "Static" && (GetWindowLongA(control, GWL_STYLE) & SS_TYPEMASK) == SS_ICON;
}

HICON iconOf(HWND dialog) {
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        if (isIcon(child)) return reinterpret_cast<HICON>(SendMessageA(child, STM_GETICON, 0, 0));
    }
    return nullptr;
}

POINT sizeOf(const RECT& rectangle) {
    return {rectangle.right - rectangle.left, rectangle.bottom - rectangle.top};
}

RECT frameOf(HWND window) {
    RECT frame = {};
    CHECK(GetWindowRect(window, &frame));
    return frame;
}

std::string labelTexts(HWND window) {
    std::string texts;
    for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        // The text of an icon is its name.
        if (classOf(child) == "Static" && !isIcon(child))
            texts += (texts.empty() ? "" : "|") + windowText(child);
    }
    return texts;
}

void press(HWND dialog, int button) {
    HWND const control = GetDlgItem(dialog, button);
    CHECK_MESSAGE((IsWindowVisible(control) && IsWindowEnabled(control)), "no button " << button);
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), reinterpret_cast<LPARAM>(control));
}

void typeKey(HWND window, WPARAM key) {
    PostMessageA(window, WM_KEYDOWN, key, 0);
    PostMessageA(window, WM_KEYUP, key, 0);
}
