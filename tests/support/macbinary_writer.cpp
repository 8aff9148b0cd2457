#include "support/macbinary_writer.h"

#include <algorithm>

namespace {

void put(Bytes& to, size_t offset, uint32_t value, int size) {
    for (int i = 0; i < size; ++i)
        to[offset + static_cast<size_t>(i)] = static_cast<uint8_t>(value >> 8 * (size - 1 - i));
}

void appendPadded(Bytes& to, const Bytes& bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
    to.resize((to.size() + 127) / 128 * 128);
}

}  // namespace

void setMacBinaryCrc(Bytes& header) {
    unsigned crc = 0;
    for (size_t i = 0; i < 124; ++i) {
        crc ^= static_cast<unsigned>(header[i]) << 8;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000) != 0 ? (crc << 1 ^ 0x1021) & 0xFFFF : crc << 1;
    }
    put(header, 124, crc, 2);
}

Bytes macBinaryHeader(const MacBinaryFile& file) {
    Bytes header(128);
    header[1] = static_cast<uint8_t>(file.name.size());
    std::copy_n(file.name.begin(), std::min<size_t>(file.name.size(), 63), header.begin() + 2);
    put(header, 65, file.file.type, 4);
    put(header, 69, file.file.creator, 4);
    header[73] = static_cast<uint8_t>(file.file.flags >> 8);
    header[101] = static_cast<uint8_t>(file.file.flags);
    put(header, 75, file.file.vertical, 2);
    put(header, 77, file.file.horizontal, 2);
    put(header, 79, file.file.window, 2);
    header[81] = file.file.attributes;
    put(header, 83, static_cast<uint32_t>(file.file.data.size()), 4);
    put(header, 87, static_cast<uint32_t>(file.file.resource.size()), 4);
    put(header, 120, file.secondaryHeader, 2);
    header[122] = file.writerVersion;
    header[123] = file.readerVersion;
    if (file.withCrc) setMacBinaryCrc(header);
    return header;
}

Bytes macBinaryFile(const MacBinaryFile& file) {
    Bytes bytes = macBinaryHeader(file);
    appendPadded(bytes, Bytes(file.secondaryHeader, 0xEE));
    appendPadded(bytes, file.file.data);
    appendPadded(bytes, file.file.resource);
    return bytes;
}
