// Names of Mac files, as a Mac volume shows them, and the names of their files on the host.
#ifndef TIDEWELL_PLATFORM_PC_MAC_NAME_H
#define TIDEWELL_PLATFORM_PC_MAC_NAME_H

#include <string>
#include <string_view>

namespace pc {

// Mac OS allows "/" in names and not ":"; the host the other way round.

// Mac Roman, at most 31 bytes.
std::string macNameFromHost(std::string_view hostName);

// At most 255 UTF-16 units; accents stay composed or decomposed as the host has them.
std::u16string unicodeMacNameFromHost(std::string_view hostName);

// UTF-8. Names that no file of the host, or only the driver's own, may have get "_" for what is in the way:
// NUL, the first period of ".", ".." and "._...", or all of an empty name.
std::string hostNameFromMac(std::string_view macRoman);
std::string hostNameFromUnicodeMac(std::u16string_view macName);

// What the driver's own files on the host begin with: "._name" keeps the Mac information of "name".
constexpr std::string_view kDriverPrefix = "._";

inline bool belongsToDriver(std::string_view hostName) {
    return hostName.substr(0, kDriverPrefix.size()) == kDriverPrefix;
}

}  // namespace pc

#endif
