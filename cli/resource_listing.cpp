#include "resource_listing.h"

#include "mac_text.h"
#include "resource_walk.h"

#include <algorithm>
#include <iterator>

namespace cli {

namespace {

using tidewell::ReferenceEntry;
using tidewell::ResourceForkReader;
using tidewell::TypeEntry;

// Of the names' column. Longer names push what is behind them out of its own.
constexpr size_t kNarrowest = 16;
constexpr size_t kWidest = 32;

std::string rightAligned(const std::string& text, size_t width) {
    return std::string(width - std::min(width, text.size()), ' ') + text;
}

std::string attributesText(uint8_t attributes) {
    const struct {
        uint8_t bit;
        const char* name;
    } names[] = {{tidewell::kResourceSystemHeap, "system heap"},
                 {tidewell::kResourcePurgeable, "purgeable"},
                 {tidewell::kResourceLocked, "locked"},
                 {tidewell::kResourceProtected, "protected"},
                 {tidewell::kResourcePreload, "preload"}};
    std::string text;
    for (const auto& [bit, name] : names) {
        if ((attributes & bit) != 0) text += (text.empty() ? "  " : ", ") + std::string(name);
    }
    return text;
}

std::string sizeText(ResourceForkReader& reader, const ReferenceEntry& reference) {
    constexpr size_t kWidth = 10;
    uint32_t size = 0;
    if (!reader.ReadDataLength(reference, size)) return rightAligned("unreadable", kWidth + 6);
    return rightAligned(std::to_string(size), kWidth) + (size == 1 ? " byte " : " bytes");
}

std::string hexOf(const tidewell::ResourceType& type) {
    constexpr char kDigits[] = "0123456789abcdef";
    std::string hex;
    for (const uint8_t byte : type.bytes)
        hex += {kDigits[byte >> 4], kDigits[byte & 15]};
    return hex;
}

// As --type takes it.
std::string codeOf(const tidewell::ResourceType& type) {
    const bool shown = std::all_of(std::begin(type.bytes), std::end(type.bytes),
                                   [](uint8_t byte) { return byte >= ' ' && byte <= '~'; });
    return shown ? std::string(std::begin(type.bytes), std::end(type.bytes)) : "0x" + hexOf(type);
}

std::string textOfType(ResourceForkReader& reader, const TypeEntry& type,
                       const std::vector<ReferenceEntry>& all) {
    constexpr size_t kIdWidth = 8;
    std::string text = codeOf(type.type) + "  " + withoutControls(descriptionOf(type.type)) + "\n";
    std::vector<std::string> names;
    size_t width = kNarrowest;
    for (const ReferenceEntry& reference : all) {
        names.push_back(nameOf(reader, reference).value_or(""));
        // Each of the Mac's characters takes a byte.
        width = std::max(width, std::min(names.back().size(), kWidest));
    }
    for (size_t i = 0; i < all.size(); ++i) {
        const std::string gap(width - std::min(width, names[i].size()), ' ');
        text += rightAligned(std::to_string(all[i].id()), kIdWidth) + "  " + textOfMac(names[i]) + gap +
                sizeText(reader, all[i]) + attributesText(all[i].attributes) + "\n";
    }
    return text;
}

std::string jsonOfResource(ResourceForkReader& reader, const ReferenceEntry& reference) {
    const std::optional<std::string> name = nameOf(reader, reference);
    uint32_t size = 0;
    const bool sized = reader.ReadDataLength(reference, size) != FALSE;
    return "\"id\": " + std::to_string(reference.id()) + ", \"name\": " + (name ? jsonOfMac(*name) : "null") +
           ", \"size\": " + (sized ? std::to_string(size) : "null") +
           ", \"attributes\": " + std::to_string(reference.attributes) + "}";
}

// What all resources of the type begin with.
std::string jsonOfType(const tidewell::ResourceType& type) {
    const std::string mac(reinterpret_cast<const char*>(type.bytes), sizeof type.bytes);
    return "{\"type\": " + jsonOfMac(mac) + ", \"type_hex\": \"" + hexOf(type) +
           "\", \"description\": " + jsonOfText(descriptionOf(type)) + ", ";
}

}  // namespace

Failure listAsText(ResourceForkReader& reader, BufferedOutput& output) {
    return walkResources(reader, [&](const TypeEntry& type, const std::vector<ReferenceEntry>& all) {
        return output.add(textOfType(reader, type, all));
    });
}

Failure listAsJson(ResourceForkReader& reader, BufferedOutput& output) {
    const char* separator = "[\n";
    Failure failure =
        walkResources(reader, [&](const TypeEntry& type, const std::vector<ReferenceEntry>& all) {
            const std::string start = jsonOfType(type.type);
            for (const ReferenceEntry& reference : all) {
                if (!output.add(separator + start + jsonOfResource(reader, reference))) return false;
                separator = ",\n";
            }
            return true;
        });
    output.add(*separator == '[' ? "[]\n" : "\n]\n");
    return failure;
}

}  // namespace cli
