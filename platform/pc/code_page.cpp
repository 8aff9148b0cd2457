#include "code_page.h"

#include "pc.h"

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

}  // namespace pc
