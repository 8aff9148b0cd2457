// The header of an AppleDouble file, version 2: where its entries are. All numbers are big-endian.
//
//   0  magic number 0x00051607     24  number of entries
//   4  version 0x00020000          26  for each entry: identifier, offset in the file, length; 32 bits each
//   8  16 bytes without meaning
#ifndef TIDEWELL_PLATFORM_PC_APPLE_DOUBLE_APPLE_DOUBLE_HEADER_H
#define TIDEWELL_PLATFORM_PC_APPLE_DOUBLE_APPLE_DOUBLE_HEADER_H

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

}  // namespace pc

#endif
