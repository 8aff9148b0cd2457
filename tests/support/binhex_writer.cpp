#include "support/binhex_writer.h"

namespace {

// Bit by bit, with the two zero bytes that flush the register.
uint16_t flushedCrc(const Bytes& bytes) {
    unsigned crc = 0;
    const auto shiftIn = [&crc](uint8_t value) {
        for (int bit = 7; bit >= 0; --bit) {
            const bool out = (crc & 0x8000) != 0;
            crc = (crc << 1 | (value >> bit & 1u)) & 0xFFFF;
            if (out) crc ^= 0x1021;
        }
    };
    for (const uint8_t value : bytes)
        shiftIn(value);
    shiftIn(0);
    shiftIn(0);
    return static_cast<uint16_t>(crc);
}

void append(Bytes& to, const Bytes& bytes) {
    to.insert(to.end(), bytes.begin(), bytes.end());
}

void appendNumber(Bytes& to, uint32_t value, int size) {
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        to.push_back(static_cast<uint8_t>(value >> shift));
}

void appendSection(Bytes& to, const Bytes& section) {
    append(to, section);
    appendNumber(to, flushedCrc(section), 2);
}

}  // namespace

Bytes binHexSections(const BinHexFile& file) {
    Bytes header;
    header.push_back(static_cast<uint8_t>(file.name.size()));
    append(header, file.name);
    header.push_back(0);
    append(header, bytesOf(file.type));
    append(header, bytesOf(file.creator));
    appendNumber(header, file.flags, 2);
    appendNumber(header, file.lies ? file.claimedData : static_cast<uint32_t>(file.data.size()), 4);
    appendNumber(header, file.lies ? file.claimedResource : static_cast<uint32_t>(file.resource.size()), 4);
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
        runs.push_back(sections[i]);
        if (sections[i] == 0x90) runs.push_back(0);
        if (length > 3) {
            runs.push_back(0x90);
            runs.push_back(static_cast<uint8_t>(length));
        } else {
            length = 1;
        }
        i += length;
    }
    return runs;
}

std::string binHexText(const Bytes& runs) {
    static constexpr char kAlphabet[] = "!\"#$%&'()*+,-012345689@ABCDEFGHIJKLMNPQRSTUVXYZ[`abcdefhijklmpqr";
    std::string text = ":";
    size_t column = 1;
    const auto put = [&text, &column](unsigned value) {
        if (column++ == 64) {
            text += '\r';
            column = 1;
        }
        text += kAlphabet[value & 63];
    };
    unsigned bits = 0;
    unsigned count = 0;
    for (const uint8_t value : runs) {
        bits = bits << 8 | value;
        for (count += 8; count >= 6; count -= 6)
            put(bits >> (count - 6));
    }
    if (count > 0) put(bits << (6 - count));
    return text + ":\r";
}

Bytes binHexFile(const BinHexFile& file) {
    return bytesOf(std::string(kBinHexMarker) + "\r\r" + binHexText(binHexRuns(binHexSections(file))));
}
