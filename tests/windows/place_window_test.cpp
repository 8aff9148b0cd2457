// Where windows come up.
#include "ui/place_window.h"

#include "support/modal_windows.h"
#include "support/replaced_import_windows.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

UINT lastFlags = 0;

LRESULT CALLBACK keepFlags(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_WINDOWPOSCHANGING) lastFlags = reinterpret_cast<const WINDOWPOS*>(lParam)->flags;
    return DefWindowProcA(window, message, wParam, lParam);
}

// What of them the caller has asked for.
constexpr UINT kAskedFlags = SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOREDRAW | SWP_NOACTIVATE |
                             SWP_SHOWWINDOW | SWP_HIDEWINDOW | SWP_NOCOPYBITS | SWP_NOOWNERZORDER;

// With a caption, so that its frame is higher at the top than it is wide at the left.
struct Window : TestWindow {
    Window(HWND owner, int x, int y, int width, int height)
        : TestWindow(CreateWindowExA(0, "STATIC", "placed", WS_CAPTION, x, y, width, height, owner, nullptr,
                                     nullptr, nullptr)) {
        SetWindowLongPtrA(*this, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(keepFlags));
    }
    POINT client() const {
        POINT origin = {0, 0};
        ClientToScreen(*this, &origin);
        return origin;
    }
};

void checkFrame(HWND window, LONG left, LONG top, LONG width, LONG height) {
    const RECT frame = frameOf(window);
    const RECT expected = {left, top, left + width, top + height};
    CHECK_MESSAGE(EqualRect(&frame, &expected), frame.left << " " << frame.top);
}

// The screen without a taskbar on two of its sides.
const RECT kWorkArea = {100, 0, 900, 700};

BOOL WINAPI parametersInfo(UINT action, UINT parameter, PVOID value, UINT update) {
    static const auto real =
        systemFunction<decltype(&SystemParametersInfoA)>("user32.dll", "SystemParametersInfoA");
    if (action != SPI_GETWORKAREA) return real(action, parameter, value, update);
    CHECK(parameter == 0);
    *static_cast<RECT*>(value) = kWorkArea;
    return TRUE;
}

}  // namespace

REPLACE_IMPORT(SystemParametersInfoA, 16, parametersInfo);

TEST_CASE("A window comes up inside its owner, the next ones a caption further") {
    const Window owner(nullptr, 60, 80, 200, 100);
    const Window window(owner, 7, 9, 150, 90);
    const POINT step = {window.client().x - 7 + 1, window.client().y - 9 + 1};
    CHECK(step.y > step.x);
    for (int index = 0; index < 3; ++index) {
        PlaceWindow(window, index);
        checkFrame(window, owner.client().x + 30 + index * step.x, owner.client().y + 35 + index * step.y,
                   150, 90);
    }
    // Neither size, order, activation nor drawing are touched.
    CHECK((lastFlags & kAskedFlags) == (SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW));
}

TEST_CASE(
    "A window without an owner comes up near the corner; none leaves the screen to the right or below") {
    const RECT desktop = frameOf(GetDesktopWindow());
    const Window alone(nullptr, 0, 0, 150, 90);
    PlaceWindow(alone, 0);
    checkFrame(alone, desktop.right / 10, desktop.bottom / 10, 150, 90);
    CHECK_FALSE(IsWindowVisible(alone));

    const Window inCorner(nullptr, desktop.right - 60, desktop.bottom - 50, 50, 40);
    const Window window(inCorner, 7, 9, 150, 90);
    PlaceWindow(window, 2);
    checkFrame(window, desktop.right - 150, desktop.bottom - 90, 150, 90);
}

TEST_CASE("A window is centred in what the taskbar leaves, and grows at its foot") {
    const Window window(nullptr, 10, 20, 150, 90);
    GrowWindow(window, 30);
    checkFrame(window, 10, 20, 150, 120);
    CHECK((lastFlags & kAskedFlags) == (SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE));
    CentreWindow(window);
    checkFrame(window, 425, 290, 150, 120);
    CHECK((lastFlags & kAskedFlags) == (SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE));
}
