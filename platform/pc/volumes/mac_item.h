// A file or folder of a Mac volume, and the open pseudo-files below it.
#ifndef TIDEWELL_PLATFORM_PC_VOLUMES_MAC_ITEM_H
#define TIDEWELL_PLATFORM_PC_VOLUMES_MAC_ITEM_H

#include "pc/apple_double/apple_double.h"
#include "pc/volumes/finder_record.h"
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

// The AppleDouble file's real name when it is still the item's, else what the host's name stands for.
std::string macNameOf(const MacItem& item, const AppleDouble& store);

// The item's record as it is now. Errors of reading the Mac information; what cannot be counted counts 0.
Error describeItem(Host& host, const MacItem& item, const AppleDouble& store, FinderRecord& record);

// Keeps the settings; without a change nothing is written, but the AppleDouble file exists afterwards.
// The attribute byte gets no entry of its own in a file that holds macOS' extended attributes: they would
// have to move, and macOS would not find them.
Error keepSettings(const MacItem& item, const FinderSettings& settings, AppleDouble& store);

// The entry exists.
std::unique_ptr<File> makeResourceForkFile(std::shared_ptr<AppleDouble> store);

// Takes whole records only: 87 for a write of anything else. Every write is kept at once.
std::unique_ptr<File> makeFinderInfoFile(Host& host, MacItem item, std::shared_ptr<AppleDouble> store,
                                         FinderFlush flush);

}  // namespace pc

#endif
