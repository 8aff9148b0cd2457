// POSIX hosts.
#include "pc/host/host.h"

#include <windows.h>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace pc {

namespace {

static_assert(sizeof(off_t) == sizeof(int64_t));

constexpr mode_t kNewFileMode = 0666;

Error errorFrom(int code) {
    switch (code) {
    case EACCES:
    case EPERM:
    case EISDIR:
    case EBADF:  // reading what was opened for writing, or the other way round
    case ENXIO: return ERROR_ACCESS_DENIED;
    case ENOENT: return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
    case ELOOP: return ERROR_PATH_NOT_FOUND;
    case ENOSPC:
    case EDQUOT: return ERROR_DISK_FULL;
    case EFBIG: return ERROR_FILE_TOO_LARGE;
    case EBUSY:
    case ETXTBSY: return ERROR_SHARING_VIOLATION;
    case EINVAL:
    case EILSEQ: return ERROR_INVALID_NAME;
    case EROFS: return ERROR_WRITE_PROTECT;
    case EMFILE:
    case ENFILE: return ERROR_TOO_MANY_OPEN_FILES;
    case ENOMEM: return ERROR_NOT_ENOUGH_MEMORY;
    case ENAMETOOLONG: return ERROR_FILENAME_EXCED_RANGE;
    case EEXIST: return ERROR_FILE_EXISTS;
    case EIO: return ERROR_IO_DEVICE;
    default: return ERROR_GEN_FAILURE;
    }
}

// Of a call about `path` that has just failed: tells a missing folder from a missing file.
Error pathError(const std::string& path) {
    const int code = errno;
    if (code != ENOENT) return errorFrom(code);
    const size_t slash = path.rfind('/');
    if (slash == std::string::npos || slash == 0) return ERROR_FILE_NOT_FOUND;
    struct stat folder;
    const bool there = ::stat(path.substr(0, slash).c_str(), &folder) == 0 && S_ISDIR(folder.st_mode);
    return there ? ERROR_FILE_NOT_FOUND : ERROR_PATH_NOT_FOUND;
}

HostStatus statusFrom(const struct stat& raw) {
    HostStatus status;
    if (S_ISREG(raw.st_mode)) status.kind = HostKind::file;
    if (S_ISDIR(raw.st_mode)) status.kind = HostKind::folder;
    status.size = static_cast<uint64_t>(raw.st_size);
    status.device = std::to_string(raw.st_dev);
    status.identity = status.device + ":" + std::to_string(raw.st_ino);
    status.ownerMayWrite = (raw.st_mode & S_IWUSR) != 0;
    status.modified = raw.st_mtime;
    return status;
}

bool isFolder(const std::string& folder, const dirent& entry) {
    if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_DIR;
    struct stat raw;
    return ::lstat(hostJoin(folder, entry.d_name).c_str(), &raw) == 0 && S_ISDIR(raw.st_mode);
}

class NativeFile final : public HostFile {
  public:
    NativeFile(int descriptor, std::shared_ptr<SpaceLimit> space)
        : HostFile(std::move(space)), descriptor_(descriptor) {}
    ~NativeFile() override { NativeFile::close(); }
    NativeFile(const NativeFile&) = delete;
    NativeFile& operator=(const NativeFile&) = delete;

    Error close() override {
        const int descriptor = std::exchange(descriptor_, -1);
        // Not again after an interruption: the descriptor is gone all the same.
        return descriptor < 0 || ::close(descriptor) == 0 || errno == EINTR ? 0 : errorFrom(errno);
    }

    Error read(uint64_t offset, void* buffer, size_t count, size_t& got) override {
        got = 0;
        while (got < count && offset + got <= static_cast<uint64_t>(LLONG_MAX)) {
            const ssize_t done = ::pread(descriptor_, static_cast<char*>(buffer) + got, count - got,
                                         static_cast<off_t>(offset + got));
            if (done == 0) break;
            if (done > 0) {
                got += static_cast<size_t>(done);
            } else if (errno != EINTR) {
                return errorFrom(errno);
            }
        }
        return 0;
    }

    Error size(uint64_t& bytes) override {
        struct stat raw;
        if (::fstat(descriptor_, &raw) != 0) return errorFrom(errno);
        bytes = static_cast<uint64_t>(raw.st_size);
        return 0;
    }

    Error flush() override {
        while (::fsync(descriptor_) != 0) {
            if (errno == EINVAL) return 0;  // a file system that keeps nothing back
            if (errno != EINTR) return errorFrom(errno);
        }
        return 0;
    }

    Error status(HostStatus& status) const override {
        struct stat raw;
        if (::fstat(descriptor_, &raw) != 0) return errorFrom(errno);
        status = statusFrom(raw);
        return 0;
    }

