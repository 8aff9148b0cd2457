// The record that reading the Finder-information pseudo-file of a Mac volume gives.
#ifndef TIDEWELL_PLATFORM_PC_VOLUMES_FINDER_RECORD_H
#define TIDEWELL_PLATFORM_PC_VOLUMES_FINDER_RECORD_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace pc {

constexpr size_t kFinderRecordSize = 1155;
using FinderRecord = std::array<uint8_t, kFinderRecordSize>;

// What a record keeps and a writer may change.
struct FinderSettings {
    // FInfo as the Mac has it: type, creator, flags, vertical and horizontal position, window.
    std::array<uint8_t, 16> info = {};
    uint8_t attributes = 0;
};

struct FinderDescription {
    FinderSettings settings;
    std::string macName;          // Mac Roman; at most 31 bytes are shown
    std::u16string unicodeName;   // at most 255 units are shown
    uint64_t dataLength = 0;      // files; lengths above 4 GB - 1 show as that
    uint64_t resourceLength = 0;  // files
    bool folder = false;
    bool root = false;             // the volume's root folder
    uint32_t items = 0;            // folders
    uint32_t filesOnVolume = 0;    // the root folder
    uint32_t foldersOnVolume = 0;  // the root folder
};

FinderRecord makeFinderRecord(const FinderDescription& description);

// `record` is kFinderRecordSize bytes; what cannot be changed in it is not looked at.
FinderSettings settingsOf(const uint8_t* record);

}  // namespace pc

#endif
