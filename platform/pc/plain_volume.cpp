// FAT and NTFS volumes: names in any letter case, and on NTFS streams and 8.3 names.
#include "host_file.h"
#include "host_name.h"
#include "host_open.h"
#include "letter_case.h"
#include "short_names.h"
#include "volume.h"
#include "volume_path.h"
#include "win32_error.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace pc {

namespace {

enum class PlainKind { fat, ntfs };

// The streams of the Macintosh services: a host that keeps streams as such lists none.
constexpr const char* kMacStreams[] = {"AFP_Resource", "AFP_AfpInfo"};

class PlainVolume final : public Volume {
  public:
    PlainVolume(const std::string& folder, PlainKind kind) : root_(hostAbsolute(folder)), kind_(kind) {}

    const char* fileSystemName() const override { return ntfs() ? "NTFS" : "FAT"; }
    Error open(const std::string& path, const OpenMode& mode, Opened& opened) override;
    Error openForQuery(const std::string& path, Opened& opened) override;
    Error attributes(const std::string& path, uint32_t& bits) override;
    Error remove(const std::string& path) override;
    Error shortPath(const std::string& path, std::string& shortForm) override;
    void setFreeSpace(uint64_t bytes) override { *space_ = {true, bytes}; }

  private:
    // Where a path leads on the host. The name is the one that exists, or that a new file would have.
    struct Place {
        std::string folder;
        std::string name;  // empty for the root
        std::string stream;
        HostStatus status;  // of the file, whatever the stream
        Error found = 0;    // 2 when the file itself is missing

        std::string path() const { return name.empty() ? folder : hostJoin(folder, name); }
        std::string streamPath() const { return hostJoin(folder, name + ":" + stream); }
    };

    bool ntfs() const { return kind_ == PlainKind::ntfs; }
    bool isStream(const std::string& hostName) const {
        return ntfs() && hostName.find(':') != std::string::npos;
    }
    std::string hostComponent(const std::string& component) const;
    std::vector<std::string> namesIn(const std::string& folder) const;
    Error find(const std::string& folder, const std::string& component, std::string& name,
               HostStatus& status);
    Error walk(const VolumePath& parsed, Place& place, std::vector<std::string>* shortForms);
    Error locate(const std::string& path, Place& place);
    Error locateExisting(const std::string& path, Place& place);
    std::string shortNameIn(const std::string& folder, const std::string& hostName);
    void findStream(Place& place) const;
    Error openStream(Place& place, const OpenMode& mode, Opened& opened);
    Error removeStreams(const Place& place);

