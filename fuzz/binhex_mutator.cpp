// Random changes of BinHex files. Most changes of the text break a CRC before anything behind it is reached;
// so, half of the time, what the text stands for is changed, and its CRCs are made to be right.
#include "support/binhex_reference.h"

#include <algorithm>

extern "C" size_t LLVMFuzzerMutate(uint8_t* bytes, size_t size, size_t capacity);

namespace {

constexpr size_t kMostSections = 4096;

// The expanded sections with their CRCs, as far as they can be read.
Bytes sectionsOf(const Bytes& file) {
    uint32_t error = 0;
    const Bytes decoded = decodedBinHex(file, error);
    return error == 0 ? expandedBinHex(decoded, kMostSections, error) : Bytes();
}

void storeCrc(Bytes& sections, size_t start, size_t length) {
    storeBig(sections, start + length, 2, crcOf(&sections[start], length));
}

// With `fit`, the forks share what there is behind the header.
void makeWhole(Bytes& sections, bool fit) {
    constexpr size_t kCrc = 2;
    if (sections.empty()) return;
    const size_t lengths = size_t{1} + sections[0] + 11;
    const size_t header = lengths + 8;
    sections.resize(std::max(sections.size(), header + 3 * kCrc));
    const size_t room = sections.size() - header - 3 * kCrc;
    if (fit) {
        const size_t data = loadBig(sections.data(), lengths) % (room + 1);
        storeBig(sections, lengths, 4, static_cast<uint32_t>(data));
        storeBig(sections, lengths + 4, 4, static_cast<uint32_t>(room - data));
    }
    const uint32_t data = loadBig(sections.data(), lengths);
    const uint32_t resource = loadBig(sections.data(), lengths + 4);
    storeCrc(sections, 0, header);
    if (data > room || resource > room - data) return;
    storeCrc(sections, header + kCrc, data);
    storeCrc(sections, header + kCrc + data + kCrc, resource);
}

}  // namespace

extern "C" size_t LLVMFuzzerCustomMutator(uint8_t* bytes, size_t size, size_t capacity, unsigned seed) {
    Bytes sections;
    if (seed % 2 != 0) sections = sectionsOf(Bytes(bytes, bytes + size));
    if (sections.empty()) return LLVMFuzzerMutate(bytes, size, capacity);
    const size_t length = sections.size();
    sections.resize(std::max(length, kMostSections));
    sections.resize(LLVMFuzzerMutate(sections.data(), length, sections.size()));
    makeWhole(sections, seed / 2 % 4 != 0);
    const Bytes file = binHexFile(sections);
    if (file.size() > capacity) return LLVMFuzzerMutate(bytes, size, capacity);
    std::copy(file.begin(), file.end(), bytes);
    return file.size();
}
