#include "resources/proposed_name.h"

#include "base/text.h"
#include "macfile/mac_name.h"
#include "macfile/usable_name.h"
#include "resources/resource_type.h"
#include "ui/size_scale.h"

#include <cstring>

namespace tidewell {

namespace {

// As much of the text as makes `proposal` shorter than `most` bytes, without half a character.
void append(char* proposal, const char* text, size_t most = kMostProposed) {
    size_t length = std::strlen(proposal);
    while (*text != '\0') {
        const size_t width = static_cast<size_t>(nextCharacter(text) - text);
        // Making the name usable can add a byte.
        if (length + width >= most) break;
        std::memcpy(proposal + length, text, width);
        length += width;
        text += width;
    }
    proposal[length] = '\0';
}

// The bytes of the text that no file name may have, replaced.
void appendAllowed(char* proposal, const char* text, size_t most = kMostProposed) {
    uint8_t counted[256];
    char allowed[256];
    const size_t length = std::strlen(text);
    counted[0] = static_cast<uint8_t>(length < 255 ? length : 255);
    std::memcpy(counted + 1, text, counted[0]);
    if (MacNameToWindowsName(counted, allowed, sizeof allowed)) append(proposal, allowed, most);
}

// With zeros in front, `width` digits or more.
void appendDigits(char* proposal, int number, DWORD width) {
    char digits[kDigitsCapacity];
    for (DWORD length = FormatDigits(static_cast<uint64_t>(number), digits); length < width; ++length)
        append(proposal, "0");
    append(proposal, digits);
}

}  // namespace

void ProposeResourceName(const char* fileName, const ResourceType& type, const char* name, int16_t id,
                         char* proposal) {
    char code[kTypeCodeCapacity];
    FormatTypeCode(type, code);
    char resource[kMostProposed];
    resource[0] = '\0';
    append(resource, " - resource ");
    appendAllowed(resource, code);
    // Of a long name as much as leaves the file's name a third.
    if (name != nullptr) {
        appendAllowed(resource, name, kMostProposed * 2 / 3);
    } else {
        append(resource, id < 0 ? " -" : " ");
        appendDigits(resource, id < 0 ? -id : id, id < 0 ? 4 : 5);
    }
    proposal[0] = '\0';
    append(proposal, fileName, kMostProposed - std::strlen(resource));
    append(proposal, resource);
    MakeNameUsable(proposal);
}

void ProposeForkName(const char* fileName, char* proposal) {
    proposal[0] = '\0';
    append(proposal, fileName);
    for (char* at = proposal; *at != '\0'; at += nextCharacter(at) - at) {
        if (*at == '.') *at = '_';
    }
    MakeNameUsable(proposal);
}

}  // namespace tidewell
