// What volumes ask of the file system that keeps them. Paths are UTF-8 with "/" between components.
#ifndef TIDEWELL_PLATFORM_PC_HOST_HOST_H
#define TIDEWELL_PLATFORM_PC_HOST_HOST_H

#include "pc/file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pc {

enum class HostKind { file, folder, other };

struct HostStatus {
    HostKind kind = HostKind::other;
    uint64_t size = 0;
    std::string identity;  // device and file: equal for all links to one file
    std::string device;
    bool ownerMayWrite = true;
    int64_t modified = 0;  // seconds since 1970, UTC
};

struct HostItem {
    std::string name;
    bool folder = false;  // a link to a folder is none
};

struct HostAccess {
    bool read = false;
    bool write = false;
    bool create = false;  // ERROR_FILE_EXISTS when it exists
};

// How much all the files of a volume may yet grow.
struct SpaceLimit {
    bool limited = false;
    uint64_t left = 0;

    void giveBack(uint64_t bytes) { left += limited ? bytes : 0; }
};

// A regular file that is open. Nothing is written behind the limit.
class HostFile : public File {
  public:
    explicit HostFile(std::shared_ptr<SpaceLimit> space) : space_(std::move(space)) {}

    Error write(uint64_t offset, const void* buffer, size_t count) final;
    Error truncate() final { return setSize(0); }
    Error setSize(uint64_t bytes);

    virtual Error status(HostStatus& status) const = 0;

    // The owner and the permissions of the file or folder at `path`, as far as the host allows; with
    // `ownerWrites`, the owner may read and write in any case.
    virtual void takePermissions(const std::string& path, bool ownerWrites) = 0;

  protected:
    virtual Error writeAll(uint64_t offset, const void* buffer, size_t count) = 0;
    virtual Error resize(uint64_t bytes) = 0;

  private:
    std::shared_ptr<SpaceLimit> space_;
};

// What a host that loses power keeps of names that were changed but not flushed: its disk may be ahead of the
// bytes, or behind.
enum class PowerCut { keepsNames, losesNames };

// Win32 codes for all errors. Links are followed. ERROR_FILE_NOT_FOUND; ERROR_PATH_NOT_FOUND: no such folder.
class Host {
  public:
    virtual ~Host() = default;

    virtual Error status(const std::string& path, HostStatus& status) = 0;
    // Without "." and "..", in no order.
    virtual Error list(const std::string& folder, std::vector<HostItem>& items) = 0;
    // Files only.
    virtual Error remove(const std::string& path) = 0;
    // Moves a file over another in one step. Neither is open.
    virtual Error replace(const std::string& from, const std::string& to) = 0;
    // As replace, but ERROR_FILE_EXISTS when there is anything at `to`, a link included.
    virtual Error move(const std::string& from, const std::string& to) = 0;
    // Free of links; `path` itself when the host cannot tell.
    virtual std::string absolute(const std::string& path) = 0;
    // Only regular files: ERROR_ACCESS_DENIED for everything else, and what is no file is never opened.
    virtual Error open(const std::string& path, const HostAccess& access, std::shared_ptr<SpaceLimit> space,
                       std::unique_ptr<HostFile>& file) = 0;
    // A number that no other program on the host has at this time.
    virtual unsigned long process() { return 0; }

    // Everything that was not flushed is gone; no file is open then. A host of real disks loses nothing here.
    virtual void losePower(PowerCut) {}
};

// The file system of the machine: POSIX.
const std::shared_ptr<Host>& nativeHost();

std::string hostJoin(const std::string& folder, std::string_view name);

}  // namespace pc

#endif
