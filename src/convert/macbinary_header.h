// The header of a MacBinary file.
#ifndef TIDEWELL_CONVERT_MACBINARY_HEADER_H
#define TIDEWELL_CONVERT_MACBINARY_HEADER_H

#include "base/byte_order.h"
#include "macfile/fork_paths.h"

#include <windows.h>

#include <bit>
#include <cstdint>

namespace tidewell {

// Everything in a MacBinary file starts at a multiple of this many bytes; the header fills the first.
constexpr DWORD kMacBinaryBlock = 128;

constexpr uint64_t MacBinaryRoundedUp(uint64_t length) {
    return (length + kMacBinaryBlock - 1) / kMacBinaryBlock * kMacBinaryBlock;
}

// What pads a fork to the next block; nothing when it fills its last one.
constexpr DWORD MacBinaryPadding(DWORD forkLength) {
    return (kMacBinaryBlock - forkLength % kMacBinaryBlock) % kMacBinaryBlock;
}

// The 126 bytes of the header before its two reserved bytes. Numbers up to offset 112 are in `order`, those
// after it big-endian always.
template <ByteOrder order>
struct MacBinaryHeaderIn {
    uint8_t oldVersion;
    uint8_t nameLength;
    uint8_t name[63];  // Mac character set, zero-filled
    OrderedNumber<uint32_t, order> type;
    OrderedNumber<uint32_t, order> creator;
    uint8_t flagsHigh;
    uint8_t zero74;
    OrderedNumber<uint16_t, order> vertical;
    OrderedNumber<uint16_t, order> horizontal;
    OrderedNumber<uint16_t, order> window;
    uint8_t protectedFlag;
    uint8_t zero82;
    OrderedNumber<uint32_t, order> dataLength;      // bytes
    OrderedNumber<uint32_t, order> resourceLength;  // bytes
    OrderedNumber<uint32_t, order> creationDate;
    OrderedNumber<uint32_t, order> modificationDate;
    OrderedNumber<uint16_t, order> commentLength;
    uint8_t flagsLow;
    uint8_t unused102[14];
    Be<uint32_t> packedLength;
    Be<uint16_t> secondaryHeaderLength;  // bytes
    uint8_t writerVersion;
    uint8_t readerVersion;
    Be<uint16_t> crc;  // of everything before it, in file order
};

// As it stands in the file, and as it is worked with: numbers in host order.
using MacBinaryFileHeader = MacBinaryHeaderIn<ByteOrder::big>;
using MacBinaryHeader = MacBinaryHeaderIn<ByteOrder::little>;
static_assert(std::endian::native == std::endian::little, "MacBinaryHeader holds numbers in host order");

static_assert(sizeof(MacBinaryHeader) == 126 && sizeof(MacBinaryFileHeader) == 126);
static_assert(offsetof(MacBinaryHeader, type) == 65 && offsetof(MacBinaryHeader, flagsHigh) == 73);
static_assert(offsetof(MacBinaryHeader, vertical) == 75 && offsetof(MacBinaryHeader, protectedFlag) == 81);
static_assert(offsetof(MacBinaryHeader, dataLength) == 83 && offsetof(MacBinaryHeader, resourceLength) == 87);
static_assert(offsetof(MacBinaryHeader, commentLength) == 99 && offsetof(MacBinaryHeader, flagsLow) == 101);
static_assert(offsetof(MacBinaryHeader, packedLength) == 116 && offsetof(MacBinaryHeader, crc) == 124);
static_assert(offsetof(MacBinaryHeader, secondaryHeaderLength) == 120);

// Where the forks begin, in bytes of the file. In 64 bits: a hostile header's sums wrap 32.
struct MacBinaryLayout {
    explicit MacBinaryLayout(const MacBinaryHeader& header)
        : dataOffset(MacBinaryRoundedUp(uint64_t{header.secondaryHeaderLength} + kMacBinaryBlock)),
          resourceOffset(dataOffset + MacBinaryRoundedUp(header.dataLength)) {}

    uint64_t dataOffset;
    uint64_t resourceOffset;
};

// The fields that SwapFields turns over between the two.
inline constexpr uint8_t kMacBinaryFieldWidths[] = {1, 64, 4, 4, 1, 1, 2, 2, 2, 1, 1, 4,
                                                    4, 4,  4, 2, 1, 4, 2, 1, 1, 2, 0};

constexpr unsigned MacBinarySwappedBytes() {
    unsigned sum = 0;
    for (const uint8_t width : kMacBinaryFieldWidths)
        sum += width;
    return sum;
}
static_assert(MacBinarySwappedBytes() == 112);

// Fills a header in host order from the Finder information of the file with these paths, its name (which
// serves as the Mac name where the volume keeps none) and the sizes of the open forks; `resourceFile` may be
// INVALID_HANDLE_VALUE. Returns 1, or 0 with the last error: ERROR_INVALID_PARAMETER for Finder information
// of no known kind, ERROR_FILE_TOO_LARGE for a fork longer than the header can tell, else the system's.
BOOL BuildMacBinaryHeader(const ForkPaths& paths, HANDLE dataFile, HANDLE resourceFile,
                          MacBinaryHeader* header);

// Writes the header with its CRC at the start of `file`, leaving the position after its 126 bytes. Returns 1,
// or 0 with the last error, ERROR_HANDLE_DISK_FULL for a short write. The header is in host order again in
// either case.
BOOL WriteMacBinaryHeader(HANDLE file, MacBinaryHeader* header);

// Reads and checks the header at the start of `file`, and leaves it in host order. Returns 1, or 0 with the
// last error: ERROR_CRC when its CRC is neither right nor 0 (as MacBinary I leaves it), ERROR_INVALID_DATA
// when its name's length is not 1 to 63 or it needs a version of 1 to 128, ERROR_HANDLE_EOF when the file is
// shorter than it says; else the system's.
BOOL ReadMacBinaryHeader(HANDLE file, MacBinaryHeader* header);

}  // namespace tidewell

#endif
