#include "ui/busy_cursor.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

// Null for a 32-bit program where Wine runs those without their display.
HCURSOR waitCursor() {
    return LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT));
}

// A cursor that a program had before.
class OwnCursor {
  public:
    OwnCursor() {
        const BYTE blank[8] = {};
        cursor_ = CreateCursor(GetModuleHandleA(nullptr), 0, 0, 16, 4, blank, blank);
        REQUIRE(cursor_ != nullptr);
        SetCursor(cursor_);
    }
    ~OwnCursor() {
        SetCursor(nullptr);
        DestroyCursor(cursor_);
    }
    OwnCursor(const OwnCursor&) = delete;
    OwnCursor& operator=(const OwnCursor&) = delete;

    bool isCurrent() const { return GetCursor() == cursor_; }

  private:
    HCURSOR cursor_;
};

}  // namespace

TEST_CASE("The wait cursor shows for as long as the object lives") {
#ifdef _WIN64
    CHECK(waitCursor() != nullptr);
#endif
    const OwnCursor own;
    {
        const BusyCursor busy(nullptr);
        CHECK_FALSE(own.isCurrent());
        CHECK(GetCursor() == waitCursor());
        CHECK(GetCapture() == nullptr);
    }
    CHECK(own.isCurrent());
}

TEST_CASE("The wait cursor of a window captures the mouse") {
    HWND const window = CreateWindowExA(0, "STATIC", "busy", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr,
                                        nullptr, GetModuleHandleA(nullptr), nullptr);
    REQUIRE(window != nullptr);
    {
        const BusyCursor busy(window);
        CHECK(GetCapture() == window);
        {
            // Without a window of its own it leaves the capture alone.
            const BusyCursor inner(nullptr);
        }
        CHECK(GetCapture() == window);
        CHECK(GetCursor() == waitCursor());
    }
    CHECK(GetCapture() == nullptr);
    DestroyWindow(window);
}
