#include "resource_walk.h"

#include "resources/resource_type.h"

#include <algorithm>
#include <cstring>
#include <string_view>

namespace cli {

namespace {

using tidewell::ReferenceEntry;
using tidewell::ResourceForkReader;
using tidewell::TypeEntry;

constexpr char kDamaged[] = "It is damaged: not all of its resources can be listed.";

// Returns whether all could be read.
bool readReferences(ResourceForkReader& reader, const TypeEntry& type, std::vector<ReferenceEntry>& all) {
    all.clear();
    for (unsigned i = 0; i <= type.lastIndex; ++i) {
        ReferenceEntry reference;
        // Those behind it lie even farther out.
        if (!reader.ReadReferenceEntry(type, static_cast<uint16_t>(i), reference)) return false;
        all.push_back(reference);
    }
    return true;
}

}  // namespace

Failure walkResources(ResourceForkReader& reader, const VisitType& visit) {
    // Entries that overlap could make a fork list billions. The last list begins within 64 KB.
    constexpr size_t kReach = 0xFFFF + 0x10000 * sizeof(ReferenceEntry);
    size_t room = std::min<size_t>(reader.ForkSize(), kReach) / sizeof(ReferenceEntry);
    bool whole = true;
    std::vector<ReferenceEntry> all;
    for (unsigned i = 0; i < reader.TypeCount(); ++i) {
        TypeEntry type;
        if (interrupted()) return {ERROR_CANCELLED, {}};
        if (!reader.ReadTypeEntry(static_cast<uint16_t>(i), type)) return {ERROR_FILE_CORRUPT, kDamaged};
        if (!readReferences(reader, type, all)) whole = false;
        if (all.size() > room) return {ERROR_FILE_CORRUPT, kDamaged};
        room -= all.size();
        if (!visit(type, all)) return {};
    }
    return whole ? Failure{} : Failure{ERROR_FILE_CORRUPT, kDamaged};
}

std::optional<std::string> nameOf(ResourceForkReader& reader, const ReferenceEntry& reference) {
    // Behind the name's NUL the buffer stays as it is, so the last one is the name's, whatever is in it.
    char name[256];
    std::memset(name, ' ', sizeof name);
    if (reader.ReadName(reference, name, sizeof name))
        return std::string(name, std::string_view(name, sizeof name).rfind('\0'));
    return GetLastError() == ERROR_INVALID_DATA ? std::optional<std::string>("") : std::nullopt;
}

std::string descriptionOf(const tidewell::ResourceType& type) {
    char text[256];
    return {text, tidewell::GetTypeDescription(type, text, sizeof text)};
}

}  // namespace cli
