// Bytes as text: their offsets, their hexadecimal digits, and themselves where they are ASCII.
#ifndef TIDEWELL_RESOURCES_HEX_DUMP_H
#define TIDEWELL_RESOURCES_HEX_DUMP_H

#include "base/owned.h"

#include <cstdint>

namespace tidewell {

// The room that the dump of so many bytes takes with its NUL, in bytes.
constexpr uint64_t HexDumpCapacity(uint64_t length) {
    return length / 16 * 61 + 62;
}

// Writes the dump with a NUL to `output`, of HexDumpCapacity(length) bytes. Returns the text's length. Lines
// of 16 bytes end with a carriage return and a line feed, but for the last one. Offsets have four digits,
// beyond which they begin again.
size_t HexDump(char* output, const uint8_t* data, uint32_t length);

// The dump in memory of its own; its length goes to `textLength`, which may be null. Empty with
// ERROR_NOT_ENOUGH_MEMORY.
PageBuffer HexDumpAlloc(const uint8_t* data, uint32_t length, size_t* textLength);

}  // namespace tidewell

#endif
