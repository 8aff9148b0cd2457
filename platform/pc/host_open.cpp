#include "host_open.h"

#include "win32_error.h"

#include <utility>

namespace pc {

namespace {

class QueriedFile final : public File {
  public:
    explicit QueriedFile(uint64_t size) : size_(size) {}
    Error read(uint64_t, void*, size_t, size_t&) override { return kAccessDenied; }
    Error write(uint64_t, const void*, size_t) override { return kAccessDenied; }
    Error size(uint64_t& bytes) override {
        bytes = size_;
        return 0;
    }
    Error setSize(uint64_t) override { return kAccessDenied; }
    Error flush() override { return kAccessDenied; }

  private:
    uint64_t size_;
};

Error openWith(const std::string& path, const HostAccess& access, const std::shared_ptr<SpaceLimit>& space,
               Opened& opened) {
    std::unique_ptr<HostFile> file;
    Error error = HostFile::open(path, access, space, file);
    HostStatus status;
    if (error == 0) error = file->status(status);
    if (error != 0) {
        const bool made = file != nullptr && access.create;
        file.reset();
        if (made) hostRemove(path);
        return error;
    }
    opened.identity = std::move(status.identity);
    opened.created = access.create;
    opened.file = std::move(file);
    return 0;
}

}  // namespace

Error openHostFile(const std::string& path, const OpenMode& mode, const std::shared_ptr<SpaceLimit>& space,
                   Opened& opened) {
    if (mode.disposition < kCreateNew || mode.disposition > kTruncateExisting) return kInvalidParameter;
    HostAccess access{mode.read, mode.write || truncates(mode.disposition), false};
    HostStatus status;
    Error error = hostStatus(path, status);
    if (error == kFileNotFound && mayCreate(mode.disposition)) {
        access.create = true;
        error = openWith(path, access, space, opened);
        // It is there although it has no status: a link that leads nowhere.
        return error == kFileExists && mode.disposition != kCreateNew ? kAccessDenied : error;
    }
    if (error != 0) return error;
    if (mode.disposition == kCreateNew) return kFileExists;
    // Whoever may write to every file of the host does not write to what is marked as not to be written.
    const bool mayWrite = status.ownerMayWrite || !access.write;
    if (status.kind != HostKind::file || !mayWrite) return kAccessDenied;
    return openWith(path, access, space, opened);
}

Error hostAttributes(const HostStatus& status, uint32_t& bits) {
    if (status.kind == HostKind::other) return kAccessDenied;
    bits = status.kind == HostKind::folder ? kAttributeDirectory : kAttributeArchive;
    if (!status.ownerMayWrite) bits |= kAttributeReadOnly;
    return 0;
}

Error removeHostFile(const std::string& path, SpaceLimit& space) {
    HostStatus status;
    Error error = hostStatus(path, status);
    if (error != 0) return error;
    if (status.kind != HostKind::file || !status.ownerMayWrite) return kAccessDenied;
    error = hostRemove(path);
    if (error == 0) space.giveBack(status.size);
    return error;
}

std::unique_ptr<File> makeQueriedFile(uint64_t size) {
    return std::make_unique<QueriedFile>(size);
}

}  // namespace pc
