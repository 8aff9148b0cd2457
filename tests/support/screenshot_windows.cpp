#include "screenshot.h"

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace {

constexpr WORD kBitsPerPixel = 24;

struct Picture {
    BITMAPINFOHEADER header = {};
    std::vector<char> pixels;
};

// Empty when the screen gives nothing.
Picture takePicture(const RECT& place) {
    Picture picture;
    BITMAPINFOHEADER& header = picture.header;
    header.biSize = sizeof header;
    header.biWidth = place.right - place.left;
    header.biHeight = place.bottom - place.top;
    header.biPlanes = 1;
    header.biBitCount = kBitsPerPixel;
    const auto rowBytes = (static_cast<uint32_t>(header.biWidth) * kBitsPerPixel + 31) / 32 * 4;
    header.biSizeImage = rowBytes * static_cast<uint32_t>(header.biHeight);

    HDC const screen = GetDC(nullptr);
    HDC const memory = CreateCompatibleDC(screen);
    HBITMAP const bitmap = CreateCompatibleBitmap(screen, header.biWidth, header.biHeight);
    HGDIOBJ const previous = SelectObject(memory, bitmap);
    const BOOL copied =
        BitBlt(memory, 0, 0, header.biWidth, header.biHeight, screen, place.left, place.top, SRCCOPY);
    SelectObject(memory, previous);
    std::vector<char> pixels(header.biSizeImage);
    BITMAPINFO format = {header, {}};
    if (copied && GetDIBits(memory, bitmap, 0, static_cast<UINT>(header.biHeight), pixels.data(), &format,
                            DIB_RGB_COLORS) == header.biHeight) {
        picture.pixels = std::move(pixels);
    }
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return picture;
}

}  // namespace

bool saveScreenshot(HWND window, const char* name) {
    RECT place;
    if (!GetWindowRect(window, &place)) return false;
    const Picture picture = takePicture(place);
    if (picture.pixels.empty()) return false;

    BITMAPFILEHEADER header = {};
    header.bfType = 0x4D42;  // "BM"
    header.bfOffBits = sizeof header + sizeof picture.header;
    header.bfSize = header.bfOffBits + picture.header.biSizeImage;
    const char* const folder = std::getenv("TIDEWELL_SCREENSHOTS");
    std::ofstream file(std::string(folder ? folder : ".") + "/" + name + ".BMP", std::ios::binary);
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(&picture.header), sizeof picture.header);
    file.write(picture.pixels.data(), static_cast<std::streamsize>(picture.pixels.size()));
    file.close();
    return !file.fail();
}
