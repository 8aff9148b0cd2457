#include "convert/binhex_header.h"

#include <cstring>

namespace tidewell {

ErrorCode CheckBinHexCrc(BinHexStream& stream, uint16_t crc) {
    Be<uint16_t> stored;
    const ErrorCode error = ReadRunLength(stream, &stored, sizeof stored, nullptr);
    if (error != 0) return error;
    return stored == crc ? 0 : ERROR_CRC;
}

ErrorCode ReadBinHexHeader(BinHexStream& stream, BinHexHeader& header) {
    constexpr uint8_t kLongestName = sizeof header.name - 1;
    uint16_t crc = 0;
    uint8_t length = 0;
    ErrorCode error = ReadRunLength(stream, &length, sizeof length, &crc);
    uint8_t name[255];
    if (error == 0) error = ReadRunLength(stream, name, length, &crc);
    if (error == 0) error = ReadRunLength(stream, &header.fields, sizeof header.fields, &crc);
    if (error == 0) error = CheckBinHexCrc(stream, crc);
    if (error != 0) return error;
    if (length == 0) return ERROR_INVALID_DATA;
    header.name[0] = length < kLongestName ? length : kLongestName;
    std::memcpy(header.name + 1, name, header.name[0]);
    return 0;
}

}  // namespace tidewell
