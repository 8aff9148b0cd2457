// Conversion by the C library's iconv.
#include "pc/names/code_page.h"

#include "pc/names/utf8.h"

#include <iconv.h>

#include <cerrno>

namespace pc {

namespace {

// Windows gives the bytes that its Western code page leaves undefined the control characters of their values.
constexpr unsigned kWestern = 1252;
constexpr std::string_view kWesternControls = "\x81\x8D\x8F\x90\x9D";

bool isWesternControl(char32_t character) {
    return character < 0x100 && kWesternControls.find(static_cast<char>(character)) != std::string_view::npos;
}

class Converter {
  public:
    Converter(const std::string& to, const std::string& from)
        : iconv_(iconv_open(to.c_str(), from.c_str())) {}
    ~Converter() {
        if (valid()) iconv_close(iconv_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool valid() const { return iconv_ != reinterpret_cast<iconv_t>(-1); }

    // Appends what can be converted of `text`, up to its end or to a character that cannot be converted,
    // where `text` then begins.
    void convert(std::string_view& text, std::string& result) {
        char* input = const_cast<char*>(text.data());
        size_t left = text.size();
        bool more = true;
        while (more && left > 0) {
            char piece[256];
            char* output = piece;
            size_t outputLeft = sizeof piece;
            const size_t done = iconv(iconv_, &input, &left, &output, &outputLeft);
            result.append(piece, sizeof piece - outputLeft);
            more = done != static_cast<size_t>(-1) || errno == E2BIG;
        }
        text.remove_prefix(text.size() - left);
    }

  private:
    iconv_t iconv_;
};

std::string nameOf(unsigned codePage) {
    return "CP" + std::to_string(codePage);
}

}  // namespace

std::optional<std::string> utf8FromAnsi(unsigned codePage, std::string_view text) {
    if (codePage == kCodePageUtf8) return std::string(text);
    Converter converter("UTF-8", nameOf(codePage));
    if (!converter.valid()) return std::nullopt;
    std::string utf8;
    for (converter.convert(text, utf8); !text.empty(); converter.convert(text, utf8)) {
        const auto byte = static_cast<uint8_t>(text[0]);
        if (codePage != kWestern || !isWesternControl(byte)) return std::nullopt;
        appendCharacter(utf8, byte);
        text.remove_prefix(1);
    }
    return utf8;
}

std::optional<std::string> ansiFromUtf8(unsigned codePage, std::string_view text, bool exact) {
    if (codePage == kCodePageUtf8) return std::string(text);
    Converter converter(nameOf(codePage), "UTF-8");
    if (!converter.valid()) return std::nullopt;
    std::string ansi;
    for (converter.convert(text, ansi); !text.empty(); converter.convert(text, ansi)) {
        size_t length = 0;
        const char32_t character = nextCharacter(text, length);
        const bool control = codePage == kWestern && isWesternControl(character);
        if (!control && exact) return std::nullopt;
        ansi += control ? static_cast<char>(character) : '?';
        text.remove_prefix(length);
    }
    return ansi;
}

}  // namespace pc
