// Where windows come up.
#include "ui/place_window.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

class Window {
  public:
    Window(HWND owner, int x, int y, int width, int height)
        : window_(CreateWindowExA(0, "STATIC", "placed", WS_POPUP | WS_CAPTION, x, y, width, height, owner,
                                  nullptr, nullptr, nullptr)) {
        REQUIRE(window_ != nullptr);
    }
    ~Window() { DestroyWindow(window_); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    operator HWND() const { return window_; }
    RECT frame() const {
        RECT frame = {};
        GetWindowRect(window_, &frame);
        return frame;
    }
    POINT client() const {
        POINT origin = {0, 0};
        ClientToScreen(window_, &origin);
        return origin;
    }

  private:
    HWND window_;
};

RECT desktop() {
    RECT place = {};
    GetWindowRect(GetDesktopWindow(), &place);
    return place;
}

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

TEST_CASE("A window without an owner comes up near the desktop's corner") {
    const Window window(nullptr, 0, 0, 150, 90);
    PlaceWindow(window, 0);
    CHECK(window.frame().left == desktop().right / 10);
    CHECK(window.frame().top == desktop().bottom / 10);
    CHECK_FALSE(IsWindowVisible(window));
}

TEST_CASE("A window stays within the screen's right and bottom edges, but may stick out of the others") {
    const Window owner(nullptr, desktop().right - 60, desktop().bottom - 50, 50, 40);
    const Window window(owner, 0, 0, 150, 90);
    PlaceWindow(window, 2);
    CHECK(window.frame().right == desktop().right);
    CHECK(window.frame().bottom == desktop().bottom);

    const Window left(nullptr, -300, -200, 50, 40);
    const Window child(left, 0, 0, 150, 90);
    PlaceWindow(child, 0);
    CHECK(child.frame().left == left.client().x + 30);
    CHECK(child.frame().top == left.client().y + 35);
}
