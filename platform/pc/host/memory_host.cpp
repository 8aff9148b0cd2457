#include "pc/host/memory_host.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <ctime>

namespace pc {

namespace {

constexpr size_t kLongestName = 255;
constexpr uint64_t kMostBytes = 0x40000000;

// The bytes of a file, shared with its copies until one is written to. What lies behind them is 0: a hole at
// the end takes no memory.
class Contents {
  public:
    uint64_t size() const { return size_; }

    size_t read(uint64_t offset, void* buffer, size_t count) const {
        if (offset >= size_ || count == 0) return 0;
        count = static_cast<size_t>(std::min<uint64_t>(count, size_ - offset));
        const size_t start = static_cast<size_t>(std::min<uint64_t>(offset, bytes_->size()));
        const size_t there = std::min(count, bytes_->size() - start);
        std::memcpy(buffer, bytes_->data() + start, there);
        std::memset(static_cast<char*>(buffer) + there, 0, count - there);
        return count;
    }

    bool write(uint64_t offset, const void* buffer, size_t count) {
        const uint64_t end = offset + count;
        if (end > kMostBytes) return false;
        std::string& bytes = own();
        if (bytes.size() < end) bytes.resize(static_cast<size_t>(end));
        std::memcpy(bytes.data() + offset, buffer, count);
        size_ = std::max(size_, end);
        return true;
    }

    void resize(uint64_t bytes) {
        if (bytes < bytes_->size()) own().resize(static_cast<size_t>(bytes));
        size_ = bytes;
    }

  private:
    std::string& own() {
        if (bytes_.use_count() > 1) bytes_ = std::make_shared<std::string>(*bytes_);
        return *bytes_;
    }

    std::shared_ptr<std::string> bytes_ = std::make_shared<std::string>();
    uint64_t size_ = 0;
};

}  // namespace

struct MemoryHost::Node {
    bool folder = false;
    bool writable = true;
    int64_t modified = std::time(nullptr);
    // Files.
    Contents now;
    Contents flushed;
    // Folders: the names that programs see, and those that a disk has which is ahead of the bytes, or behind.
    Names names;
    Names ahead;
    Names behind;

    void status(HostStatus& status) const {
        status.kind = folder ? HostKind::folder : HostKind::file;
        status.size = now.size();
        status.device = "memory";
        status.identity = std::to_string(reinterpret_cast<uintptr_t>(this));
        status.ownerMayWrite = writable;
        status.modified = modified;
    }
};

class MemoryFile final : public HostFile {
  public:
    MemoryFile(MemoryHost& host, MemoryHost::NodeRef node, const HostAccess& access,
               std::shared_ptr<SpaceLimit> space)
        : HostFile(std::move(space)), host_(host), node_(std::move(node)), access_(access) {}

    Error read(uint64_t offset, void* buffer, size_t count, size_t& got) override {
        got = access_.read ? node_->now.read(offset, buffer, count) : 0;
        return access_.read ? 0 : ERROR_ACCESS_DENIED;
    }
    Error size(uint64_t& bytes) override {
        bytes = node_->now.size();
        return 0;
    }
    Error flush() override {
        host_.flush(node_);
        return 0;
    }
    Error close() override { return access_.write ? host_.closeError_ : 0; }
    Error status(HostStatus& status) const override {
        node_->status(status);
        return 0;
    }
    void takePermissions(const std::string& path, bool ownerWrites) override {
        HostStatus status;
        if (host_.status(path, status) == 0) node_->writable = status.ownerMayWrite || ownerWrites;
    }

  protected:
    Error writeAll(uint64_t offset, const void* buffer, size_t count) override {
        if (!access_.write) return ERROR_ACCESS_DENIED;
        if (!node_->now.write(offset, buffer, count)) return ERROR_DISK_FULL;
        node_->modified = std::time(nullptr);
        return 0;
    }
    Error resize(uint64_t bytes) override {
        if (!access_.write) return ERROR_ACCESS_DENIED;
        node_->now.resize(bytes);
        return 0;
    }

