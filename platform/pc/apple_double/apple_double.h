// An AppleDouble file on the host.
#ifndef TIDEWELL_PLATFORM_PC_APPLE_DOUBLE_APPLE_DOUBLE_H
#define TIDEWELL_PLATFORM_PC_APPLE_DOUBLE_APPLE_DOUBLE_H

#include "pc/apple_double/apple_double_layout.h"
#include "pc/volumes/volume_host.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace pc {

// All who have the same file open share one object: it knows the file under its new entries when one of them
// lays it out anew. While an object lives, nobody else changes the file.
class AppleDouble {
  public:
    // The file may not exist yet. It is made in `path`'s folder.
    AppleDouble(std::string path, VolumeHost host);

    // Reads the header; that there is no file is no error. 1392: damaged, and nothing was changed.
    Error load();

    bool exists() const { return file_ != nullptr; }
    bool has(uint32_t id) const { return source_.header.find(id) != nullptr; }
    // 0 when there is no such entry.
    uint32_t length(uint32_t id) const;
    Error read(uint32_t id, uint64_t offset, void* buffer, size_t count, size_t& got) const;

    // macOS' extended attributes follow the Finder information; it finds them only at their own place.
    bool hasMacAttributes() const;

    // Puts a new file in the place of the old in one step; after a failure the old one is as it was. A new
    // file takes the permissions of the file at `owner`.
    Error rewrite(const std::vector<AppleDoubleEdit>& edits, const ResourcePlan& resource,
                  const std::string& owner);

    // The same for edits alone. One that its entry has room for is written in place: it is a few bytes in one
    // go, so there is no time at which they are half written.
    Error edit(const std::vector<AppleDoubleEdit>& edits, const std::string& owner);

    // ERROR_ACCESS_DENIED when the host does not allow writing.
    Error openForWriting();

    // The entry exists, and openForWriting succeeded. ERROR_FILE_TOO_LARGE behind 4 GB - 1.
    Error writeResource(uint64_t offset, const void* buffer, size_t count);
    Error truncateResource();
    Error flush();
    // Tells of what the host could not keep of the bytes it had taken. Nothing else is asked of the object.
    Error close();

    // The file was deleted.
    void forget();

  private:
    Error open(bool write);
    Error readHeader(AppleDoubleSource& source) const;
    Error findBodyStart(AppleDoubleSource& source) const;
    Error createTemporary(std::string& path, std::unique_ptr<HostFile>& file) const;
    Error fill(HostFile& file, const AppleDoubleLayout& layout,
               const std::vector<AppleDoubleEdit>& edits) const;
    Error putInPlace(const std::string& temporary);
    Error makeResourceLast(uint32_t longest);
    Error setResourceLength(uint64_t bytes);

    std::string path_;
    VolumeHost host_;
    std::unique_ptr<HostFile> file_;
    bool writable_ = false;
    AppleDoubleSource source_;
};

}  // namespace pc

#endif
