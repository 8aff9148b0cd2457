// The colors that the values of pixels stand for.
#ifndef TIDEWELL_RESOURCES_COLOR_TABLE_H
#define TIDEWELL_RESOURCES_COLOR_TABLE_H

#include "resources/data_view.h"
#include "resources/picture.h"

namespace tidewell {

struct ColorTable {
    Pixel colors[256];
};

// The Mac's own table for 1 (white, black), 4 or 8 bits a pixel.
const ColorTable& StandardColors(unsigned depth);

// Reads the table at `offset` of a resource; values that it does not have are black. Returns its size in
// bytes, 0 for one that is damaged.
uint64_t ReadColorTable(const DataView& data, uint64_t offset, ColorTable& table);

}  // namespace tidewell

#endif
