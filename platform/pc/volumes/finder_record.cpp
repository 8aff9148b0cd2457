#include "pc/volumes/finder_record.h"

#include "base/byte_order.h"

#include <algorithm>
#include <cstring>

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

template <typename Number>
void store(FinderRecord& record, size_t offset, Number value) {
    const tidewell::Le<Number> bytes = value;
    std::memcpy(&record[offset], &bytes, sizeof bytes);
}

uint32_t shownLength(uint64_t length) {
    return static_cast<uint32_t>(std::min<uint64_t>(length, UINT32_MAX));
}

void storeNames(FinderRecord& record, const FinderDescription& description) {
    const std::string mac = description.macName.substr(0, kLongestMacName);
    record[kMacName] = static_cast<uint8_t>(mac.size());
    std::copy(mac.begin(), mac.end(), record.begin() + kMacName + 1);
    const std::u16string unicode = description.unicodeName.substr(0, kLongestUnicodeName);
    store(record, kUnicodeLength, static_cast<uint16_t>(unicode.size() * 2));
    for (size_t i = 0; i < unicode.size(); ++i)
        store<uint16_t>(record, kUnicodeName + i * 2, unicode[i]);
}

}  // namespace

FinderRecord makeFinderRecord(const FinderDescription& description) {
    FinderRecord record = {};
    record[kAttributes] = description.settings.attributes;
    std::copy(description.settings.info.begin(), description.settings.info.end(), record.begin() + kInfo);
    if (description.folder) {
        record[kRootMark] = description.root ? 1 : 0;
        store(record, kItems, description.items);
    } else {
        store(record, kDataLength, shownLength(description.dataLength));
        store(record, kResourceLength, shownLength(description.resourceLength));
    }
    store(record, kFilesOnVolume, description.filesOnVolume);
    store(record, kFoldersOnVolume, description.foldersOnVolume);
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