    std::string root_;
    PlainKind kind_;
    std::shared_ptr<SpaceLimit> space_ = std::make_shared<SpaceLimit>();
    ShortNames shortNames_;
};

// On NTFS a ":" in a host's name begins a stream; a file's name keeps the stand-in.
std::string PlainVolume::hostComponent(const std::string& component) const {
    std::string name = hostNameOf(component);
    return isStream(name) ? component : name;
}

// A folder that cannot be read has no names to find.
std::vector<std::string> PlainVolume::namesIn(const std::string& folder) const {
    std::vector<HostItem> items;
    std::vector<std::string> names;
    if (hostList(folder, items) != 0) return names;
    for (HostItem& item : items) {
        if (!isStream(item.name)) names.push_back(std::move(item.name));
    }
    return names;
}

Error PlainVolume::find(const std::string& folder, const std::string& component, std::string& name,
                        HostStatus& status) {
    name = hostComponent(component);
    // Such a host would find a file by other letters than it keeps, and by a short name of its own.
    const Error error = kHostIgnoresCase ? kFileNotFound : hostStatus(hostJoin(folder, name), status);
    if (error != kFileNotFound) return error;
    const std::vector<std::string> names = namesIn(folder);
    const std::string wanted = upperCase(name);
    auto match = std::find(names.begin(), names.end(), name);
    if (match == names.end()) {
        match = std::find_if(names.begin(), names.end(),
                             [&](const std::string& other) { return upperCase(other) == wanted; });
    }
    if (match != names.end()) {
        name = *match;
    } else if (ntfs() && component.find('~') != std::string::npos) {
        std::vector<std::string> shown(names.size());
        std::transform(names.begin(), names.end(), shown.begin(), windowsNameOf);
        const std::string longName = shortNames_.longNameOf(folder, component, std::move(shown));
        if (longName.empty()) return kFileNotFound;
        name = hostComponent(longName);
    } else {
        return kFileNotFound;
    }
    return hostStatus(hostJoin(folder, name), status);
}

Error PlainVolume::walk(const VolumePath& parsed, Place& place, std::vector<std::string>* shortForms) {
    place.folder = root_;
    Error error = hostStatus(root_, place.status);
    for (const std::string& component : parsed.components) {
        if (error == 0 && place.status.kind != HostKind::folder) error = kPathNotFound;
        if (error != 0) return error == kFileNotFound ? kPathNotFound : error;
        place.folder = place.path();
        place.found = find(place.folder, component, place.name, place.status);
        error = place.found;
        if (error == 0 && shortForms != nullptr) {
            shortForms->push_back(shortNameIn(place.folder, place.name));
        }
    }
    if (error != 0 && error != kFileNotFound) return error;
    if (parsed.folderOnly && (error != 0 || place.status.kind != HostKind::folder)) return kInvalidName;
    return 0;
}

Error PlainVolume::locate(const std::string& path, Place& place) {
    VolumePath parsed;
    Error error = parseVolumePath(path, ntfs() ? StreamNames::allowed : StreamNames::none, parsed);
    if (error == 0) error = walk(parsed, place, nullptr);
    place.stream = std::move(parsed.stream);
    if (error == 0 && !place.stream.empty()) findStream(place);
    return error;
}

Error PlainVolume::locateExisting(const std::string& path, Place& place) {
    const Error error = locate(path, place);
    return error != 0 ? error : place.found;
}

std::string PlainVolume::shortNameIn(const std::string& folder, const std::string& hostName) {
    std::string shown = windowsNameOf(hostName);
    if (!ntfs()) return shown;
    return shortNames_.shortNameOf(folder, shown, [&] {
        std::vector<std::string> names = namesIn(folder);
        std::transform(names.begin(), names.end(), names.begin(), windowsNameOf);
        return names;
    });
}

// Letter case is ignored in the names of streams, too.
void PlainVolume::findStream(Place& place) const {
    HostStatus status;
    std::vector<HostItem> items;
    if (hostStatus(place.streamPath(), status) == 0 || hostList(place.folder, items) != 0) return;
    const std::string prefix = place.name + ":";
    for (const HostItem& item : items) {
        if (!item.name.starts_with(prefix)) continue;
        const std::string stream = item.name.substr(prefix.size());
        if (equalIgnoringCase(stream, place.stream)) place.stream = stream;
    }
}

Error PlainVolume::open(const std::string& path, const OpenMode& mode, Opened& opened) {
    Place place;
    const Error error = locate(path, place);
    if (error != 0) return error;
    if (!place.stream.empty()) return openStream(place, mode, opened);
    return openHostFile(place.path(), mode, space_, opened);
}

// A stream can be made before its file: then the file is there without bytes.
Error PlainVolume::openStream(Place& place, const OpenMode& mode, Opened& opened) {
    if (place.found == 0 && place.status.kind == HostKind::other) return kAccessDenied;
    Opened file;
    Error error = place.found;
    if (error == kFileNotFound && mayCreate(mode.disposition)) {
        error = openHostFile(place.path(), {false, true, 0, kCreateNew}, space_, file);
    }
    if (error == 0) error = openHostFile(place.streamPath(), mode, space_, opened);
    if (error != 0 && file.created) {
        file.file.reset();
        hostRemove(place.path());
    }
    return error;
}

Error PlainVolume::openForQuery(const std::string& path, Opened& opened) {
    Place place;
    Error error = locateExisting(path, place);
    if (error == 0 && !place.stream.empty()) error = hostStatus(place.streamPath(), place.status);
    if (error != 0) return error;
    if (place.status.kind == HostKind::other) return kAccessDenied;
    opened.identity = place.status.identity;
    opened.created = false;
    opened.file = makeQueriedFile(place.status.kind == HostKind::folder ? 0 : place.status.size);
    return 0;
}

Error PlainVolume::attributes(const std::string& path, uint32_t& bits) {
    Place place;
    Error error = locateExisting(path, place);
    if (error == 0 && !place.stream.empty()) error = hostStatus(place.streamPath(), place.status);
    return error != 0 ? error : hostAttributes(place.status, bits);
}

Error PlainVolume::remove(const std::string& path) {
    Place place;
    Error error = locateExisting(path, place);
    if (error != 0) return error;
    if (!place.stream.empty()) return removeHostFile(place.streamPath(), *space_);
    error = removeHostFile(place.path(), *space_);
    if (error != 0) return error;
    shortNames_.forget(place.folder, windowsNameOf(place.name));
    return ntfs() ? removeStreams(place) : 0;
}

Error PlainVolume::removeStreams(const Place& place) {
    std::vector<HostItem> items;
    Error result = hostList(place.folder, items);
    for (const char* stream : kMacStreams)
        items.push_back({place.name + ":" + stream, false});
    for (const HostItem& item : items) {
        if (!item.name.starts_with(place.name + ":")) continue;
        const Error error = discardFile(hostJoin(place.folder, item.name), *space_);
        if (result == 0) result = error;
    }
    return result;
}

Error PlainVolume::shortPath(const std::string& path, std::string& shortForm) {
    Place place;
    if (!ntfs()) {
        const Error error = locateExisting(path, place);
        if (error == 0) shortForm = path;
        return error;
    }
    VolumePath parsed;
    std::vector<std::string> names;
    Error error = parseVolumePath(path, StreamNames::none, parsed);
    if (error == 0) error = walk(parsed, place, &names);
    if (error == 0) error = place.found;
    if (error != 0) return error;
    shortForm.clear();
    for (const std::string& name : names)
        shortForm += (shortForm.empty() ? "" : "\\") + name;
    if (parsed.folderOnly) shortForm += '\\';
    return 0;
}

}  // namespace

std::unique_ptr<Volume> makeFatVolume(const std::string& hostFolder) {
    return std::make_unique<PlainVolume>(hostFolder, PlainKind::fat);
}

std::unique_ptr<Volume> makeNtfsVolume(const std::string& hostFolder) {
    return std::make_unique<PlainVolume>(hostFolder, PlainKind::ntfs);
}

}  // namespace pc
