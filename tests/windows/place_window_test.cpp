// Where windows come up.
#include "ui/place_window.h"

#include "support/modal_windows.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

struct Window : TestWindow {
    Window(HWND owner, int x, int y, int width, int height)
        : TestWindow(CreateWindowExA(0, "STATIC", "placed", WS_POPUP | WS_CAPTION, x, y, width, height, owner,
                                     nullptr, nullptr, nullptr)) {}
    RECT frame() const {
        RECT frame = {};
        GetWindowRect(*this, &frame);
        return frame;
    }
    POINT client() const {
        POINT origin = {0, 0};
        ClientToScreen(*this, &origin);
        return origin;
    }
};

}  // namespace

TEST_CASE("A window comes up inside its owner, the next ones a caption further") {
    const Window owner(nullptr, 60, 80, 200, 100);
    const Window window(owner, 0, 0, 150, 90);
    const RECT before = window.frame();
    const POINT step = {window.client().x - before.left + 1, window.client().y - before.top + 1};
    CHECK(step.y > 10);
    for (int index = 0; index < 3; ++index) {
        PlaceWindow(window, index);
        const RECT after = window.frame();
        CHECK(after.left == owner.client().x + 30 + index * step.x);
        CHECK(after.top == owner.client().y + 35 + index * step.y);
        CHECK(after.right - after.left == 150);
        CHECK(after.bottom - after.top == 90);
    }
}

TEST_CASE(
    "A window without an owner comes up near the corner; none leaves the screen to the right or below") {
    RECT desktop = {};
    GetWindowRect(GetDesktopWindow(), &desktop);
    const Window alone(nullptr, 0, 0, 150, 90);
    PlaceWindow(alone, 0);
    CHECK(alone.frame().left == desktop.right / 10);
    CHECK(alone.frame().top == desktop.bottom / 10);
    CHECK_FALSE(IsWindowVisible(alone));

    const Window inCorner(nullptr, desktop.right - 60, desktop.bottom - 50, 50, 40);
    const Window window(inCorner, 0, 0, 150, 90);
    PlaceWindow(window, 2);
    CHECK(window.frame().right == desktop.right);
    CHECK(window.frame().bottom == desktop.bottom);

    const Window outside(nullptr, -300, -200, 50, 40);
    const Window child(outside, 0, 0, 150, 90);
    PlaceWindow(child, 0);
    CHECK(child.frame().left == outside.client().x + 30);
    CHECK(child.frame().top == outside.client().y + 35);
}
