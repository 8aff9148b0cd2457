// Names of Mac files, as a Mac volume shows them, and the names of their files on the host.
#ifndef TIDEWELL_PLATFORM_PC_NAMES_MAC_HOST_NAME_H
#define TIDEWELL_PLATFORM_PC_NAMES_MAC_HOST_NAME_H

#include <string>
#include <string_view>
#include <variant>

namespace pc {

// In Mac Roman or in UTF-16.
using MacName = std::variant<std::string, std::u16string>;

// Mac OS allows "/" in names and not ":"; the host the other way round.

// Mac Roman, at most 31 bytes.
std::string macNameFromHost(std::string_view hostName);

// UTF-8. Names that no file of the host, or only the driver's own, may have get "_" for what is in the way:
// NUL, the first character of ".", "..", "._..." and of the pseudo-files' names, or all of an empty name.
// What Windows shows for the name leads to it: a stand-in for a reserved character becomes that character,
// or, where the host is Windows, the other way round.
std::string hostNameFromMac(std::string_view macRoman);
std::string hostNameFor(const MacName& macName);

// Whether no host name but the usual one can stand for this Mac name: it is plain ASCII, in which nothing is
// composed or reserved. The rest of a folder need not be looked at then.
bool hasOneHostName(const MacName& macName);

// Whether the host's name stands for this Mac name and no other: nothing of it was cut off or replaced.
bool standsFor(std::string_view hostName, const MacName& macName);

// What the driver's own files on the host begin with: "._name" keeps the Mac information of "name".
constexpr std::string_view kDriverPrefix = "._";

// The pseudo-files below every file and folder.
constexpr std::string_view kResourcePseudoFile = "{4DD19183-ACE2-11CF-BBF2-444553540000}";
constexpr std::string_view kFinderPseudoFile = "{4DD19184-ACE2-11CF-BBF2-444553540000}";

inline bool belongsToDriver(std::string_view hostName) {
    return hostName.substr(0, kDriverPrefix.size()) == kDriverPrefix;
}

}  // namespace pc

#endif
