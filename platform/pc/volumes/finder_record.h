// The record that reading the Finder-information pseudo-file of a Mac volume gives.
#ifndef TIDEWELL_PLATFORM_PC_VOLUMES_FINDER_RECORD_H
#define TIDEWELL_PLATFORM_PC_VOLUMES_FINDER_RECORD_H

#include "base/byte_order.h"

#include <cstddef>
#include <cstdint>

namespace pc {

// Numbers are little-endian, as Windows has them, but for those within FInfo. A writer may change `info` and
// `attributes`.
struct FinderRecord {
    uint8_t unused0[513];
    tidewell::Le<uint32_t> filesOnVolume;    // the root folder
    tidewell::Le<uint32_t> foldersOnVolume;  // the root folder
    uint8_t attributes;
    uint8_t unused1;
    uint8_t info[16];  // FInfo as the Mac has it: type, creator, flags, position, window
    uint8_t unused2[16];
    union {
        tidewell::Le<uint32_t> dataLength;  // files; lengths above 4 GB - 1 show as that
        struct {
            uint8_t root;  // 1: the volume's root folder
            tidewell::Le<uint32_t> items;
        } folder;
    };
    uint8_t unused3[11];
    tidewell::Le<uint32_t> resourceLength;  // files
    uint8_t unused4[32];
    uint8_t macNameLength;
    char macName[31];      // Mac Roman
    uint8_t unused5[516];  // the name in UTF-16, which nobody asks for
};
static_assert(sizeof(FinderRecord) == 1155 && offsetof(FinderRecord, info) == 523);
static_assert(offsetof(FinderRecord, resourceLength) == 571 && offsetof(FinderRecord, macNameLength) == 607);

}  // namespace pc

#endif
