#include "ui/busy_cursor.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("The wait cursor shows for as long as the object lives") {
    HCURSOR const arrow = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    HCURSOR const wait = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT));
    REQUIRE(arrow != wait);
    SetCursor(arrow);
    {
        const BusyCursor busy(nullptr);
        CHECK(GetCursor() == wait);
        CHECK(GetCapture() == nullptr);
    }
    CHECK(GetCursor() == arrow);
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
        CHECK(GetCursor() == LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT)));
    }
    CHECK(GetCapture() == nullptr);
    DestroyWindow(window);
}
