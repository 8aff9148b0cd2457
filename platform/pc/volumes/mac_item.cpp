#include "pc/volumes/mac_item.h"

#include "pc/names/mac_host_name.h"
#include "pc/volumes/finder_record.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <iterator>
#include <utility>

namespace pc {

namespace {

constexpr uint32_t kFinderEntryLength = 32;
constexpr uint32_t kAttributeOffset = 3;  // the low byte of 32 bits
constexpr uint32_t kAttributesLength = 4;
constexpr size_t kLongestRealName = 255;

constexpr int64_t kSecondsTo2000 = 946684800;
constexpr uint32_t kUnknownDate = 0x80000000;

// A volume of more items than this shows no more of them: a record is read each time a page is shown.
constexpr uint32_t kCountedItems = 100000;

struct Counts {
    uint32_t files = 0;
    uint32_t folders = 0;

    uint32_t items() const { return files + folders; }
};

Counts countItems(Host& host, const std::string& folder, std::vector<std::string>* subfolders) {
    Counts counts;
    std::vector<HostItem> items;
    if (host.list(folder, items) != 0) return counts;
    for (const HostItem& item : items) {
        if (belongsToDriver(item.name)) continue;
        ++(item.folder ? counts.folders : counts.files);
        if (item.folder && subfolders != nullptr) subfolders->push_back(hostJoin(folder, item.name));
    }
    return counts;
}

// Other file systems that hang below the root are not this volume's.
Counts countVolume(Host& host, const MacItem& root) {
    Counts total;
    std::vector<std::string> folders = {root.path};
    for (size_t i = 0; i < folders.size() && total.items() < kCountedItems; ++i) {
        const std::string folder = folders[i];
        HostStatus status;
        if (host.status(folder, status) != 0 || status.device != root.status.device) continue;
        const Counts counts = countItems(host, folder, &folders);
        total.files += counts.files;
        total.folders += counts.folders;
    }
    return total;
}

std::vector<uint8_t> fileDates(int64_t modified) {
    const int64_t since2000 = modified - kSecondsTo2000;
    const bool fits = since2000 > INT32_MIN && since2000 <= INT32_MAX;
    const uint32_t date = fits ? static_cast<uint32_t>(since2000) : kUnknownDate;
    // Of the creation, the modification, the backup and the last access.
    const tidewell::Be<uint32_t> dates[] = {date, date, kUnknownDate, kUnknownDate};
    const auto* const bytes = reinterpret_cast<const uint8_t*>(dates);
    return {bytes, bytes + sizeof dates};
}

// What a record keeps and a writer may change.
struct FinderSettings {
    std::array<uint8_t, 16> info = {};
    uint8_t attributes = 0;
};

Error readSettings(const AppleDouble& store, FinderSettings& settings) {
    settings = FinderSettings();
    size_t got = 0;
    Error error = store.read(kFinderInfo, 0, settings.info.data(), settings.info.size(), got);
    if (error == 0) error = store.read(kMacFileInfo, kAttributeOffset, &settings.attributes, 1, got);
    return error;
}

std::string macNameOf(const MacItem& item, const AppleDouble& store) {
    std::string realName(std::min<size_t>(store.length(kRealName), kLongestRealName), '\0');
    size_t got = 0;
    const Error error = store.read(kRealName, 0, realName.data(), realName.size(), got);
    const bool current = error == 0 && got != 0 && hostNameFromMac(realName) == item.name;
    return current ? realName : macNameFromHost(item.name);
}

uint32_t shownLength(uint64_t length) {
    return static_cast<uint32_t>(std::min<uint64_t>(length, UINT32_MAX));
}

Error describeItem(Host& host, const MacItem& item, const AppleDouble& store, FinderRecord& record) {
    FinderSettings settings;
    const Error error = readSettings(store, settings);
    if (error != 0) return error;
    std::memset(static_cast<void*>(&record), 0, sizeof record);
    record.attributes = settings.attributes;
    std::copy(settings.info.begin(), settings.info.end(), record.info);
    if (item.status.kind == HostKind::folder) {
        record.folder.root = item.root ? 1 : 0;
        record.folder.items = countItems(host, item.path, nullptr).items();
    } else {
        record.dataLength = shownLength(item.status.size);
        record.resourceLength = shownLength(store.length(kResourceFork));
    }
    if (item.root) {
        const Counts counts = countVolume(host, item);
        record.filesOnVolume = counts.files;
        record.foldersOnVolume = counts.folders;
    }
    const std::string macName = macNameOf(item, store).substr(0, sizeof record.macName);
    record.macNameLength = static_cast<uint8_t>(macName.size());
    std::copy(macName.begin(), macName.end(), record.macName);
    return 0;
}

Error keepSettings(const MacItem& item, const FinderSettings& settings, AppleDouble& store) {
    FinderSettings old;
    const Error error = readSettings(store, old);
    if (error != 0) return error;
    std::vector<AppleDoubleEdit> edits;
    if (!store.exists()) edits = newAppleDoubleEntries(item);
    if (!store.exists() || settings.info != old.info) {
        edits.push_back({kFinderInfo, 0, {settings.info.begin(), settings.info.end()}, kFinderEntryLength});
    }
    const bool room = store.has(kMacFileInfo) || !store.hasMacAttributes();
    if (settings.attributes != old.attributes && room) {
        edits.push_back({kMacFileInfo, kAttributeOffset, {settings.attributes}, kAttributesLength});
    }
    return edits.empty() ? 0 : store.edit(edits, item.path);
}

// The last of those who have the file open closes it.
Error closeLast(const std::shared_ptr<AppleDouble>& store) {
    return store.use_count() == 1 ? store->close() : 0;
}

class ResourceForkFile final : public File {
  public:
    explicit ResourceForkFile(std::shared_ptr<AppleDouble> store) : store_(std::move(store)) {}

