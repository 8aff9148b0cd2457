// Rows of pixels as the Mac keeps them, and what is drawn from them.
#ifndef TIDEWELL_RESOURCES_PIXEL_ROWS_H
#define TIDEWELL_RESOURCES_PIXEL_ROWS_H

#include "resources/color_table.h"

namespace tidewell {

// Values of 1, 2, 4 or 8 bits, the leftmost in the highest bits of a byte.
struct PixelRows {
    const uint8_t* bytes = nullptr;  // of all rows; null: there are none
    unsigned rowBytes = 0;           // from one row to the next
    unsigned width = 0;
    unsigned height = 0;
    unsigned depth = 1;  // bits

    unsigned ValueAt(unsigned x, unsigned y) const {
        const unsigned bit = x * depth;
        const unsigned byte = bytes[size_t{y} * rowBytes + bit / 8];
        return byte >> (8 - depth - bit % 8) & ((1u << depth) - 1);
    }
};

// The pixels in their colors where the mask, which begins at the same corner, has a 1; all of them without a
// mask. Empty for no pixels or more than a picture may have, and without memory.
Picture DrawPixels(const PixelRows& pixels, const ColorTable& table, const PixelRows& mask);

}  // namespace tidewell

#endif
