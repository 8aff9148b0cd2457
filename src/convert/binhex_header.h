// The header of a BinHex file: what its stream begins with.
#ifndef TIDEWELL_CONVERT_BINHEX_HEADER_H
#define TIDEWELL_CONVERT_BINHEX_HEADER_H

#include "base/byte_order.h"
#include "convert/binhex_stream.h"

namespace tidewell {

// What follows the name.
struct BinHexFields {
    uint8_t version;
    Be<uint32_t> type;
    Be<uint32_t> creator;
    Be<uint16_t> flags;
    Be<uint32_t> dataLength;      // bytes
    Be<uint32_t> resourceLength;  // bytes
};
static_assert(sizeof(BinHexFields) == 19);

struct BinHexHeader {
    uint8_t name[32];  // length-prefixed; the rest of a longer name is passed over
    BinHexFields fields;
};

// Reads the header and checks its CRC: ERROR_CRC when it is wrong, ERROR_INVALID_DATA for an empty name.
ErrorCode ReadBinHexHeader(BinHexStream& stream, BinHexHeader& header);

// Reads a section's stored CRC: ERROR_CRC when it is not `crc`.
ErrorCode CheckBinHexCrc(BinHexStream& stream, uint16_t crc);

}  // namespace tidewell

#endif