  private:
    MemoryHost& host_;
    MemoryHost::NodeRef node_;
    HostAccess access_;
};

MemoryHost::MemoryHost() : root_(std::make_shared<Node>()) {
    root_->folder = true;
}

MemoryHost::~MemoryHost() = default;

MemoryHost::NodeRef MemoryHost::Place::share() const {
    return folder->names.find(name)->second;
}

Error MemoryHost::find(std::string_view path, Place& place) const {
    place = {root_.get(), "", root_.get()};
    for (size_t start = 0; start < path.size();) {
        const size_t end = std::min(path.find('/', start), path.size());
        const std::string_view name = path.substr(start, end - start);
        start = end + 1;
        if (name.empty()) continue;
        if (place.node == nullptr || !place.node->folder) return ERROR_PATH_NOT_FOUND;
        if (name.size() > kLongestName) return ERROR_FILENAME_EXCED_RANGE;
        const auto found = place.node->names.find(name);
        place = {place.node, name, found != place.node->names.end() ? found->second.get() : nullptr};
    }
    return place.node != nullptr ? 0 : ERROR_FILE_NOT_FOUND;
}

Error MemoryHost::findFile(std::string_view path, Place& place) const {
    const Error error = find(path, place);
    return error == 0 && place.node->folder ? ERROR_ACCESS_DENIED : error;
}

Error MemoryHost::status(const std::string& path, HostStatus& status) {
    Place place;
    const Error error = find(path, place);
    if (error == 0) place.node->status(status);
    return error;
}

Error MemoryHost::list(const std::string& folder, std::vector<HostItem>& items) {
    items.clear();
    Place place;
    const Error error = find(folder, place);
    if (error != 0) return error;
    if (!place.node->folder) return ERROR_PATH_NOT_FOUND;
    for (const auto& [name, node] : place.node->names)
        items.push_back({name, node->folder});
    return 0;
}

Error MemoryHost::remove(const std::string& path) {
    Place place;
    const Error error = findFile(path, place);
    if (error != 0) return error;
    for (Names* const names : {&place.folder->names, &place.folder->ahead})
        names->erase(std::string(place.name));
    return 0;
}

Error MemoryHost::replace(const std::string& from, const std::string& to) {
    Place source, target;
    Error error = findFile(from, source);
    if (error != 0) return error;
    error = findFile(to, target);
    if (error != 0 && error != ERROR_FILE_NOT_FOUND) return error;
    const NodeRef moved = source.share();
    for (Names Node::*const names : {&Node::names, &Node::ahead}) {
        (source.folder->*names).erase(std::string(source.name));
        (target.folder->*names)[std::string(target.name)] = moved;
    }
    return 0;
}

Error MemoryHost::move(const std::string& from, const std::string& to) {
    Place target;
    const Error error = find(to, target);
    if (error == 0) return ERROR_FILE_EXISTS;
    return error == ERROR_FILE_NOT_FOUND ? replace(from, to) : error;
}

Error MemoryHost::open(const std::string& path, const HostAccess& access, std::shared_ptr<SpaceLimit> space,
                       std::unique_ptr<HostFile>& file) {
    Place place;
    Error error = findFile(path, place);
    if (access.create && (error == 0 || error == ERROR_ACCESS_DENIED)) return ERROR_FILE_EXISTS;
    NodeRef node;
    if (access.create && error == ERROR_FILE_NOT_FOUND) {
        error = 0;
        node = place.folder->names[std::string(place.name)] = std::make_shared<Node>();
    } else if (error == 0) {
        node = place.share();
    }
    if (error == 0 && access.write && !node->writable) error = ERROR_ACCESS_DENIED;
    if (error == 0) file = std::make_unique<MemoryFile>(*this, std::move(node), access, std::move(space));
    return error;
}

void MemoryHost::makeFolder(const std::string& path) {
    NodeRef folder = root_;
    for (size_t start = 0; start < path.size();) {
        const size_t end = std::min(path.find('/', start), path.size());
        const std::string name = path.substr(start, end - start);
        start = end + 1;
        if (name.empty()) continue;
        NodeRef& node = folder->names[name];
        if (node == nullptr) node = std::make_shared<Node>();
        node->folder = true;
        folder->ahead[name] = folder->behind[name] = node;
        folder = NodeRef(node);
    }
}

Error MemoryHost::link(const std::string& existing, const std::string& path) {
    Place source, target;
    const Error error = findFile(existing, source);
    if (error != 0) return error;
    if (find(path, target) != ERROR_FILE_NOT_FOUND) return ERROR_FILE_EXISTS;
    const NodeRef node = target.folder->names[std::string(target.name)] = source.share();
    flush(node);
    return 0;
}

Error MemoryHost::setWritable(const std::string& path, bool writable) {
    Place place;
    const Error error = findFile(path, place);
    if (error == 0) place.node->writable = writable;
    return error;
}

template <typename Action>
void MemoryHost::forEachFolder(Action action) {
    std::vector<NodeRef> folders = {root_};
    for (size_t i = 0; i < folders.size(); ++i) {
        const NodeRef folder = folders[i];
        action(*folder);
        for (const auto& [name, node] : folder->names) {
            if (node->folder) folders.push_back(node);
        }
    }
}

// A stream, which a ":" in its name tells, is kept in the record of its file: that has its name then, too.
void MemoryHost::flush(const NodeRef& file) {
    file->flushed = file->now;
    forEachFolder([&](Node& folder) {
        std::erase_if(folder.behind, [&](const auto& entry) { return entry.second == file; });
        for (const auto& [name, node] : folder.names) {
            const auto owner = folder.names.find(name.substr(0, name.find(':')));
            if (node == file) folder.ahead[name] = folder.behind[name] = node;
            if (node == file && owner != folder.names.end())
                folder.ahead[owner->first] = folder.behind[owner->first] = owner->second;
        }
    });
}

void MemoryHost::flushAll() {
    forEachFolder([](Node& folder) {
        folder.ahead = folder.behind = folder.names;
        for (const auto& [name, node] : folder.names)
            node->flushed = node->now;
    });
}

void MemoryHost::losePower(PowerCut cut) {
    forEachFolder([cut](Node& folder) {
        folder.names = cut == PowerCut::keepsNames ? folder.ahead : folder.behind;
        folder.ahead = folder.behind = folder.names;
        for (const auto& [name, node] : folder.names)
            node->now = node->flushed;
    });
}

}  // namespace pc
