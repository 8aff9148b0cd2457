// FAT and NTFS volumes: names in any letter case, and on NTFS streams and 8.3 names.
#include "pc/names/host_name.h"
#include "pc/names/letter_case.h"
#include "pc/volumes/short_names.h"
#include "pc/volumes/volume.h"
#include "pc/volumes/volume_host.h"
#include "pc/volumes/volume_path.h"

#include <windows.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace pc {

namespace {

enum class PlainKind { fat, ntfs };

class PlainVolume final : public Volume {
  public:
    PlainVolume(std::shared_ptr<Host> host, const std::string& folder, PlainKind kind)
        : host_(std::move(host)), root_(host_->absolute(folder)), kind_(kind) {}

    const char* fileSystemName() const override { return ntfs() ? "NTFS" : "FAT"; }
    Error open(const std::string& path, const OpenMode& mode, Opened& opened) override;
    Error truncate(const std::string& path, uint32_t disposition, File& file) override;
    Error openForQuery(const std::string& path, Opened& opened) override;
    Error remove(const std::string& path) override;
    Error move(const std::string& from, const std::string& to, const SharingCheck& check) override;
    Error shortPath(const std::string& path, std::string& shortForm) override;
    void setFreeSpace(uint64_t bytes) override { host_.setFreeSpace(bytes); }
    void losePower(PowerCut cut) override { host_->losePower(cut); }
    void setKeepsStreams(bool keeps) override { keepsStreams_ = keeps; }

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
    Error listStreams(const Place& place, std::vector<std::string>& streams) const;
    Error removeStreams(const Place& place);

    VolumeHost host_;
    std::string root_;
    PlainKind kind_;
    bool keepsStreams_ = false;
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
    if (host_->list(folder, items) != 0) return names;
    for (HostItem& item : items) {
        if (!isStream(item.name)) names.push_back(std::move(item.name));
    }
    return names;
}

Error PlainVolume::find(const std::string& folder, const std::string& component, std::string& name,
                        HostStatus& status) {
    name = hostComponent(component);
    const Error error = host_->status(hostJoin(folder, name), status);
    if (error != ERROR_FILE_NOT_FOUND) return error;
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
        if (longName.empty()) return ERROR_FILE_NOT_FOUND;
        name = hostComponent(longName);
    } else {
        return ERROR_FILE_NOT_FOUND;
    }
    return host_->status(hostJoin(folder, name), status);
}

Error PlainVolume::walk(const VolumePath& parsed, Place& place, std::vector<std::string>* shortForms) {
    place.folder = root_;
    Error error = host_->status(root_, place.status);
    for (const std::string& component : parsed.components) {
        if (error == 0 && place.status.kind != HostKind::folder) error = ERROR_PATH_NOT_FOUND;
        if (error != 0) return error == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : error;
        place.folder = place.path();
        place.found = find(place.folder, component, place.name, place.status);
        error = place.found;
        if (error == 0 && shortForms != nullptr) {
            shortForms->push_back(shortNameIn(place.folder, place.name));
        }
    }
    if (error != 0 && error != ERROR_FILE_NOT_FOUND) return error;
    if (parsed.folderOnly && (error != 0 || place.status.kind != HostKind::folder)) return ERROR_INVALID_NAME;
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
    if (host_->status(place.streamPath(), status) == 0 || host_->list(place.folder, items) != 0) return;
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
    return host_.open(place.path(), mode, opened);
}

Error PlainVolume::truncate(const std::string& path, uint32_t disposition, File& file) {
    Place place;
    Error error = 0;
    if (ntfs() && !keepsStreams_ && disposition == CREATE_ALWAYS) {
        error = locate(path, place);
        if (error == 0 && place.stream.empty()) error = removeStreams(place);
    }
    return error == 0 ? Volume::truncate(path, disposition, file) : error;
}

// A stream can be made before its file: then the file is there without bytes.
Error PlainVolume::openStream(Place& place, const OpenMode& mode, Opened& opened) {
    if (place.found == 0 && place.status.kind == HostKind::other) return ERROR_ACCESS_DENIED;
    Opened file;
    Error error = place.found;
    if (error == ERROR_FILE_NOT_FOUND && mayCreate(mode.disposition)) {
        error = host_.open(place.path(), {false, true, 0, CREATE_NEW}, file);
    }
    if (error == 0) error = host_.open(place.streamPath(), mode, opened);
    if (error != 0 && file.created) {
        file.file.reset();
        host_->remove(place.path());
    }
    return error;
}

Error PlainVolume::openForQuery(const std::string& path, Opened& opened) {
    Place place;
    Error error = locateExisting(path, place);
    if (error == 0 && !place.stream.empty()) error = host_->status(place.streamPath(), place.status);
    return error == 0 ? answerQuery(place.status, opened) : error;
}

Error PlainVolume::remove(const std::string& path) {
    Place place;
    Error error = locateExisting(path, place);
    if (error != 0) return error;
    if (!place.stream.empty()) return host_.remove(place.streamPath());
    error = host_.remove(place.path());
    return error == 0 ? removeStreams(place) : error;
}

// With its colon, as it follows the file's name on the host.
Error PlainVolume::listStreams(const Place& place, std::vector<std::string>& streams) const {
    std::vector<HostItem> items;
    const Error error = ntfs() ? host_->list(place.folder, items) : 0;
    for (const HostItem& item : items) {
        if (item.name.starts_with(place.name + ":")) streams.push_back(item.name.substr(place.name.size()));
    }
    return error;
}

Error PlainVolume::removeStreams(const Place& place) {
    std::vector<std::string> streams;
    Error result = listStreams(place, streams);
    for (const std::string& stream : streams) {
        const Error error = host_.discard(place.path() + stream);
        if (result == 0) result = error;
    }
    return result;
}

Error PlainVolume::move(const std::string& from, const std::string& to, const SharingCheck& check) {
    Place source, target;
    Error error = locateExisting(from, source);
    if (error == 0) error = locate(to, target);
    if (error != 0) return error;
    if (!source.stream.empty() || !target.stream.empty()) return ERROR_INVALID_NAME;
    if (source.status.kind != HostKind::file) return ERROR_ACCESS_DENIED;
    if (target.found == 0) return ERROR_ALREADY_EXISTS;
    std::vector<std::string> forks = {""};
    error = listStreams(source, forks);
    std::vector<std::pair<std::string, std::string>> moves;
    for (const std::string& fork : forks) {
        HostStatus status;
        moves.emplace_back(source.path() + fork, target.path() + fork);
        if (error == 0) error = host_->status(moves.back().first, status);
        if (error == 0) error = check(status.identity);
    }
    return error == 0 ? host_.moveAll(moves) : error;
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

std::unique_ptr<Volume> makeFatVolume(std::shared_ptr<Host> host, const std::string& folder) {
    return std::make_unique<PlainVolume>(std::move(host), folder, PlainKind::fat);
}

std::unique_ptr<Volume> makeNtfsVolume(std::shared_ptr<Host> host, const std::string& folder) {
    return std::make_unique<PlainVolume>(std::move(host), folder, PlainKind::ntfs);
}

}  // namespace pc
