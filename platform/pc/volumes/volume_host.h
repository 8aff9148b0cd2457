// A host as one volume uses it: within the volume's free space, and as Win32 asks for files.
#ifndef TIDEWELL_PLATFORM_PC_VOLUMES_VOLUME_HOST_H
#define TIDEWELL_PLATFORM_PC_VOLUMES_VOLUME_HOST_H

#include "pc/host/host.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace pc {

bool mayCreate(uint32_t disposition);
bool truncates(uint32_t disposition);

// Gives a file of which nothing but its size can be asked: it holds nothing of the host open.
// ERROR_ACCESS_DENIED for what is neither file nor folder.
Error answerQuery(const HostStatus& status, Opened& opened);

// Copies share the host and the space.
class VolumeHost {
  public:
    explicit VolumeHost(std::shared_ptr<Host> host) : host_(std::move(host)) {}

    Host* operator->() const { return host_.get(); }
    Host& operator*() const { return *host_; }

    // Not limited at first.
    void setFreeSpace(uint64_t bytes) { *space_ = {true, bytes}; }
    void giveBack(uint64_t bytes) const { space_->giveBack(bytes); }

    Error open(const std::string& path, const HostAccess& access, std::unique_ptr<HostFile>& file) const {
        return host_->open(path, access, space_, file);
    }
    // As Volume has them, of a path of the host.
    Error open(const std::string& path, const OpenMode& mode, Opened& opened) const;
    // ERROR_ACCESS_DENIED for a folder or a file marked read-only.
    Error remove(const std::string& path) const;
    // Removes a file that must not stay behind; nothing of that name, or what is no file, is no error.
    Error discard(const std::string& path) const;
    // Moves files, each a pair of what it has and what it gets; after an error all are where they were.
    // ERROR_ALREADY_EXISTS: there is something in the place of one.
    Error moveAll(const std::vector<std::pair<std::string, std::string>>& moves) const;

  private:
    Error openWith(const std::string& path, const HostAccess& access, Opened& opened) const;

    std::shared_ptr<Host> host_;
    std::shared_ptr<SpaceLimit> space_ = std::make_shared<SpaceLimit>();
};

}  // namespace pc

#endif