    Error read(uint64_t offset, void* buffer, size_t count, size_t& got) override {
        return store_->read(kResourceFork, offset, buffer, count, got);
    }
    Error write(uint64_t offset, const void* buffer, size_t count) override {
        return store_->writeResource(offset, buffer, count);
    }
    Error size(uint64_t& bytes) override {
        bytes = store_->length(kResourceFork);
        return 0;
    }
    Error truncate() override { return store_->truncateResource(); }
    Error flush() override { return store_->flush(); }
    Error close() override { return closeLast(store_); }

  private:
    std::shared_ptr<AppleDouble> store_;
};

class FinderInfoFile final : public File {
  public:
    FinderInfoFile(Host& host, MacItem item, std::shared_ptr<AppleDouble> store, FinderFlush flush)
        : host_(host), item_(std::move(item)), store_(std::move(store)), flush_(flush) {}

    // A record read in pieces is that of the first piece.
    Error read(uint64_t offset, void* buffer, size_t count, size_t& got) override {
        got = 0;
        if (offset == 0) {
            Error error = host_.status(item_.path, item_.status);
            if (error == 0) error = describeItem(host_, item_, *store_, record_);
            if (error != 0) return error;
        }
        if (offset >= sizeof record_) return 0;
        got = static_cast<size_t>(std::min<uint64_t>(count, sizeof record_ - offset));
        std::memcpy(buffer, reinterpret_cast<const uint8_t*>(&record_) + offset, got);
        return 0;
    }

    Error write(uint64_t offset, const void* buffer, size_t count) override {
        if (count == 0) return 0;
        if (offset != 0 || count != sizeof record_) return ERROR_INVALID_PARAMETER;
        const Error error = host_.status(item_.path, item_.status);
        if (error != 0) return error;
        FinderRecord record;
        FinderSettings settings;
        std::memcpy(&record, buffer, sizeof record);
        std::copy(std::begin(record.info), std::end(record.info), settings.info.begin());
        settings.attributes = record.attributes;
        return keepSettings(item_, settings, *store_);
    }

    Error size(uint64_t& bytes) override {
        bytes = sizeof record_;
        return 0;
    }
    Error truncate() override { return ERROR_INVALID_PARAMETER; }
    Error flush() override { return flush_ == FinderFlush::toDisk ? store_->flush() : 0; }
    Error close() override { return closeLast(store_); }

  private:
    Host& host_;
    MacItem item_;
    std::shared_ptr<AppleDouble> store_;
    FinderFlush flush_;
    FinderRecord record_;
};

}  // namespace

std::vector<AppleDoubleEdit> newAppleDoubleEntries(const MacItem& item) {
    const std::string name = macNameFromHost(item.name);
    return {{kRealName, 0, std::vector<uint8_t>(name.begin(), name.end()), 0},
            {kFileDates, 0, fileDates(item.status.modified), 0},
            {kFinderInfo, 0, {}, kFinderEntryLength},
            {kMacFileInfo, 0, {}, kAttributesLength}};
}

std::unique_ptr<File> makeResourceForkFile(std::shared_ptr<AppleDouble> store) {
    return std::make_unique<ResourceForkFile>(std::move(store));
}

std::unique_ptr<File> makeFinderInfoFile(Host& host, MacItem item, std::shared_ptr<AppleDouble> store,
                                         FinderFlush flush) {
    return std::make_unique<FinderInfoFile>(host, std::move(item), std::move(store), flush);
}

}  // namespace pc
