#include "pc/volumes/volume_host.h"

#include "pc/volumes/volume.h"

#include <windows.h>

#include <utility>

namespace pc {

namespace {

class QueriedFile final : public File {
  public:
    explicit QueriedFile(uint64_t size) : size_(size) {}
    Error size(uint64_t& bytes) override {
        bytes = size_;
        return 0;
    }

  private:
    uint64_t size_;
};

}  // namespace

bool mayCreate(uint32_t disposition) {
    return disposition == CREATE_NEW || disposition == CREATE_ALWAYS || disposition == OPEN_ALWAYS;
}

bool truncates(uint32_t disposition) {
    return disposition == CREATE_ALWAYS;
}

// Nothing of an empty file: a host may take that for the replacing of one, and write the new one out at the
// close.
Error Volume::truncate(const std::string&, uint32_t disposition, File& file) {
    uint64_t size = 0;
    const Error error = truncates(disposition) ? file.size(size) : 0;
    return error == 0 && size != 0 ? file.truncate() : error;
}

Error answerQuery(const HostStatus& status, Opened& opened) {
    if (status.kind == HostKind::other) return ERROR_ACCESS_DENIED;
    const bool folder = status.kind == HostKind::folder;
    opened = {std::make_unique<QueriedFile>(folder ? 0 : status.size), status.identity};
    opened.attributes = folder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    if (!status.ownerMayWrite) opened.attributes |= FILE_ATTRIBUTE_READONLY;
    return 0;
}

Error VolumeHost::openWith(const std::string& path, const HostAccess& access, Opened& opened) const {
    std::unique_ptr<HostFile> file;
    Error error = open(path, access, file);
    HostStatus status;
    if (error == 0) error = file->status(status);
    if (error != 0) {
        const bool made = file != nullptr && access.create;
        file.reset();
        if (made) host_->remove(path);
        return error;
    }
    opened.identity = std::move(status.identity);
    opened.created = access.create;
    opened.file = std::move(file);
    return 0;
}

Error VolumeHost::open(const std::string& path, const OpenMode& mode, Opened& opened) const {
    if (mode.disposition < CREATE_NEW || mode.disposition > OPEN_ALWAYS) return ERROR_INVALID_PARAMETER;
    HostAccess access{mode.read, mode.write || truncates(mode.disposition), false};
    HostStatus status;
    Error error = host_->status(path, status);
    if (error == ERROR_FILE_NOT_FOUND && mayCreate(mode.disposition)) {
        access.create = true;
        error = openWith(path, access, opened);
        // It is there although it has no status: a link that leads nowhere.
        const bool there = error == ERROR_FILE_EXISTS && mode.disposition != CREATE_NEW;
        return there ? ERROR_ACCESS_DENIED : error;
    }
    if (error != 0) return error;
    if (mode.disposition == CREATE_NEW) return ERROR_FILE_EXISTS;
    // Whoever may write to every file of the host does not write to what is marked as not to be written.
    const bool mayWrite = status.ownerMayWrite || !access.write;
    if (status.kind != HostKind::file || !mayWrite) return ERROR_ACCESS_DENIED;
    return openWith(path, access, opened);
}

Error VolumeHost::remove(const std::string& path) const {
    HostStatus status;
    Error error = host_->status(path, status);
    if (error != 0) return error;
    if (status.kind != HostKind::file || !status.ownerMayWrite) return ERROR_ACCESS_DENIED;
    error = host_->remove(path);
    if (error == 0) giveBack(status.size);
    return error;
}

Error VolumeHost::moveAll(const std::vector<std::pair<std::string, std::string>>& moves) const {
    for (size_t i = 0; i < moves.size(); ++i) {
        const Error error = host_->move(moves[i].first, moves[i].second);
        if (error == 0) continue;
        while (i-- > 0)
            host_->move(moves[i].second, moves[i].first);
        return error == ERROR_FILE_EXISTS ? ERROR_ALREADY_EXISTS : error;
    }
    return 0;
}

Error VolumeHost::discard(const std::string& path) const {
    HostStatus status;
    if (host_->status(path, status) != 0 || status.kind != HostKind::file) return 0;
    const Error error = host_->remove(path);
    if (error == 0) giveBack(status.size);
    return error;
}

}  // namespace pc
