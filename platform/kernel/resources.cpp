#include "resources.h"

#include <algorithm>

namespace kernel {

namespace {

constexpr uint16_t kStringTable = 6;  // RT_STRING
constexpr uint32_t kStringsPerBlock = 16;
constexpr uint16_t kNumberFollows = 0xFFFF;
constexpr size_t kAlignment = 4;

// Reads little-endian numbers one after the other; past the end it gives nothing and stays there.
class Reader {
  public:
    explicit Reader(std::span<const uint8_t> bytes) : bytes_(bytes) {}

    size_t left() const { return bytes_.size(); }

    std::optional<std::span<const uint8_t>> take(size_t count) {
        if (count > bytes_.size()) return std::nullopt;
        const std::span<const uint8_t> taken = bytes_.first(count);
        bytes_ = bytes_.subspan(count);
        return taken;
    }

    std::optional<uint16_t> take16() {
        const auto taken = take(2);
        if (!taken) return std::nullopt;
        return static_cast<uint16_t>((*taken)[0] | (*taken)[1] << 8);
    }

    std::optional<uint32_t> take32() {
        const auto low = take16();
        const auto high = take16();
        if (!low || !high) return std::nullopt;
        return static_cast<uint32_t>(*low | static_cast<uint32_t>(*high) << 16);
    }

  private:
    std::span<const uint8_t> bytes_;
};

// A type or a name: a number, or a text, which is only passed over.
struct Identifier {
    bool isNumber = false;
    uint16_t number = 0;

    bool is(uint16_t other) const { return isNumber && number == other; }
};

std::optional<Identifier> takeIdentifier(Reader& header) {
    const auto first = header.take16();
    if (!first) return std::nullopt;
    if (*first == kNumberFollows) {
        const auto number = header.take16();
        if (!number) return std::nullopt;
        return Identifier{true, *number};
    }
    for (uint16_t unit = *first; unit != 0;) {
        const auto next = header.take16();
        if (!next) return std::nullopt;
        unit = *next;
    }
    return Identifier{};
}

struct Entry {
    Identifier type;
    Identifier name;
    std::span<const uint8_t> data;
};

std::optional<Entry> takeEntry(Reader& file) {
    const auto dataSize = file.take32();
    const auto headerSize = file.take32();
    constexpr size_t kSizeFields = 8;
    if (!dataSize || !headerSize || *headerSize < kSizeFields) return std::nullopt;
    const auto header = file.take(*headerSize - kSizeFields);
    if (!header) return std::nullopt;
    const auto data = file.take(*dataSize);
    if (!data) return std::nullopt;
    // The last entry may lack its padding.
    const size_t padding = (kAlignment - *dataSize % kAlignment) % kAlignment;
    file.take(std::min(padding, file.left()));

    Reader fields(*header);
    const auto type = takeIdentifier(fields);
    const auto name = takeIdentifier(fields);
    if (!type || !name) return std::nullopt;
    return Entry{*type, *name, *data};
}

}  // namespace

std::optional<std::span<const uint8_t>> ResourceFile::find(uint16_t type, uint16_t name) const {
    Reader file(bytes_);
    while (const auto entry = takeEntry(file)) {
        if (entry->type.is(type) && entry->name.is(name)) return entry->data;
    }
    return std::nullopt;
}

std::optional<std::u16string> ResourceFile::string(uint32_t id) const {
    const uint32_t block = id / kStringsPerBlock + 1;
    if (block > UINT16_MAX) return std::nullopt;
    const auto data = find(kStringTable, static_cast<uint16_t>(block));
    if (!data) return std::nullopt;

    Reader strings(*data);
    for (uint32_t i = 0; i < id % kStringsPerBlock; ++i) {
        const auto length = strings.take16();
        if (!length || !strings.take(*length * sizeof(char16_t))) return std::nullopt;
    }
    const auto length = strings.take16();
    if (!length) return std::nullopt;
    std::u16string text;
    for (uint16_t i = 0; i < *length; ++i) {
        const auto unit = strings.take16();
        if (!unit) return std::nullopt;
        text += static_cast<char16_t>(*unit);
    }
    return text;
}

}  // namespace kernel
