#include "resources/pixel_rows.h"

namespace tidewell {

namespace {

bool isCovered(const PixelRows& mask, unsigned x, unsigned y) {
    return mask.bytes == nullptr || (x < mask.width && y < mask.height && mask.ValueAt(x, y) != 0);
}

}  // namespace

Picture DrawPixels(const PixelRows& pixels, const ColorTable& table, const PixelRows& mask) {
    if (pixels.width == 0 || pixels.width > kMostPictureSide) return {};
    if (pixels.height == 0 || pixels.height > kMostPictureSide) return {};
    Picture picture = {pixels.width, pixels.height,
                       PageBuffer::allocate(SIZE_T{pixels.width} * pixels.height * sizeof(Pixel))};
    if (!picture) return {};
    Pixel* next = picture.pixels();
    for (unsigned y = 0; y < pixels.height; ++y) {
        for (unsigned x = 0; x < pixels.width; ++x, ++next) {
            if (isCovered(mask, x, y)) *next = table.colors[pixels.ValueAt(x, y)];
        }
    }
    return picture;
}

}  // namespace tidewell
