#include "macfile/usable_name.h"

#include "base/text.h"
#include "macfile/fork_paths.h"

#include <cstring>

namespace tidewell {

namespace {

constexpr char kStandIn = '_';

bool isPassedOver(char c) {
    return c == '.' || c == ' ';
}

void cutEnd(char* name) {
    char* end = name + std::strlen(name);
    while (end != name && isPassedOver(end[-1]))
        --end;
    if (end != name) {
        *end = '\0';
    } else {
        std::memset(name, kStandIn, std::strlen(name));
    }
}

// The first half of a double-byte character would take what follows the name for its second half.
void replaceHalfCharacter(char* name) {
    for (char* at = name; *at != '\0'; at += nextCharacter(at) - at) {
        if (at[1] == '\0' && IsDBCSLeadByte(static_cast<BYTE>(*at))) *at = kStandIn;
    }
}

// A digit, or a raised one of the Western code page.
bool isPortNumber(char c) {
    return (c >= '1' && c <= '9') || c == '\xB9' || c == '\xB2' || c == '\xB3';
}

bool isDevice(const char* name, size_t length) {
    constexpr const char* kDevices[] = {"CON", "PRN", "AUX", "NUL", "CLOCK$", "CONIN$", "CONOUT$"};
    char known[sizeof "CONOUT$"] = {};
    if (length >= sizeof known) return false;
    std::memcpy(known, name, length);
    for (const char* const device : kDevices) {
        if (equalsIgnoringCase(known, device)) return true;
    }
    if (length != 4 || !isPortNumber(known[3])) return false;
    known[3] = '\0';
    return equalsIgnoringCase(known, "COM") || equalsIgnoringCase(known, "LPT");
}

// Windows looks at what is before the first period, and passes over the blanks before it.
void setApartFromDevices(char* name) {
    size_t length = std::strcspn(name, ".");
    while (length != 0 && name[length - 1] == ' ')
        --length;
    if (!isDevice(name, length)) return;
    std::memmove(name + length + 1, name + length, std::strlen(name + length) + 1);
    name[length] = kStandIn;
}

}  // namespace

void MakeNameUsable(char* name) {
    cutEnd(name);
    replaceHalfCharacter(name);
    setApartFromDevices(name);
    if (IsForkPath(name)) *name = kStandIn;
}

}  // namespace tidewell
