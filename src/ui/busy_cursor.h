// The wait cursor for as long as the object lives.
#ifndef TIDEWELL_UI_BUSY_CURSOR_H
#define TIDEWELL_UI_BUSY_CURSOR_H

#include <windows.h>

namespace tidewell {

class BusyCursor {
  public:
    // With a window the mouse is captured to it, so that the cursor stays wherever the mouse goes.
    explicit BusyCursor(HWND window);
    ~BusyCursor();
    BusyCursor(const BusyCursor&) = delete;
    BusyCursor& operator=(const BusyCursor&) = delete;

  private:
    HWND window_;
    HCURSOR previous_;
};

}  // namespace tidewell

#endif
