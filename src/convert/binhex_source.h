// An open BinHex file, and its forks one after the other.
#ifndef TIDEWELL_CONVERT_BINHEX_SOURCE_H
#define TIDEWELL_CONVERT_BINHEX_SOURCE_H

#include "convert/binhex_header.h"

namespace tidewell {

// It stays open, so that nothing can be written over it, and nothing in it changes between the two times that
// it is read.
struct BinHexSource {
    OwnedFile file;
    uint64_t size = 0;  // bytes
    PageBuffer memory;

    BinHexMemory& blocks() const { return *reinterpret_cast<BinHexMemory*>(memory.data()); }
};

// The system's error; ERROR_NOT_ENOUGH_MEMORY without memory.
ErrorCode OpenBinHexSource(const char* path, BinHexSource& source);

// Goes to where the text begins that the scan has found, and reads the header: what is behind it in the
// stream is the data fork. The extent's error; else those of ReadBinHexHeader.
ErrorCode OpenBinHexForks(const BinHexSource& source, const BinHexExtent& extent, BinHexStream& stream,
                          BinHexHeader& header);

// Expands the next `length` bytes, a fork, into `block`, of kBinHexBlock bytes, time and again, and has
// `take(count, last)` do with its `count` bytes what it will; then checks the fork's CRC. The error of
// `take`, of the stream or of its CRC.
template <typename Take>
ErrorCode ReadBinHexFork(BinHexStream& stream, uint8_t* block, DWORD length, Take take) {
    uint16_t crc = 0;
    DWORD count = 0;
    do {
        count = length < kBinHexBlock ? length : kBinHexBlock;
        ErrorCode error = ReadRunLength(stream, block, count, &crc);
        if (error != 0) return error;
        length -= count;
        error = take(count, length == 0);
        if (error != 0) return error;
    } while (length != 0);
    return CheckBinHexCrc(stream, crc);
}

}  // namespace tidewell

#endif
