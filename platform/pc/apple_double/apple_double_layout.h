// The header of an AppleDouble file, version 2: where its entries are, and where everything goes
// when the file is laid out anew. All numbers are big-endian.
//
//   0  magic number 0x00051607     24  number of entries
//   4  version 0x00020000          26  for each entry: identifier, offset in the file, length; 32 bits each
//   8  16 bytes without meaning
#ifndef TIDEWELL_PLATFORM_PC_APPLE_DOUBLE_APPLE_DOUBLE_LAYOUT_H
#define TIDEWELL_PLATFORM_PC_APPLE_DOUBLE_APPLE_DOUBLE_LAYOUT_H

#include "pc/file.h"

#include <array>
#include <cstdint>
#include <vector>

namespace pc {

enum AppleDoubleId : uint32_t {
    kResourceFork = 2,
    kRealName = 3,
    kFileDates = 8,
    kFinderInfo = 9,   // FInfo (folders: DInfo) and FXInfo, 32 bytes; macOS' extended attributes may follow
    kMacFileInfo = 10  // 32 bits of attributes; bit 0: locked, bit 1: protected
};

struct AppleDoubleEntry {
    uint32_t id;
    uint32_t offset;
    uint32_t length;

    uint64_t end() const { return uint64_t{offset} + length; }
};

struct AppleDoubleHeader {
    static constexpr size_t kFixedSize = 26;
    static constexpr size_t kEntrySize = 12;

    std::array<uint8_t, 16> filler = {};
    std::vector<AppleDoubleEntry> entries;

    size_t size() const { return kFixedSize + entries.size() * kEntrySize; }
    // Where the length of entry `index` is in the file; its offset is the four bytes before.
    static uint64_t lengthField(size_t index) { return kFixedSize + index * kEntrySize + 8; }

    AppleDoubleEntry* find(uint32_t id);
    const AppleDoubleEntry* find(uint32_t id) const;
    std::vector<uint8_t> bytes() const;
};

// The number of entries; 1392 when the fixed part is none of an AppleDouble file.
Error readAppleDoubleCount(const std::array<uint8_t, AppleDoubleHeader::kFixedSize>& fixed, size_t& count);

// `bytes` is the whole header of a file of `fileSize` bytes. 1392 when an entry reaches into the header, over
// the end of the file or into another, or when two have the same identifier.
Error parseAppleDouble(const std::vector<uint8_t>& bytes, uint64_t fileSize, AppleDoubleHeader& header);

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
// The resource fork stays last where it was. ERROR_FILE_TOO_LARGE: an entry would begin behind 4 GB.
Error planAppleDouble(const AppleDoubleSource& source, const std::vector<AppleDoubleEdit>& edits,
                      const ResourcePlan& resource, AppleDoubleLayout& layout);

}  // namespace pc

#endif