    void takePermissions(const std::string& path, bool ownerWrites) override {
        struct stat raw;
        if (::stat(path.c_str(), &raw) != 0) return;
        // Where the host does not let the owner be changed, the file stays the caller's own.
        if (::fchown(descriptor_, raw.st_uid, raw.st_gid) != 0) errno = 0;
        const mode_t least = ownerWrites ? S_IRUSR | S_IWUSR : 0;
        if (::fchmod(descriptor_, (raw.st_mode & kNewFileMode) | least) != 0) errno = 0;
    }

  protected:
    Error writeAll(uint64_t offset, const void* buffer, size_t count) override {
        for (size_t written = 0; written < count;) {
            const ssize_t done = ::pwrite(descriptor_, static_cast<const char*>(buffer) + written,
                                          count - written, static_cast<off_t>(offset + written));
            if (done == 0) return ERROR_DISK_FULL;
            if (done > 0) {
                written += static_cast<size_t>(done);
            } else if (errno != EINTR) {
                return errorFrom(errno);
            }
        }
        return 0;
    }

    Error resize(uint64_t bytes) override {
        while (::ftruncate(descriptor_, static_cast<off_t>(bytes)) != 0) {
            // A descriptor that is not open for writing gives EINVAL.
            if (errno != EINTR) return errno == EINVAL ? ERROR_ACCESS_DENIED : errorFrom(errno);
        }
        return 0;
    }

  private:
    int descriptor_;
};

class NativeHost final : public Host {
  public:
    Error status(const std::string& path, HostStatus& status) override {
        struct stat raw;
        if (::stat(path.c_str(), &raw) != 0) return pathError(path);
        status = statusFrom(raw);
        return 0;
    }

    Error list(const std::string& folder, std::vector<HostItem>& items) override {
        items.clear();
        DIR* const directory = ::opendir(folder.c_str());
        if (directory == nullptr) return pathError(folder);
        errno = 0;
        while (const dirent* const entry = ::readdir(directory)) {
            const std::string_view name = entry->d_name;
            if (name != "." && name != "..") items.push_back({std::string(name), isFolder(folder, *entry)});
            errno = 0;
        }
        const Error error = errno != 0 ? errorFrom(errno) : 0;
        ::closedir(directory);
        return error;
    }

    Error remove(const std::string& path) override {
        return ::unlink(path.c_str()) == 0 ? 0 : pathError(path);
    }

    Error replace(const std::string& from, const std::string& to) override {
        return ::rename(from.c_str(), to.c_str()) == 0 ? 0 : pathError(to);
    }

    Error move(const std::string& from, const std::string& to) override {
        if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
        if (errno != EINVAL && errno != ENOSYS) return pathError(to);
        // A file system that cannot do it in one step.
        struct stat there;
        return ::lstat(to.c_str(), &there) == 0 ? ERROR_FILE_EXISTS : replace(from, to);
    }

    std::string absolute(const std::string& path) override {
        char* const resolved = ::realpath(path.c_str(), nullptr);
        if (resolved == nullptr) return path;
        std::string absolute = resolved;
        std::free(resolved);
        return absolute;
    }

    Error open(const std::string& path, const HostAccess& access, std::shared_ptr<SpaceLimit> space,
               std::unique_ptr<HostFile>& file) override {
        struct stat raw;
        if (!access.create) {
            if (::stat(path.c_str(), &raw) != 0) return pathError(path);
            if (!S_ISREG(raw.st_mode)) return ERROR_ACCESS_DENIED;
        }
        // A FIFO that takes the file's place right now must not make the open wait.
        int flags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK;
        flags |= access.write ? (access.read ? O_RDWR : O_WRONLY) : O_RDONLY;
        if (access.create) flags |= O_CREAT | O_EXCL;
        const int descriptor = ::open(path.c_str(), flags, kNewFileMode);
        if (descriptor < 0) return pathError(path);
        auto opened = std::make_unique<NativeFile>(descriptor, std::move(space));
        if (::fstat(descriptor, &raw) != 0) {
            const Error error = errorFrom(errno);
            if (access.create) ::unlink(path.c_str());
            return error;
        }
        if (!S_ISREG(raw.st_mode)) return ERROR_ACCESS_DENIED;
        // Whatever the mask of the process: a file is opened again after it was made, and perhaps deleted.
        if (access.create && (raw.st_mode & S_IWUSR) == 0 && ::fchmod(descriptor, raw.st_mode | S_IWUSR) != 0)
            errno = 0;
        file = std::move(opened);
        return 0;
    }

    unsigned long process() override { return static_cast<unsigned long>(::getpid()); }
};

}  // namespace

const std::shared_ptr<Host>& nativeHost() {
    static const std::shared_ptr<Host> host = std::make_shared<NativeHost>();
    return host;
}

}  // namespace pc
