// Mac volumes: the driver's pseudo-files over AppleDouble files. "._name" beside a file or folder keeps its
// Mac information, "._." in the root that of the volume.
#include "pc/names/host_name.h"
#include "pc/names/letter_case.h"
#include "pc/names/mac_host_name.h"
#include "pc/volumes/finder_record.h"
#include "pc/volumes/mac_item.h"
#include "pc/volumes/volume.h"
#include "pc/volumes/volume_host.h"
#include "pc/volumes/volume_path.h"

#include <windows.h>

#include <map>
#include <utility>

namespace pc {

namespace {

enum class Fork { data, resource, finderInfo };

// What follows the identity of a file in those of its pseudo-files.
constexpr const char* kResourceIdentity = "/resource";
constexpr const char* kFinderIdentity = "/finder";

constexpr std::string_view kRootStoreName = "._.";
constexpr std::string_view kUnnamedVolume = "Untitled";
constexpr size_t kStoresKeptUnasked = 64;

Fork forkNamed(std::string_view component) {
    if (component.size() != kResourcePseudoFile.size()) return Fork::data;
    if (equalIgnoringCase(component, kResourcePseudoFile)) return Fork::resource;
    return equalIgnoringCase(component, kFinderPseudoFile) ? Fork::finderInfo : Fork::data;
}

class MacVolume final : public Volume, public MacDirectory {
  public:
    MacVolume(std::shared_ptr<Host> host, const std::string& folder, FinderFlush flush)
        : host_(std::move(host)), root_(host_->absolute(folder)), flush_(flush) {}

    const char* fileSystemName() const override { return "HFS"; }
    Error open(const std::string& path, const OpenMode& mode, Opened& opened) override;
    Error openForQuery(const std::string& path, Opened& opened) override;
    Error remove(const std::string& path) override;
    Error move(const std::string& from, const std::string& to, const SharingCheck& check) override;
    Error shortPath(const std::string& path, std::string& shortForm) override;
    void setFreeSpace(uint64_t bytes) override { host_.setFreeSpace(bytes); }
    void losePower(PowerCut cut) override { host_->losePower(cut); }
    MacDirectory* macDirectory() override { return this; }

    Error find(const std::string& folder, const MacName& name, std::string& windowsName) override;
    Error create(const std::string& folder, const MacName& name, std::string& windowsName) override;

  private:
    using Store = std::shared_ptr<AppleDouble>;

    struct Place {
        MacItem item;
        std::string folder;  // on the host; of the root, itself
        Fork fork = Fork::data;
        bool driversOwn = false;
        Error found = 0;  // 2 when the file is missing
    };

    std::string hostPathOf(const std::vector<std::string>& components) const;
    std::string folderOf(const MacItem& item) const;
    Error locate(const std::string& path, Place& place) const;
    Error locateExisting(const std::string& path, Place& place) const;
    std::string storePath(const Place& place) const;
    Error storeKey(const Place& place, std::string& key) const;
    Error openStore(const Place& place, Store& store);
    Error openData(const Place& place, const OpenMode& mode, Opened& opened);
    Error openResource(const Place& place, const OpenMode& mode, Opened& opened);
    Error openFinderInfo(const Place& place, const OpenMode& mode, Opened& opened);
    Error removeFile(const Place& place);
    Error findInFolder(const std::string& path, const MacName& name, MacItem& item) const;
    Error openRemains(const MacItem& item, Place& place, Store& store);
    Error keepRealName(Place& place, AppleDouble& store, const std::string& macName) const;

