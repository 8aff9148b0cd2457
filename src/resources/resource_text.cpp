#include "resources/resource_text.h"

#include "base/mac_roman.h"
#include "resources/data_view.h"

#include <cstring>

namespace tidewell {

namespace {

constexpr ResourceType kText = {{'T', 'E', 'X', 'T'}};
constexpr ResourceType kString = {{'S', 'T', 'R', ' '}};
constexpr ResourceType kStringList = {{'S', 'T', 'R', '#'}};

// Windows text that grows until a character does not fit.
class GrowingText {
  public:
    explicit GrowingText(char* text) : text_(text) {}

    bool isEmpty() const { return length_ == 0; }
    bool isFull() const { return full_; }

    void appendLineEnd() { append("\r\n", 2); }

    // The control characters of both systems' line ends each end a line, but are one end together.
    void appendMac(const uint8_t* characters, uint32_t count) {
        for (uint32_t i = 0; i < count && !full_; ++i) {
            const uint8_t c = characters[i];
            if (c == '\r' || (c == '\n' && (i == 0 || characters[i - 1] != '\r'))) {
                appendLineEnd();
            } else if (c >= 0x80) {
                appendUnit(UnitOfMacRoman(c));
            } else if (c != '\n') {
                const char shown = c != 0 ? static_cast<char>(c) : ' ';
                append(&shown, 1);
            }
        }
    }

  private:
    void appendUnit(char16_t unit) {
        const auto wide = static_cast<WCHAR>(unit);
        char bytes[8] = {'?'};
        const int count =
            WideCharToMultiByte(CP_ACP, 0, &wide, 1, bytes, static_cast<int>(sizeof bytes), nullptr, nullptr);
        append(bytes, count > 0 ? static_cast<size_t>(count) : 1);
    }

    void append(const char* bytes, size_t count) {
        full_ = full_ || count > kMostText - 1 - length_;
        if (full_) return;
        std::memcpy(text_ + length_, bytes, count);
        length_ += count;
    }

    char* text_;
    size_t length_ = 0;
    bool full_ = false;
};

// Goes to behind the string. False when the data ends before it does.
bool appendString(const DataView& data, uint64_t& offset, GrowingText& text) {
    const uint8_t* const length = data.At(offset, 1);
    if (length == nullptr) return false;
    const uint8_t* const characters = data.At(offset + 1, *length);
    if (characters == nullptr) return false;
    text.appendMac(characters, *length);
    offset += 1 + uint64_t{*length};
    return true;
}

bool appendList(const DataView& data, GrowingText& text) {
    const auto* const count = data.RecordAt<Be<uint16_t>>(0);
    if (count == nullptr) return false;
    uint64_t offset = sizeof *count;
    for (unsigned i = 0; i < *count && !text.isFull(); ++i) {
        if (i != 0) text.appendLineEnd();
        if (!appendString(data, offset, text)) return false;
    }
    return true;
}

bool appendResource(const ResourceType& type, const DataView& data, uint32_t length, GrowingText& text) {
    uint64_t offset = 0;
    if (type == kString) return appendString(data, offset, text);
    if (type == kStringList) return appendList(data, text);
    text.appendMac(data.At(0, length), length);
    return true;
}

}  // namespace

bool IsTextType(const ResourceType& type) {
    return type == kText || type == kString || type == kStringList;
}

PageBuffer ReadResourceText(const ResourceType& type, const uint8_t* data, uint32_t length) {
    if (!IsTextType(type)) return {};
    PageBuffer memory = PageBuffer::allocate(kMostText);
    if (!memory) return {};
    GrowingText text(reinterpret_cast<char*>(memory.data()));
    const bool whole = appendResource(type, DataView(data, length), length, text);
    return whole && !text.isEmpty() ? std::move(memory) : PageBuffer();
}

}  // namespace tidewell
