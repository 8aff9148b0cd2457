#include "host_name.h"

#include "reserved_characters.h"

namespace pc {

std::string windowsNameOf(const std::string& hostName) {
    return replaceReserved(hostName);
}

std::string hostNameOf(const std::string& windowsName) {
#ifdef _WIN32
    // The host is Windows itself, which keeps the stand-ins.
    return windowsName;
#else
    return restoreReserved(windowsName);
#endif
}

}  // namespace pc
