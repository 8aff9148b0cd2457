#include "ui/busy_cursor.h"

#include "support/modal_windows.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("The wait cursor shows for as long as the object lives; for a window it captures the mouse") {
    HCURSOR const wait = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_WAIT));
    CHECK((wait != nullptr) == kHasDisplay);
    const BYTE blank[8] = {};
    HCURSOR const own = CreateCursor(GetModuleHandleA(nullptr), 0, 0, 16, 4, blank, blank);
    REQUIRE(own != nullptr);
    SetCursor(own);
    const TestWindow window("busy", WS_POPUP | WS_VISIBLE);
    {
        const BusyCursor busy(nullptr);
        CHECK(GetCursor() == wait);
        CHECK(GetCapture() == nullptr);
    }
    CHECK(GetCursor() == own);
    {
        const BusyCursor busy(window);
        CHECK(GetCapture() == window);
        {
            // Without a window of its own it leaves the capture alone.
            const BusyCursor inner(nullptr);
        }
        CHECK(GetCapture() == window);
        CHECK(GetCursor() == wait);
    }
    CHECK(GetCapture() == nullptr);
    SetCursor(nullptr);
    DestroyCursor(own);
}
