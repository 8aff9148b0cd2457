#include "resources/draw_picture.h"

namespace tidewell {

namespace {

// A pixel of a bitmap.
using Dot = RGBQUAD;

BYTE mixed(uint8_t colour, uint8_t alpha, BYTE behind) {
    constexpr unsigned kWhole = 255;
    return static_cast<BYTE>((colour * alpha + behind * (kWhole - alpha)) / kWhole);
}

// The picture over one colour.
void blend(const Picture& picture, COLORREF behind, Dot* dots) {
    const Pixel* const pixels = picture.pixels();
    const size_t count = size_t{picture.width} * picture.height;
    for (size_t i = 0; i < count; ++i) {
        const Pixel& pixel = pixels[i];
        dots[i] = {mixed(pixel.blue, pixel.alpha, GetBValue(behind)),
                   mixed(pixel.green, pixel.alpha, GetGValue(behind)),
                   mixed(pixel.red, pixel.alpha, GetRValue(behind)),
                   {}};
    }
}

}  // namespace

void DrawPicture(const Picture& picture, const DRAWITEMSTRUCT& control) {
    FillRect(control.hDC, &control.rcItem, GetSysColorBrush(COLOR_3DFACE));
    if (!picture) return;
    const auto width = static_cast<int>(picture.width);
    const auto height = static_cast<int>(picture.height);
    const PageBuffer dots = PageBuffer::allocate(sizeof(Dot) * picture.width * picture.height);
    if (!dots) return;
    blend(picture, GetSysColor(COLOR_3DFACE), reinterpret_cast<Dot*>(dots.data()));
    BITMAPINFO bitmap = {};
    bitmap.bmiHeader.biSize = sizeof bitmap.bmiHeader;
    bitmap.bmiHeader.biWidth = width;
    bitmap.bmiHeader.biHeight = -height;  // rows from the top
    bitmap.bmiHeader.biPlanes = 1;
    bitmap.bmiHeader.biBitCount = 32;
    // A screen of 256 colours has more than the system's own only by a palette; others have no use for it.
    HPALETTE const palette = CreateHalftonePalette(control.hDC);
    HPALETTE const previous = SelectPalette(control.hDC, palette, FALSE);
    RealizePalette(control.hDC);
    StretchDIBits(control.hDC, 0, 0, width, height, 0, 0, width, height, dots.data(), &bitmap, DIB_RGB_COLORS,
                  SRCCOPY);
    SelectPalette(control.hDC, previous, FALSE);
    DeleteObject(palette);
}

}  // namespace tidewell
