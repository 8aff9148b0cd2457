// Pictures with a color table of their own: 'cicn' and 'ppat'.
#ifndef TIDEWELL_RESOURCES_PIXEL_MAP_H
#define TIDEWELL_RESOURCES_PIXEL_MAP_H

#include "resources/data_view.h"
#include "resources/picture.h"

namespace tidewell {

// The data of a 'cicn'. Empty when it is damaged, and without memory.
Picture DecodeColorIcon(const DataView& data);

// The data of a 'ppat'; of one that has no pixels of its own, the black and white pattern that stands in for
// it. Empty likewise.
Picture DecodePixelPattern(const DataView& data);

}  // namespace tidewell

#endif
