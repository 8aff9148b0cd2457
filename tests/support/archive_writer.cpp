#include "support/archive_writer.h"

#include <algorithm>

uint16_t crcOf(const uint8_t* bytes, size_t count) {
    unsigned crc = 0;
    for (size_t i = 0; i < count; ++i) {
        crc ^= static_cast<unsigned>(bytes[i]) << 8;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc << 1 ^ ((crc & 0x8000) != 0 ? 0x1021U : 0U)) & 0xFFFF;
    }
    return static_cast<uint16_t>(crc);
}

uint32_t loadBig(const void* bytes, size_t offset, size_t size) {
    uint32_t value = 0;
    for (size_t i = 0; i < size; ++i)
        value = value << 8 | static_cast<const uint8_t*>(bytes)[offset + i];
    return value;
}

void storeBig(Bytes& bytes, size_t offset, size_t size, uint32_t value) {
    for (size_t i = 0; i < size; ++i)
        bytes[offset + i] = static_cast<uint8_t>(value >> 8 * (size - 1 - i));
}

void append(Bytes& to, const Bytes& bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
}

void appendBig(Bytes& to, size_t size, size_t value) {
    to.resize(to.size() + size);
    storeBig(to, to.size() - size, size, static_cast<uint32_t>(value));
}

namespace {

void appendPadded(Bytes& to, const Bytes& bytes) {
    append(to, bytes);
    to.resize((to.size() + 127) / 128 * 128);
}

void appendSection(Bytes& to, const Bytes& section) {
    append(to, section);
    appendBig(to, 2, crcOf(section.data(), section.size()));
}

}  // namespace

void setMacBinaryCrc(Bytes& header) {
    storeBig(header, 124, 2, crcOf(header.data(), 124));
}

Bytes macBinaryFile(const MacBinaryFile& archive) {
    const MacFile& file = archive.file;
    Bytes bytes(128);
    bytes[1] = static_cast<uint8_t>(archive.name.size());
    std::copy_n(archive.name.begin(), std::min<size_t>(archive.name.size(), 63), bytes.begin() + 2);
    storeBig(bytes, 65, 4, file.type);
    storeBig(bytes, 69, 4, file.creator);
    bytes[73] = static_cast<uint8_t>(file.flags >> 8);
    bytes[101] = static_cast<uint8_t>(file.flags);
    storeBig(bytes, 75, 2, file.vertical);
    storeBig(bytes, 77, 2, file.horizontal);
    storeBig(bytes, 79, 2, file.window);
    bytes[81] = file.attributes;
    storeBig(bytes, 83, 4, static_cast<uint32_t>(file.data.size()));
    storeBig(bytes, 87, 4, static_cast<uint32_t>(file.resource.size()));
    storeBig(bytes, 120, 2, archive.secondaryHeader);
    bytes[122] = archive.writerVersion;
    bytes[123] = archive.readerVersion;
    if (archive.withCrc) setMacBinaryCrc(bytes);
    appendPadded(bytes, Bytes(archive.secondaryHeader, 0xEE));
    appendPadded(bytes, file.data);
    appendPadded(bytes, file.resource);
    return bytes;
}

Bytes binHexSections(const BinHexFile& archive) {
    const MacFile& file = archive.file;
    Bytes header = {static_cast<uint8_t>(archive.name.size())};
    append(header, archive.name);
    header.push_back(0);
    appendBig(header, 4, file.type);
    appendBig(header, 4, file.creator);
    appendBig(header, 2, file.flags);
    appendBig(header, 4, archive.claimedData.value_or(static_cast<uint32_t>(file.data.size())));
    appendBig(header, 4, archive.claimedResource.value_or(static_cast<uint32_t>(file.resource.size())));
    Bytes sections;
    appendSection(sections, header);
    appendSection(sections, file.data);
    appendSection(sections, file.resource);
    return sections;
}

Bytes binHexRuns(const Bytes& sections) {
    Bytes runs;
    for (size_t i = 0; i < sections.size();) {
        size_t length = 1;
        while (length < 255 && i + length < sections.size() && sections[i + length] == sections[i])
            ++length;
        if (length < 4) length = 1;
        runs.push_back(sections[i]);
        if (sections[i] == kBinHexRun) runs.push_back(0);
        if (length > 1) append(runs, {kBinHexRun, static_cast<uint8_t>(length)});
        i += length;
    }
    return runs;
}

std::string binHexText(const Bytes& runs) {
    std::string text = ":";
    unsigned bits = 0;
    unsigned count = 0;
    const auto put = [&text](unsigned value) {
        if (text.size() % 65 == 64) text += '\r';
        text += kBinHexAlphabet[value & 63];
    };
    for (const uint8_t value : runs) {
        bits = bits << 8 | value;
        for (count += 8; count >= 6; count -= 6)
            put(bits >> (count - 6));
    }
    if (count > 0) put(bits << (6 - count));
    return text + ":\r";
}

Bytes binHexFile(const Bytes& sections) {
    return bytesOf(std::string(kBinHexMarker) + "\r\r" + binHexText(binHexRuns(sections)));
}
