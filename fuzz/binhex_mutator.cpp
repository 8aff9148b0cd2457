// Random changes of BinHex files. Most changes of the text break a CRC before anything behind it is reached;
// so, half of the time, what the text stands for is changed, and its CRCs are made to be right.
#include "convert/binhex_stream.h"
#include "convert/binhex_text.h"

#include <algorithm>
#include <cstring>
#include <string>

extern "C" size_t LLVMFuzzerMutate(uint8_t* bytes, size_t size, size_t capacity);

namespace {

constexpr size_t kMostSections = 4096;
constexpr char kMarker[] = "(This file must be converted with BinHex 4.0)\n";
constexpr char kAlphabet[] = "!\"#$%&'()*+,-012345689@ABCDEFGHIJKLMNPQRSTUVXYZ[`abcdefhijklmpqr";
constexpr char kRunMarker = '\x90';

// The expanded sections with their CRCs, as far as they can be read.
std::string sectionsOf(std::string text) {
    auto* const bytes = reinterpret_cast<uint8_t*>(text.data());
    const uint8_t* const start = tidewell::FindBinHexStart(bytes, text.size());
    if (start == nullptr) return "";
    const auto before = static_cast<size_t>(start - bytes);
    size_t produced = 0;
    if (tidewell::DecodeBinHexText(bytes + before, text.size() - before, produced) != 0) return "";
    tidewell::BinHexStream stream = {start, start + produced};
    std::string sections;
    char next = 0;
    while (sections.size() < kMostSections && tidewell::ReadRunLength(stream, &next, 1, nullptr) == 0)
        sections += next;
    return sections;
}

// CRC-16/XMODEM.
uint16_t crcOf(const std::string& bytes, size_t start, size_t length) {
    unsigned crc = 0;
    for (size_t i = start; i < start + length; ++i) {
        crc ^= static_cast<unsigned>(static_cast<uint8_t>(bytes[i])) << 8;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc << 1 ^ ((crc & 0x8000) != 0 ? 0x1021U : 0U)) & 0xFFFF;
    }
    return static_cast<uint16_t>(crc);
}

uint32_t loadBig(const std::string& bytes, size_t offset) {
    uint32_t value = 0;
    for (size_t i = 0; i < 4; ++i)
        value = value << 8 | static_cast<uint8_t>(bytes[offset + i]);
    return value;
}

void storeBig(std::string& bytes, size_t offset, size_t count, uint32_t value) {
    for (size_t i = 0; i < count; ++i)
        bytes[offset + i] = static_cast<char>(value >> (8 * (count - 1 - i)));
}

// With `fit`, the forks share what there is behind the header.
void makeWhole(std::string& sections, bool fit) {
    constexpr size_t kCrc = 2;
    if (sections.empty()) return;
    const size_t lengths = 1 + static_cast<uint8_t>(sections[0]) + 11;
    const size_t header = lengths + 8;
    sections.resize(std::max(sections.size(), header + 3 * kCrc));
    const size_t room = sections.size() - header - 3 * kCrc;
    if (fit) {
        const size_t data = loadBig(sections, lengths) % (room + 1);
        storeBig(sections, lengths, 4, static_cast<uint32_t>(data));
        storeBig(sections, lengths + 4, 4, static_cast<uint32_t>(room - data));
    }
    const uint32_t data = loadBig(sections, lengths);
    const uint32_t resource = loadBig(sections, lengths + 4);
    storeBig(sections, header, kCrc, crcOf(sections, 0, header));
    if (data > room || resource > room - data) return;
    const size_t dataStart = header + kCrc;
    const size_t resourceStart = dataStart + data + kCrc;
    storeBig(sections, dataStart + data, kCrc, crcOf(sections, dataStart, data));
    storeBig(sections, resourceStart + resource, kCrc, crcOf(sections, resourceStart, resource));
}

std::string runsOf(const std::string& bytes) {
    std::string runs;
    for (size_t i = 0; i < bytes.size();) {
        size_t count = 1;
        while (count < 255 && i + count < bytes.size() && bytes[i + count] == bytes[i])
            ++count;
        if (count == 2) count = 1;
        runs += bytes[i];
        if (bytes[i] == kRunMarker) runs += '\0';
        if (count > 2) {
            runs += kRunMarker;
            runs += static_cast<char>(count);
        }
        i += count;
    }
    return runs;
}

std::string textOf(const std::string& bytes) {
    std::string text = std::string(kMarker) + ':';
    unsigned bits = 0;
    int held = 0;
    for (const char c : bytes) {
        bits = bits << 8 | static_cast<uint8_t>(c);
        for (held += 8; held >= 6; held -= 6)
            text += kAlphabet[bits >> (held - 6) & 63];
    }
    if (held > 0) text += kAlphabet[bits << (6 - held) & 63];
    return text + ':';
}

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t capacity, unsigned seed) {
    std::string sections;
    if (seed % 2 != 0) sections = sectionsOf(std::string(bytes, bytes + size));
    if (sections.empty()) return LLVMFuzzerMutate(bytes, size, capacity);
    const size_t length = sections.size();
    sections.resize(std::max(length, kMostSections));
    sections.resize(LLVMFuzzerMutate(reinterpret_cast<uint8_t*>(sections.data()), length, sections.size()));
    makeWhole(sections, seed / 2 % 4 != 0);
    const std::string text = textOf(runsOf(sections));
    if (text.size() > capacity) return LLVMFuzzerMutate(bytes, size, capacity);
    std::memcpy(bytes, text.data(), text.size());
    return text.size();
}
