// Files of a volume, opened as the PC opens them, and AppleDouble files as other programs write them.
#ifndef TIDEWELL_TESTS_SUPPORT_VOLUME_FILES_H
#define TIDEWELL_TESTS_SUPPORT_VOLUME_FILES_H

#include "pc/volumes/volume.h"
#include "support/host_folder.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

constexpr const char* kResourceFile = "\\{4DD19183-ACE2-11CF-BBF2-444553540000}";
constexpr const char* kFinderFile = "\\{4DD19184-ACE2-11CF-BBF2-444553540000}";

enum : uint32_t { createNew = 1, createAlways = 2, openExisting = 3, openAlways = 4 };

// For reading and writing, truncating as the disposition says.
pc::Error openFile(pc::Volume& volume, const std::string& path, uint32_t disposition, pc::Opened& opened);
pc::Error openError(pc::Volume& volume, const std::string& path, uint32_t disposition = openExisting);

// Replaces the file.
pc::Error writeFile(pc::Volume& volume, const std::string& path, const std::string& bytes);
// "error n" when it cannot be read.
std::string contentsOf(pc::Volume& volume, const std::string& path);

bool existsOn(pc::Volume& volume, const std::string& path);
std::string shortPathOf(pc::Volume& volume, const std::string& path);
std::string identityOf(pc::Volume& volume, const std::string& path);

// Writes the item's record back with other settings; `info` is 16 bytes.
pc::Error changeFinderInfo(pc::Volume& volume, const std::string& item, const std::string& info,
                           uint8_t attributes = 0);

struct RawEntry {
    uint32_t id;
    uint32_t offset;
    uint32_t length;
};

// The header alone.
std::string appleDoubleHeader(const std::vector<RawEntry>& entries);

// An AppleDouble file read by the format's rules: the bytes of an entry, "none" when there is none.
std::string entryOf(const std::string& file, uint32_t id);

// A folder as a Mac volume.
struct MacFolder {
    MemoryFolder folder{"/Volume"};
    std::unique_ptr<pc::Volume> volume = pc::makeMacVolume(folder.host(), folder.path());

    // The Finder information of an item; of the root, which has no name.
    std::string recordOf(const std::string& item) const {
        return contentsOf(*volume, item.empty() ? kFinderFile + 1 : item + kFinderFile);
    }
};

std::string big16(uint32_t value);
std::string big32(uint32_t value);
// Bytes that tell their place.
std::string patternText(size_t size);

#endif
