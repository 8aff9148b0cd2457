#include "finder_record.h"

#include <algorithm>

namespace pc {

namespace {

// Numbers are little-endian, as Windows has them, but for those within FInfo.
constexpr size_t kFilesOnVolume = 513;
constexpr size_t kFoldersOnVolume = 517;
constexpr size_t kAttributes = 521;
constexpr size_t kInfo = 523;
constexpr size_t kDataLength = 555;  // files
constexpr size_t kRootMark = 555;    // folders
constexpr size_t kItems = 556;       // folders
constexpr size_t kResourceLength = 571;
constexpr size_t kMacName = 607;
constexpr size_t kUnicodeLength = 639;
constexpr size_t kUnicodeName = 641;
constexpr size_t kLongestMacName = 31;
constexpr size_t kLongestUnicodeName = 255;

void store16(FinderRecord& record, size_t offset, uint32_t value) {
    record[offset] = static_cast<uint8_t>(value);
    record[offset + 1] = static_cast<uint8_t>(value >> 8);
}

void store32(FinderRecord& record, size_t offset, uint32_t value) {
    store16(record, offset, value);
    store16(record, offset + 2, value >> 16);
}

uint32_t shownLength(uint64_t length) {
    return static_cast<uint32_t>(std::min<uint64_t>(length, UINT32_MAX));
}

void storeNames(FinderRecord& record, const FinderDescription& description) {
    const std::string mac = description.macName.substr(0, kLongestMacName);
    record[kMacName] = static_cast<uint8_t>(mac.size());
    std::copy(mac.begin(), mac.end(), record.begin() + kMacName + 1);
    const std::u16string unicode = description.unicodeName.substr(0, kLongestUnicodeName);
    store16(record, kUnicodeLength, static_cast<uint32_t>(unicode.size() * 2));
    for (size_t i = 0; i < unicode.size(); ++i)
        store16(record, kUnicodeName + i * 2, unicode[i]);
}

}  // namespace

FinderRecord makeFinderRecord(const FinderDescription& description) {
    FinderRecord record = {};
    record[kAttributes] = description.settings.attributes;
    std::copy(description.settings.info.begin(), description.settings.info.end(), record.begin() + kInfo);
    if (description.folder) {
        record[kRootMark] = description.root ? 1 : 0;
        store32(record, kItems, description.items);
    } else {
        store32(record, kDataLength, shownLength(description.dataLength));
        store32(record, kResourceLength, shownLength(description.resourceLength));
    }
    store32(record, kFilesOnVolume, description.filesOnVolume);
    store32(record, kFoldersOnVolume, description.foldersOnVolume);
    storeNames(record, description);
    return record;
}

FinderSettings settingsOf(const uint8_t* record) {
    FinderSettings settings;
    std::copy_n(record + kInfo, settings.info.size(), settings.info.begin());
    settings.attributes = record[kAttributes];
    return settings;
}

}  // namespace pc
