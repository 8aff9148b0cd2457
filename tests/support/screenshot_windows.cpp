#include "modal_windows.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <fstream>
#include <string>

void takeScreenshot(HWND window, const char* name) {
    if (!kHasDisplay) return;
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    // What is painted comes to the screen when the thread finds no message.
    MSG message;
    PeekMessageA(&message, window, WM_APP, WM_APP, PM_NOREMOVE);

    RECT place = {};
    GetWindowRect(window, &place);
    BITMAPINFO format = {};
    BITMAPINFOHEADER& header = format.bmiHeader;
    header.biSize = sizeof header;
    header.biWidth = place.right - place.left;
    header.biHeight = place.bottom - place.top;
    header.biPlanes = 1;
    header.biBitCount = 32;
    header.biSizeImage = static_cast<DWORD>(header.biWidth * header.biHeight * 4);

    HDC const screen = GetDC(nullptr);
    HDC const memory = CreateCompatibleDC(screen);
    void* pixels = nullptr;
    HBITMAP const bitmap = CreateDIBSection(screen, &format, DIB_RGB_COLORS, &pixels, nullptr, 0);
    HGDIOBJ const previous = SelectObject(memory, bitmap);
    CHECK(BitBlt(memory, 0, 0, header.biWidth, header.biHeight, screen, place.left, place.top, SRCCOPY));
    BITMAPFILEHEADER start = {};
    start.bfType = 0x4D42;  // "BM"
    start.bfOffBits = sizeof start + sizeof header;
    start.bfSize = start.bfOffBits + header.biSizeImage;
    const char* const folder = std::getenv("TIDEWELL_SCREENSHOTS");
    std::ofstream file(std::string(folder ? folder : ".") + "/" + name + ".BMP", std::ios::binary);
    file.write(reinterpret_cast<const char*>(&start), sizeof start);
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(static_cast<const char*>(pixels), static_cast<std::streamsize>(header.biSizeImage));
    file.close();
    CHECK_MESSAGE(!file.fail(), name);
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}
