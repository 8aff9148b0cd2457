#include "embedded_resource.h"

extern "C" {
extern const uint8_t tidewell_resources_begin[];
extern const uint8_t tidewell_resources_end[];
}

namespace kernel {

namespace {

using tidewell::Le;

constexpr uint16_t kNumberFollows = 0xFFFF;
constexpr size_t kAlignment = 4;

// How an entry begins whose type and name are numbers. Its data is behind the header, then padding.
struct Entry {
    Le<uint32_t> dataSize;
    Le<uint32_t> headerSize;
    Le<uint16_t> typeMark, type;
    Le<uint16_t> nameMark, name;
};
static_assert(sizeof(Entry) == 16);

}  // namespace

const uint8_t* embeddedResource(uint16_t type, uint32_t name) {
    const uint8_t* at = tidewell_resources_begin;
    while (at < tidewell_resources_end) {
        Entry entry;
        std::memcpy(&entry, at, sizeof entry);
        const bool numbers = entry.typeMark == kNumberFollows && entry.nameMark == kNumberFollows;
        if (numbers && entry.type == type && entry.name == name) return at + entry.headerSize;
        at += entry.headerSize + (entry.dataSize + kAlignment - 1) / kAlignment * kAlignment;
    }
    return nullptr;
}

std::u16string loadText(const uint8_t* bytes, size_t count) {
    std::u16string text(count, u'\0');
    for (char16_t& unit : text) {
        unit = static_cast<char16_t>(loadLittle<uint16_t>(bytes));
        bytes += sizeof unit;
    }
    return text;
}

}  // namespace kernel
