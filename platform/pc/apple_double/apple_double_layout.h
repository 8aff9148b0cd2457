// Where everything goes when an AppleDouble file is laid out anew.
#ifndef TIDEWELL_PLATFORM_PC_APPLE_DOUBLE_APPLE_DOUBLE_LAYOUT_H
#define TIDEWELL_PLATFORM_PC_APPLE_DOUBLE_APPLE_DOUBLE_LAYOUT_H

#include "pc/apple_double/apple_double_header.h"

#include <cstdint>
#include <vector>

namespace pc {

// Bytes written into an entry. An entry that is missing or shorter is made `leastLength` long, or as long as
// the bytes need, its other new bytes being 0.
struct AppleDoubleEdit {
    uint32_t id;
    uint32_t offset;
    std::vector<uint8_t> bytes;
    uint32_t leastLength;
};

struct ResourcePlan {
    enum Kind { keep, makeLast, drop } kind = keep;
    uint32_t longest = UINT32_MAX;  // makeLast: bytes of it that remain
};

// A file to lay out anew. All zero and empty when there is none yet.
struct AppleDoubleSource {
    AppleDoubleHeader header;
    uint64_t fileSize = 0;
    // The first byte behind the header that matters: what lies between is 0 and may take more of the header.
    uint64_t bodyStart = 0;
};

struct AppleDoubleLayout {
    struct Copy {
        uint64_t from, to, length;
    };
    AppleDoubleHeader header;
    std::vector<Copy> copies;  // from the old file, ascending in the new
    uint64_t fileSize = 0;     // what nothing is copied or edited into is 0
};

// Whatever the edits and the plan do not name stays as it is, bytes of no entry too, and does not move unless
// a longer header needs its place: other programs find macOS' extended attributes only where they were.
// The resource fork stays last where it was. 223: an entry would begin behind 4 GB.
Error planAppleDouble(const AppleDoubleSource& source, const std::vector<AppleDoubleEdit>& edits,
                      const ResourcePlan& resource, AppleDoubleLayout& layout);

}  // namespace pc

#endif
