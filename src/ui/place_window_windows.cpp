#include "ui/place_window.h"

#include <algorithm>

namespace tidewell {

namespace {

constexpr POINT kFromOwner = {30, 35};  // pixels
constexpr LONG kDesktopShare = 10;

POINT placeWithoutCascade(HWND window, const RECT& desktop) {
    HWND const owner = GetWindow(window, GW_OWNER);
    // The desktop begins at 0, 0.
    if (!owner) return {desktop.right / kDesktopShare, desktop.bottom / kDesktopShare};
    POINT place = kFromOwner;
    ClientToScreen(owner, &place);
    return place;
}

// So far that the next window's client area begins where this one's did: its caption is seen.
POINT cascadeStep(HWND window, const RECT& frame) {
    POINT client = {};
    ClientToScreen(window, &client);
    return {client.x - frame.left + 1, client.y - frame.top + 1};
}

void moveTo(HWND window, LONG x, LONG y, UINT flags) {
    SetWindowPos(window, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | flags);
}

}  // namespace

void PlaceWindow(HWND window, int cascadeIndex) {
    RECT desktop = {};
    GetWindowRect(GetDesktopWindow(), &desktop);
    RECT frame = {};
    GetWindowRect(window, &frame);

    POINT place = placeWithoutCascade(window, desktop);
    if (cascadeIndex != 0) {
        const POINT step = cascadeStep(window, frame);
        place.x += cascadeIndex * step.x;
        place.y += cascadeIndex * step.y;
    }
    const LONG rightmost = desktop.right - (frame.right - frame.left);
    const LONG lowest = desktop.bottom - (frame.bottom - frame.top);
    moveTo(window, std::min(place.x, rightmost), std::min(place.y, lowest), SWP_NOREDRAW);
}

void CentreWindow(HWND window) {
    RECT area = {};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    RECT frame = {};
    GetWindowRect(window, &frame);
    moveTo(window, (area.left + area.right - (frame.right - frame.left)) / 2,
           (area.top + area.bottom - (frame.bottom - frame.top)) / 2, 0);
}

RECT PlaceOfControl(HWND control) {
    RECT place = {};
    GetWindowRect(control, &place);
    MapWindowPoints(nullptr, GetParent(control), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

void MoveControl(HWND control, LONG x, LONG y) {
    moveTo(control, x, y, 0);
}

void GrowWindow(HWND window, LONG height) {
    RECT frame = {};
    GetWindowRect(window, &frame);
    SetWindowPos(window, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top + height,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace tidewell
