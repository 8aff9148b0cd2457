// Characters that Windows reserves in file names, and the private-use characters that stand for them.
#ifndef TIDEWELL_PLATFORM_PC_RESERVED_CHARACTERS_H
#define TIDEWELL_PLATFORM_PC_RESERVED_CHARACTERS_H

#include <string>
#include <string_view>

namespace pc {

// The first replaces, the second restores; host_name.h has the table. What would become "." or ".." is
// left as it is.
std::string replaceReserved(std::string_view name);
std::string restoreReserved(std::string_view name);

}  // namespace pc

#endif
