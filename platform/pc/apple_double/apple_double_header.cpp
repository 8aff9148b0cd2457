#include "pc/apple_double/apple_double_layout.h"

#include "base/byte_order.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <set>

namespace pc {

namespace {

constexpr uint32_t kMagic = 0x00051607;
constexpr uint32_t kVersion = 0x00020000;

struct RawHeader {
    tidewell::Be<uint32_t> magic;
    tidewell::Be<uint32_t> version;
    std::array<uint8_t, 16> filler;
    tidewell::Be<uint16_t> count;
};
static_assert(sizeof(RawHeader) == AppleDoubleHeader::kFixedSize);

// Programs write a handful. Each takes memory and is compared with all others.
constexpr size_t kMostEntries = 1000;

struct RawEntry {
    tidewell::Be<uint32_t> id, offset, length;
};
static_assert(sizeof(RawEntry) == AppleDoubleHeader::kEntrySize);

bool identifiersDiffer(const std::vector<AppleDoubleEntry>& entries) {
    std::set<uint32_t> identifiers;
    return std::all_of(entries.begin(), entries.end(),
                       [&](const AppleDoubleEntry& entry) { return identifiers.insert(entry.id).second; });
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
    const RawHeader raw{kMagic, kVersion, filler, static_cast<uint16_t>(entries.size())};
    std::memcpy(bytes.data(), &raw, sizeof raw);
    uint8_t* to = bytes.data() + kFixedSize;
    for (const AppleDoubleEntry& entry : entries) {
        const RawEntry rawEntry{entry.id, entry.offset, entry.length};
        std::memcpy(to, &rawEntry, sizeof rawEntry);
        to += kEntrySize;
    }
    return bytes;
}

Error readAppleDoubleCount(const std::array<uint8_t, AppleDoubleHeader::kFixedSize>& fixed, size_t& count) {
    RawHeader raw;
    std::memcpy(&raw, fixed.data(), sizeof raw);
    if (raw.magic != kMagic || raw.version != kVersion) return ERROR_FILE_CORRUPT;
    count = raw.count;
    return count <= kMostEntries ? 0 : ERROR_FILE_CORRUPT;
}

Error parseAppleDouble(const std::vector<uint8_t>& bytes, uint64_t fileSize, AppleDoubleHeader& header) {
    AppleDoubleHeader parsed;
    RawHeader raw;
    std::memcpy(&raw, bytes.data(), sizeof raw);
    parsed.filler = raw.filler;
    for (size_t at = sizeof raw; at < bytes.size(); at += sizeof(RawEntry)) {
        RawEntry entry;
        std::memcpy(&entry, bytes.data() + at, sizeof entry);
        parsed.entries.push_back({entry.id, entry.offset, entry.length});
    }
    const bool sound =
        identifiersDiffer(parsed.entries) && rangesAreSound(parsed.entries, bytes.size(), fileSize);
    if (!sound) return ERROR_FILE_CORRUPT;
    header = std::move(parsed);
    return 0;
}

}  // namespace pc
