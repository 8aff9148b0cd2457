#include "apple_double_header.h"

#include "big_endian.h"
#include "win32_error.h"

#include <algorithm>

namespace pc {

namespace {

constexpr uint32_t kMagic = 0x00051607;
constexpr uint32_t kVersion = 0x00020000;
constexpr size_t kFillerOffset = 8;
constexpr size_t kCountOffset = 24;

bool identifiersDiffer(std::vector<AppleDoubleEntry> entries) {
    const auto lessId = [](const AppleDoubleEntry& a, const AppleDoubleEntry& b) { return a.id < b.id; };
    const auto sameId = [](const AppleDoubleEntry& a, const AppleDoubleEntry& b) { return a.id == b.id; };
    std::sort(entries.begin(), entries.end(), lessId);
    return std::adjacent_find(entries.begin(), entries.end(), sameId) == entries.end();
}

// Entries without bytes are nowhere, and overlap nothing.
bool rangesAreSound(std::vector<AppleDoubleEntry> entries, uint64_t headerSize, uint64_t fileSize) {
    const auto lessOffset = [](const AppleDoubleEntry& a, const AppleDoubleEntry& b) {
        return a.offset < b.offset;
    };
    std::sort(entries.begin(), entries.end(), lessOffset);
    uint64_t free = headerSize;
    for (const AppleDoubleEntry& entry : entries) {
        if (entry.length == 0) continue;
        if (entry.offset > fileSize || entry.length > fileSize - entry.offset) return false;
        if (entry.offset < free) return false;
        free = entry.end();
    }
    return true;
}

}  // namespace

AppleDoubleEntry* AppleDoubleHeader::find(uint32_t id) {
    const auto found =
        std::find_if(entries.begin(), entries.end(), [=](const AppleDoubleEntry& e) { return e.id == id; });
    return found == entries.end() ? nullptr : &*found;
}

const AppleDoubleEntry* AppleDoubleHeader::find(uint32_t id) const {
    return const_cast<AppleDoubleHeader*>(this)->find(id);
}

std::vector<uint8_t> AppleDoubleHeader::bytes() const {
    std::vector<uint8_t> bytes(size());
    storeBig32(bytes.data(), kMagic);
    storeBig32(bytes.data() + 4, kVersion);
    std::copy(filler.begin(), filler.end(), bytes.begin() + kFillerOffset);
    storeBig16(bytes.data() + kCountOffset, static_cast<uint16_t>(entries.size()));
    uint8_t* to = bytes.data() + kFixedSize;
    for (const AppleDoubleEntry& entry : entries) {
        storeBig32(to, entry.id);
        storeBig32(to + 4, entry.offset);
        storeBig32(to + 8, entry.length);
        to += kEntrySize;
    }
    return bytes;
}

Error readAppleDoubleCount(const std::array<uint8_t, AppleDoubleHeader::kFixedSize>& fixed, size_t& count) {
    if (loadBig32(fixed.data()) != kMagic || loadBig32(fixed.data() + 4) != kVersion) return kFileCorrupt;
    count = loadBig16(fixed.data() + kCountOffset);
    return 0;
}

Error parseAppleDouble(const std::vector<uint8_t>& bytes, uint64_t fileSize, AppleDoubleHeader& header) {
    AppleDoubleHeader parsed;
    std::copy_n(bytes.begin() + kFillerOffset, parsed.filler.size(), parsed.filler.begin());
    for (size_t at = AppleDoubleHeader::kFixedSize; at < bytes.size(); at += AppleDoubleHeader::kEntrySize) {
        const uint8_t* const from = bytes.data() + at;
        parsed.entries.push_back({loadBig32(from), loadBig32(from + 4), loadBig32(from + 8)});
    }
    const bool sound =
        identifiersDiffer(parsed.entries) && rangesAreSound(parsed.entries, bytes.size(), fileSize);
    if (!sound) return kFileCorrupt;
    header = std::move(parsed);
    return 0;
}

}  // namespace pc
