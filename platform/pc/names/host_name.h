// File names as the host keeps them, and as the PC's volumes show them.
#ifndef TIDEWELL_PLATFORM_PC_NAMES_HOST_NAME_H
#define TIDEWELL_PLATFORM_PC_NAMES_HOST_NAME_H

#include <string>
#include <string_view>

namespace pc {

// A host name may hold characters that Windows reserves: " * : < > ? \ | and control characters. They show
// as the private-use characters U+F020 ... (U+F001 ... for controls) that Windows' own Macintosh services
// and SMB use, a final blank or period as U+F028 or U+F029; everything else, whatever its bytes, is
// unchanged. What would become "." or ".." stays. Both directions are UTF-8 and take a single path component.
std::string windowsNameOf(std::string_view hostName);
std::string hostNameOf(std::string_view windowsName);

}  // namespace pc

#endif
