// Conversion by the C library's iconv.
#include "code_page.h"

#include <iconv.h>

#include <cerrno>

namespace pc {

namespace {

class Converter {
  public:
    Converter(const std::string& to, const std::string& from)
        : iconv_(iconv_open(to.c_str(), from.c_str())) {}
    ~Converter() {
        if (valid()) iconv_close(iconv_);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    // Converts all of `text`; a character that cannot be converted becomes `replacement`, or nothing is
    // returned when that is empty.
    std::optional<std::string> convert(std::string_view text, std::string_view replacement,
                                       size_t characterSize) {
        if (!valid()) return std::nullopt;
        std::string result;
        char* input = const_cast<char*>(text.data());
        size_t inputLeft = text.size();
        while (inputLeft > 0) {
            char piece[256];
            char* output = piece;
            size_t outputLeft = sizeof piece;
            const size_t done = iconv(iconv_, &input, &inputLeft, &output, &outputLeft);
            result.append(piece, sizeof piece - outputLeft);
            if (done != static_cast<size_t>(-1) || errno == E2BIG) continue;
            if (replacement.empty() || inputLeft < characterSize) return std::nullopt;
            result += replacement;
            skipCharacter(input, inputLeft, characterSize);
        }
        return result;
    }

  private:
    bool valid() const { return iconv_ != reinterpret_cast<iconv_t>(-1); }

    // One UTF-8 character when characterSize is 1, else a UTF-16 unit.
    static void skipCharacter(char*& input, size_t& left, size_t characterSize) {
        do {
            input += characterSize;
            left -= characterSize;
        } while (characterSize == 1 && left > 0 && (static_cast<unsigned char>(*input) & 0xC0) == 0x80);
    }

    iconv_t iconv_;
};

std::string nameOf(unsigned codePage) {
    return codePage == kCodePageUtf8 ? "UTF-8" : "CP" + std::to_string(codePage);
}

}  // namespace

std::optional<std::string> utf8FromAnsi(unsigned codePage, std::string_view text) {
    if (codePage == kCodePageUtf8) return std::string(text);
    return Converter("UTF-8", nameOf(codePage)).convert(text, {}, 1);
}

std::optional<std::string> ansiFromUtf8(unsigned codePage, std::string_view text, bool exact) {
    if (codePage == kCodePageUtf8) return std::string(text);
    return Converter(nameOf(codePage), "UTF-8").convert(text, exact ? "" : "?", 1);
}

std::string ansiFromUtf16(std::u16string_view text) {
    const std::string_view bytes(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(char16_t));
    return Converter(nameOf(ansiCodePage()), "UTF-16LE").convert(bytes, "?", sizeof(char16_t)).value_or("");
}

}  // namespace pc
