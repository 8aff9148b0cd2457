// A file or folder of a Mac volume, and the open pseudo-files below it.
#ifndef TIDEWELL_PLATFORM_PC_VOLUMES_MAC_ITEM_H
#define TIDEWELL_PLATFORM_PC_VOLUMES_MAC_ITEM_H

#include "pc/apple_double/apple_double.h"
#include "pc/host/host.h"
#include "pc/volumes/volume.h"

#include <memory>
#include <string>
#include <vector>

namespace pc {

struct MacItem {
    std::string path;  // on the host
    std::string name;  // on the host
    bool root = false;
    HostStatus status;
};

// What a new AppleDouble file holds beside what it is made for.
std::vector<AppleDoubleEdit> newAppleDoubleEntries(const MacItem& item);

// The entry exists.
std::unique_ptr<File> makeResourceForkFile(std::shared_ptr<AppleDouble> store);

// A FinderRecord as it is now; what cannot be counted counts 0. Takes whole records only:
// ERROR_INVALID_PARAMETER for a write of anything else. Every write is kept at once; without a change nothing
// is written, but the AppleDouble file exists afterwards. The attribute byte gets no entry of its own in a
// file that holds macOS' extended attributes: they would have to move, and macOS would not find them.
std::unique_ptr<File> makeFinderInfoFile(Host& host, MacItem item, std::shared_ptr<AppleDouble> store,
                                         FinderFlush flush);

}  // namespace pc

#endif
