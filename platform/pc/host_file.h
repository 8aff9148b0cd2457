// The host's file system: the one place where volumes touch it. Paths are UTF-8 with "/" between components.
#ifndef TIDEWELL_PLATFORM_PC_HOST_FILE_H
#define TIDEWELL_PLATFORM_PC_HOST_FILE_H

#include "file.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
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

// Letter case does not tell the host's names apart, and it may know files by short names of its own.
#ifdef _WIN32
constexpr bool kHostIgnoresCase = true;
#else
constexpr bool kHostIgnoresCase = false;
#endif

// Win32 codes for all errors of the host. Links are followed; nothing is opened but folders.
// 2: no such file; 3: no such folder.
Error hostStatus(const std::string& path, HostStatus& status);

// Without "." and "..", in no order.
Error hostList(const std::string& folder, std::vector<HostItem>& items);

// Files only.
Error hostRemove(const std::string& path);

// Moves a file over another in one step. Neither is open.
Error hostReplace(const std::string& from, const std::string& to);

// As hostReplace, but 80 when there is anything at `to`, a link included.
Error hostMove(const std::string& from, const std::string& to);

// Free of links; `path` itself when the host cannot tell.
std::string hostAbsolute(const std::string& path);

std::string hostJoin(const std::string& folder, std::string_view name);

// A number that no other program has at this time.
unsigned long hostProcess();

// How much all the files of a volume may yet grow.
struct SpaceLimit {
    bool limited = false;
    uint64_t left = 0;

    void giveBack(uint64_t bytes) { left += limited ? bytes : 0; }
};

// Removes a file that must not stay behind; nothing of that name, or what is no file, is no error.
Error discardFile(const std::string& path, SpaceLimit& space);

struct HostAccess {
    bool read = false;
    bool write = false;
    bool create = false;  // 80 when it exists
};

// Only regular files: 5 for everything else, and what is no file is never opened.
class HostFile final : public File {
  public:
    static Error open(const std::string& path, const HostAccess& access, std::shared_ptr<SpaceLimit> space,
                      std::unique_ptr<HostFile>& file);
    ~HostFile() override;
    HostFile(const HostFile&) = delete;
    HostFile& operator=(const HostFile&) = delete;

    Error close() override;
    Error read(uint64_t offset, void* buffer, size_t count, size_t& got) override;
    Error write(uint64_t offset, const void* buffer, size_t count) override;
    Error size(uint64_t& bytes) override;
    Error setSize(uint64_t bytes) override;
    Error flush() override;

    Error status(HostStatus& status) const;

    // The owner and the permissions of the file or folder at `path`, as far as the host allows; with
    // `ownerWrites`, the owner may read and write in any case.
    void takePermissions(const std::string& path, bool ownerWrites);

  private:
    HostFile(intptr_t handle, std::shared_ptr<SpaceLimit> space);
    Error writeAll(uint64_t offset, const void* buffer, size_t count);
    Error resize(uint64_t bytes);
    static Error closeHandle(intptr_t handle);

    intptr_t handle_;
    std::shared_ptr<SpaceLimit> space_;
};

}  // namespace pc

#endif
