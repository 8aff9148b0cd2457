// Pictures in resources: icons, cursors and patterns.
#ifndef TIDEWELL_RESOURCES_PICTURE_H
#define TIDEWELL_RESOURCES_PICTURE_H

#include "resources/resource_fork.h"

namespace tidewell {

struct Pixel {
    uint8_t red, green, blue;
    uint8_t alpha;  // 255: it covers what is behind it; 0: it is not there
};

// Rows from the top, pixels from the left, without gaps.
struct Picture {
    unsigned width = 0;
    unsigned height = 0;
    PageBuffer memory = {};

    Pixel* pixels() const { return reinterpret_cast<Pixel*>(memory.data()); }
    explicit operator bool() const { return static_cast<bool>(memory); }
};

// No picture is larger, on either side, in pixels.
constexpr unsigned kMostPictureSide = 1024;

// Whether resources of the type are pictures: 'ICON', 'ICN#', 'icl4', 'icl8', 'ics#', 'ics4', 'ics8', 'cicn',
// 'CURS', 'PAT ', 'ppat'.
bool IsPictureType(const ResourceType& type);

// The picture that `length` bytes of data are. `mask` is the data of the black and white icon of the same
// number, an 'ICN#' for an 'icl4' or 'icl8' and an 'ics#' for an 'ics4' or 'ics8', whose mask is theirs; null
// or too short for a mask: the icon covers all of its square. Other types have no use for it. Empty for data
// that is none, or damaged, and without memory.
Picture DecodePicture(const ResourceType& type, const uint8_t* data, uint32_t length, const uint8_t* mask,
                      uint32_t maskLength);

// Of a resource of the fork, with the mask that the fork has for it; empty, too, when either cannot be read.
Picture ReadPicture(ResourceForkReader& reader, const TypeEntry& type, const ReferenceEntry& reference);

}  // namespace tidewell

#endif
