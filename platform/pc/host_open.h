// What Win32 asks of files, over plain files of the host.
#ifndef TIDEWELL_PLATFORM_PC_HOST_OPEN_H
#define TIDEWELL_PLATFORM_PC_HOST_OPEN_H

#include "host_file.h"

#include <cstdint>
#include <memory>
#include <string>

namespace pc {

enum Disposition : uint32_t {
    kCreateNew = 1,
    kCreateAlways = 2,
    kOpenExisting = 3,
    kOpenAlways = 4,
    kTruncateExisting = 5
};

inline bool mayCreate(uint32_t disposition) {
    return disposition == kCreateNew || disposition == kCreateAlways || disposition == kOpenAlways;
}

inline bool truncates(uint32_t disposition) {
    return disposition == kCreateAlways || disposition == kTruncateExisting;
}

constexpr uint32_t kAttributeReadOnly = 0x01;
constexpr uint32_t kAttributeDirectory = 0x10;
constexpr uint32_t kAttributeArchive = 0x20;
constexpr uint32_t kAttributeNormal = 0x80;

// As Volume has them, of a path of the host.
Error openHostFile(const std::string& path, const OpenMode& mode, const std::shared_ptr<SpaceLimit>& space,
                   Opened& opened);
Error hostAttributes(const HostStatus& status, uint32_t& bits);
// 5 for a folder or a file marked read-only.
Error removeHostFile(const std::string& path, SpaceLimit& space);

// A file of which nothing but its size can be asked: it holds nothing of the host open.
std::unique_ptr<File> makeQueriedFile(uint64_t size);

}  // namespace pc

#endif