    VolumeHost host_;
    std::string root_;
    FinderFlush flush_;
    std::map<std::string, std::weak_ptr<AppleDouble>> stores_;  // those that are open
};

// The host may hold a stand-in for a reserved character as it is.
std::string MacVolume::hostPathOf(const std::vector<std::string>& components) const {
    std::string plain = root_;
    for (const std::string& component : components)
        plain = hostJoin(plain, hostNameOf(component));
    HostStatus status;
    if (host_->status(plain, status) == 0) return plain;
    std::string path = root_;
    for (const std::string& component : components) {
        const std::string name = hostNameOf(component);
        const bool literal = name != component && host_->status(hostJoin(path, name), status) != 0 &&
                             host_->status(hostJoin(path, component), status) == 0;
        path = hostJoin(path, literal ? component : name);
    }
    return path;
}

std::string MacVolume::folderOf(const MacItem& item) const {
    const size_t slash = item.path.rfind('/');
    return item.root || slash < root_.size() ? root_ : item.path.substr(0, slash);
}

Error MacVolume::locate(const std::string& path, Place& place) const {
    VolumePath parsed;
    const Error error = parseVolumePath(path, StreamNames::none, parsed);
    if (error != 0) return error;
    std::vector<std::string>& components = parsed.components;
    if (!components.empty()) place.fork = forkNamed(components.back());
    if (place.fork != Fork::data) {
        if (parsed.folderOnly) return ERROR_INVALID_NAME;
        components.pop_back();
    }
    MacItem& item = place.item;
    item.root = components.empty();
    item.path = hostPathOf(components);
    item.name = item.path.substr(item.path.rfind('/') + 1);
    place.folder = folderOf(item);
    if (item.root && item.name.empty()) item.name = kUnnamedVolume;
    for (size_t i = 0; i < components.size(); ++i) {
        if (!belongsToDriver(components[i])) continue;
        if (i + 1 < components.size()) return ERROR_PATH_NOT_FOUND;
        place.driversOwn = true;
    }
    place.found = host_->status(item.path, item.status);
    // A link to an AppleDouble file is one, too.
    if (place.found == 0 && !item.root) {
        const std::string target = host_->absolute(item.path);
        place.driversOwn = place.driversOwn || belongsToDriver(target.substr(target.rfind('/') + 1));
    }
    if (place.driversOwn) place.found = ERROR_FILE_NOT_FOUND;
    if (place.found != 0 && place.found != ERROR_FILE_NOT_FOUND) return place.found;
    const bool folder = place.found == 0 && item.status.kind == HostKind::folder;
    return parsed.folderOnly && !folder ? ERROR_INVALID_NAME : 0;
}

Error MacVolume::locateExisting(const std::string& path, Place& place) const {
    const Error error = locate(path, place);
    if (error != 0 || place.found != 0) return error != 0 ? error : place.found;
    return place.item.status.kind == HostKind::other ? ERROR_ACCESS_DENIED : 0;
}

std::string MacVolume::storePath(const Place& place) const {
    if (place.item.root) return hostJoin(root_, kRootStoreName);
    return hostJoin(place.folder, std::string(kDriverPrefix) + place.item.name);
}

// The same for every path that leads to one AppleDouble file.
Error MacVolume::storeKey(const Place& place, std::string& key) const {
    HostStatus folder;
    const Error error = host_->status(place.folder, folder);
    const std::string path = storePath(place);
    const std::string name = path.substr(path.rfind('/') + 1);
    key = folder.identity + "/" + name;
    return error;
}

Error MacVolume::openStore(const Place& place, Store& store) {
    std::string key;
    Error error = storeKey(place, key);
    if (error != 0) return error;
    if (stores_.size() > kStoresKeptUnasked) {
        std::erase_if(stores_, [](const auto& entry) { return entry.second.expired(); });
    }
    store = stores_[key].lock();
    if (store != nullptr) return 0;
    store = std::make_shared<AppleDouble>(storePath(place), host_);
    error = store->load();
    if (error == 0) stores_[key] = store;
    return error;
}

Error MacVolume::open(const std::string& path, const OpenMode& mode, Opened& opened) {
    if (mode.disposition < CREATE_NEW || mode.disposition > OPEN_ALWAYS) return ERROR_INVALID_PARAMETER;
    Place place;
    Error error = locate(path, place);
    if (error != 0) return error;
    if (place.driversOwn) return mayCreate(mode.disposition) ? ERROR_ACCESS_DENIED : ERROR_FILE_NOT_FOUND;
    if (place.fork == Fork::data) return openData(place, mode, opened);
    if (place.found == 0 && place.item.status.kind == HostKind::other) place.found = ERROR_ACCESS_DENIED;
    if (place.found != 0) return place.found;
    if (place.fork == Fork::resource) return openResource(place, mode, opened);
    return openFinderInfo(place, mode, opened);
}

// A file whose Mac information is damaged is not emptied: what is written next could not be kept with it.
Error MacVolume::openData(const Place& place, const OpenMode& mode, Opened& opened) {
    Store store;
    const Error error = place.found == 0 && truncates(mode.disposition) ? openStore(place, store) : 0;
    return error == 0 ? host_.open(place.item.path, mode, opened) : error;
}

Error MacVolume::openResource(const Place& place, const OpenMode& mode, Opened& opened) {
    Store store;
    Error error = openStore(place, store);
    if (error != 0) return error;
    const bool exists = store->has(kResourceFork);
    if (exists && mode.disposition == CREATE_NEW) return ERROR_FILE_EXISTS;
    if (!exists && !mayCreate(mode.disposition)) return ERROR_FILE_NOT_FOUND;
    if (!exists) {
        std::vector<AppleDoubleEdit> edits;
        if (!store->exists()) edits = newAppleDoubleEntries(place.item);
        error = store->rewrite(edits, {ResourcePlan::makeLast, 0}, place.item.path);
    }
    if (error == 0 && (mode.write || truncates(mode.disposition))) error = store->openForWriting();
    if (error != 0) return error;
    opened.identity = place.item.status.identity + kResourceIdentity;
    opened.created = !exists;
    opened.file = makeResourceForkFile(std::move(store));
    return 0;
}

Error MacVolume::openFinderInfo(const Place& place, const OpenMode& mode, Opened& opened) {
    if (mode.disposition == CREATE_NEW) return ERROR_FILE_EXISTS;
    Store store;
    const Error error = openStore(place, store);
    if (error != 0) return error;
    opened.identity = place.item.status.identity + kFinderIdentity;
    opened.created = false;
    opened.file = makeFinderInfoFile(*host_, place.item, std::move(store), flush_);
    return 0;
}

// The size of the Finder information is known without reading it: a damaged AppleDouble file of the root does
// not turn the volume into one of another kind.
Error MacVolume::openForQuery(const std::string& path, Opened& opened) {
    Place place;
    Error error = locateExisting(path, place);
    if (error != 0) return error;
    HostStatus status = place.item.status;
    if (place.fork == Fork::data) return answerQuery(status, opened);
    const bool resource = place.fork == Fork::resource;
    status.kind = HostKind::file;
    status.size = sizeof(FinderRecord);
    status.identity += resource ? kResourceIdentity : kFinderIdentity;
    if (resource) {
        Store store;
        error = openStore(place, store);
        if (error == 0 && !store->has(kResourceFork)) error = ERROR_FILE_NOT_FOUND;
        if (error != 0) return error;
        status.size = store->length(kResourceFork);
    }
    error = answerQuery(status, opened);
    opened.attributes = FILE_ATTRIBUTE_NORMAL;
    return error;
}

Error MacVolume::remove(const std::string& path) {
    Place place;
    Error error = locateExisting(path, place);
    if (error != 0) return error;
    if (place.fork == Fork::finderInfo) return ERROR_ACCESS_DENIED;
    if (place.fork == Fork::data) return removeFile(place);
    Store store;
    error = openStore(place, store);
    if (error != 0) return error;
    if (!store->has(kResourceFork)) return ERROR_FILE_NOT_FOUND;
    return store->rewrite({}, {ResourcePlan::drop, 0}, place.item.path);
}

// The file goes first: its Mac information must not be lost while it stays. What is at the place of the
// AppleDouble file, but is none, is not the driver's to delete.
Error MacVolume::removeFile(const Place& place) {
    std::string key;
    Error error = storeKey(place, key);
    if (error != 0) return error;
    Store store;
    const Error unreadable = openStore(place, store);
    error = host_.remove(place.item.path);
    if (error != 0 || unreadable != 0) return error;
    store->forget();
    stores_.erase(key);
    return host_.discard(storePath(place));
}

Error MacVolume::move(const std::string& from, const std::string& to, const SharingCheck& check) {
    Place source, target;
    Error error = locateExisting(from, source);
    if (error == 0) error = locate(to, target);
    if (error != 0) return error;
    const bool file = source.fork == Fork::data && source.item.status.kind == HostKind::file;
    if (!file || target.fork != Fork::data || target.driversOwn) return ERROR_ACCESS_DENIED;
    if (target.found == 0) return ERROR_ALREADY_EXISTS;
    for (const char* const fork : {"", kResourceIdentity, kFinderIdentity}) {
        if (error == 0) error = check(source.item.status.identity + fork);
    }
    Store store;
    if (error == 0) error = openStore(source, store);
    if (error != 0) return error;
    std::vector<std::pair<std::string, std::string>> moves = {{source.item.path, target.item.path}};
    if (store->exists()) moves.emplace_back(storePath(source), storePath(target));
    store.reset();
    return host_.moveAll(moves);
}

Error MacVolume::shortPath(const std::string& path, std::string& shortForm) {
    Place place;
    Error error = locateExisting(path, place);
    if (error == 0 && place.fork == Fork::resource) {
        Opened opened;
        error = openForQuery(path, opened);
    }
    if (error == 0) shortForm = path;
    return error;
}

// A file that keeps another Mac name than its host name tells has the host name that this Mac name would get,
// so that the look at the host name finds it, too.
Error MacVolume::findInFolder(const std::string& path, const MacName& name, MacItem& item) const {
    Place folder;
    const Error error = locateExisting(path, folder);
    if (error == ERROR_FILE_NOT_FOUND) return ERROR_PATH_NOT_FOUND;
    if (error != 0) return error;
    if (folder.fork != Fork::data || folder.item.status.kind != HostKind::folder) return ERROR_PATH_NOT_FOUND;

    const auto place = [&](const std::string& hostName) {
        item.name = hostName;
        item.path = hostJoin(folder.item.path, hostName);
        return host_->status(item.path, item.status);
    };
    const std::string usual = hostNameFor(name);
    const Error found = place(usual);
    if (found != ERROR_FILE_NOT_FOUND || hasOneHostName(name)) return found;
    std::vector<HostItem> items;
    const Error unread = host_->list(folder.item.path, items);
    if (unread != 0) return unread;
    for (const HostItem& other : items) {
        if (!belongsToDriver(other.name) && standsFor(other.name, name)) return place(other.name);
    }
    return place(usual);
}

Error MacVolume::find(const std::string& folder, const MacName& name, std::string& windowsName) {
    MacItem item;
    Error error = findInFolder(folder, name, item);
    windowsName = windowsNameOf(item.name);
    if (error != ERROR_FILE_NOT_FOUND) return error;
    Place place;
    Store store;
    error = openRemains(item, place, store);
    return error == 0 ? ERROR_FILE_NOT_FOUND : error == ERROR_FILE_EXISTS ? 0 : error;
}

// What is beside a file that is not there yet. 80 when a former file of the name left its Mac information: it
// may be all that is left of a file that was moved without it, and is no other file's to write over.
Error MacVolume::openRemains(const MacItem& item, Place& place, Store& store) {
    place.item = item;
    place.folder = folderOf(item);
    const Error error = openStore(place, store);
    return error == 0 && store->exists() ? ERROR_FILE_EXISTS : error;
}

Error MacVolume::create(const std::string& folder, const MacName& name, std::string& windowsName) {
    MacItem item;
    Error error = findInFolder(folder, name, item);
    windowsName = windowsNameOf(item.name);
    if (error == 0) return item.status.kind == HostKind::file ? 0 : ERROR_ACCESS_DENIED;
    if (error != ERROR_FILE_NOT_FOUND) return error;
    Place place;
    Store store;
    error = openRemains(item, place, store);
    if (error != 0) return error;

    OpenMode mode;
    mode.write = true;
    mode.disposition = CREATE_NEW;
    Opened opened;
    error = host_.open(item.path, mode, opened);
    if (error != 0) return error == ERROR_FILE_EXISTS ? ERROR_ACCESS_DENIED : error;
    const auto* const roman = std::get_if<std::string>(&name);
    if (roman != nullptr && macNameFromHost(item.name) != *roman) error = keepRealName(place, *store, *roman);
    if (error == 0) return 0;
    opened.file.reset();
    host_.remove(item.path);
    return error;
}

Error MacVolume::keepRealName(Place& place, AppleDouble& store, const std::string& macName) const {
    const Error error = host_->status(place.item.path, place.item.status);
    if (error != 0) return error;
    std::vector<AppleDoubleEdit> edits = newAppleDoubleEntries(place.item);
    for (AppleDoubleEdit& edit : edits) {
        if (edit.id == kRealName) edit.bytes.assign(macName.begin(), macName.end());
    }
    return store.rewrite(edits, {}, place.item.path);
}

}  // namespace

std::unique_ptr<Volume> makeMacVolume(std::shared_ptr<Host> host, const std::string& folder,
                                      FinderFlush flush) {
    return std::make_unique<MacVolume>(std::move(host), folder, flush);
}

}  // namespace pc
