// The items of a Mac volume by their Mac names.
#ifndef TIDEWELL_PLATFORM_PC_VOLUMES_MAC_DIRECTORY_H
#define TIDEWELL_PLATFORM_PC_VOLUMES_MAC_DIRECTORY_H

#include "pc/file.h"
#include "pc/names/mac_host_name.h"

#include <string>

namespace pc {

// Folders are paths as Volume has them.
class MacDirectory {
  public:
    virtual ~MacDirectory() = default;

    // The item with that Mac name in the folder, or the one that a file of that name would take the place of:
    // two Mac names may stand for one host name. Mac information whose file is gone is an item, too.
    // `windowsName` receives its name on Windows. 2: there is none, and `windowsName` is what `create` would
    // give; 3: no such folder.
    virtual Error find(const std::string& folder, const MacName& name, std::string& windowsName) = 0;

    // Makes an empty file unless `find` finds one, which stays as it is. A Mac name in Mac Roman that its
    // host name does not tell is kept beside it. 5: what is there is no file. After an error there is no new
    // file.
    virtual Error create(const std::string& folder, const MacName& name, std::string& windowsName) = 0;
};

}  // namespace pc

#endif
