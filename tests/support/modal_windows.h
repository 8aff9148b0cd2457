// Windows of tests; the driver of modal windows, dialogs and message boxes that a call shows and waits for.
#ifndef TIDEWELL_TESTS_SUPPORT_MODAL_H
#define TIDEWELL_TESTS_SUPPORT_MODAL_H

#include <windows.h>

#include <functional>
#include <string>

// A 32-bit program has no display where the tests run it (a 64-bit Wine without 32-bit libraries). Its
// windows are there and answer, but are not painted, and no icon, cursor or bitmap of the system's is there.
constexpr bool kHasDisplay = sizeof(void*) == 8;

// A window that lives as long as the object.
class TestWindow {
  public:
    explicit TestWindow(HWND window);
    // A label.
    explicit TestWindow(const char* text, DWORD style = WS_POPUP);
    ~TestWindow() { DestroyWindow(window_); }
    TestWindow(const TestWindow&) = delete;
    TestWindow& operator=(const TestWindow&) = delete;
    operator HWND() const { return window_; }

  private:
    HWND window_;
};

// While it lives, each modal window of this thread is handed to `action` once, when it is on the screen. An
// action that leaves the window open has it closed after a while; the test fails.
class ModalDriver {
  public:
    explicit ModalDriver(std::function<void(HWND)> action);
    ~ModalDriver();
    ModalDriver(const ModalDriver&) = delete;
    ModalDriver& operator=(const ModalDriver&) = delete;

    // How many windows there were.
    int shown() const { return shown_; }

  private:
    static void CALLBACK onTimer(HWND window, UINT message, UINT_PTR timer, DWORD time);
    void look();

    std::function<void(HWND)> action_;
    UINT_PTR timer_;
    HWND current_ = nullptr;
    DWORD since_ = 0;
    int shown_ = 0;
};

// What no window is any more.
HWND goneWindow();

std::string classOf(HWND window);
std::string windowText(HWND window);

// The push buttons that are seen, from left to right: "[&Yes*]" where it is the default, "[&Yes-]" where it
// is disabled.
std::string buttonTexts(HWND dialog);

// A label that shows an icon instead of its text.
bool isIcon(HWND control);
// What the first of them shows.
HICON iconOf(HWND dialog);

// Width and height as a point.
POINT sizeOf(const RECT& rectangle);
RECT frameOf(HWND window);

// The texts of all labels of a window, with bars between them.
std::string labelTexts(HWND window);

// Tells the window that its button was pressed, as the button does. What the mouse does to a button depends
// on what is active and on when; that is the system's own code.
void press(HWND dialog, int button);

void typeKey(HWND window, WPARAM key);

#endif
