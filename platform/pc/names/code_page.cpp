#include "pc/names/code_page.h"

#include "pc/names/utf8.h"
#include "pc/pc.h"

namespace pc {

unsigned ansiCodePage() {
    const Pc* pc = Pc::current();
    return pc != nullptr ? pc->codePage() : kCodePageUtf8;
}

bool isLeadByte(unsigned codePage, uint8_t byte) {
    switch (codePage) {
    case 932: return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
    case 936:
    case 949:
    case 950: return byte >= 0x81 && byte <= 0xFE;
    default: return false;
    }
}

std::u16string utf16FromAnsi(unsigned codePage, std::string_view text) {
    if (codePage == kCodePageUtf8) return utf16FromBytes(text);
    if (const auto utf8 = utf8FromAnsi(codePage, text)) return utf16FromUtf8(*utf8);
    std::u16string units;
    for (size_t start = 0; start < text.size();) {
        const size_t length = isLeadByte(codePage, static_cast<uint8_t>(text[start])) ? 2 : 1;
        const auto character = utf8FromAnsi(codePage, text.substr(start, length));
        units += character ? utf16FromUtf8(*character) : u"?";
        start += length;
    }
    return units;
}

std::string ansiFromUtf16(unsigned codePage, std::u16string_view text) {
    if (codePage == kCodePageUtf8) return bytesFromUtf16(text);
    return ansiFromUtf8(codePage, utf8FromUtf16(text), /*exact=*/false).value_or("");
}

}  // namespace pc
