// Drives modal windows: dialogs and message boxes that a call shows and waits for.
#ifndef TIDEWELL_TESTS_SUPPORT_MODAL_H
#define TIDEWELL_TESTS_SUPPORT_MODAL_H

#include <windows.h>

#include <functional>
#include <string>

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
    bool acted_ = false;
    int shown_ = 0;
};

std::string windowText(HWND window);

// The texts of all labels of a window, one a line.
std::string labelText(HWND window);

// The window's child with this text; null when there is none.
HWND childWithText(HWND window, const char* text);

// Presses a button as its number's command, as the user would.
void press(HWND dialog, int button);

// Takes a picture of a window for the documents. A 32-bit program's windows are not painted where Wine runs
// it without its display: nothing is taken then.
void takeScreenshot(HWND window, const char* name);

#endif
