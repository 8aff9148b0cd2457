// The resource fork of a Mac file: typed, numbered pieces of data behind a map. Nothing of the map is kept in
// memory: every request reads the few bytes that it needs, so a fork of any size costs little.
#ifndef TIDEWELL_RESOURCES_RESOURCE_FORK_H
#define TIDEWELL_RESOURCES_RESOURCE_FORK_H

#include "base/byte_order.h"
#include "macfile/fork_bytes.h"

#include <windows.h>

#include <cstdint>

namespace tidewell {

// ---- As they stand in the fork ----

struct ResourceHeader {
    Be<uint32_t> dataOffset;  // of the resource data area, in bytes from the start of the fork
    Be<uint32_t> mapOffset;   // of the resource map, likewise
    Be<uint32_t> dataLength;  // bytes
    Be<uint32_t> mapLength;   // bytes
};
static_assert(sizeof(ResourceHeader) == 16);

// The map's first bytes. Its own copy of the header is what positions are computed from.
struct ResourceMap {
    ResourceHeader header;
    Be<uint32_t> nextMap;        // reserved
    Be<uint16_t> fileReference;  // reserved
    Be<uint16_t> attributes;     // of the fork
    Be<uint16_t> typeList;       // bytes from the start of the map
    Be<uint16_t> nameList;       // likewise
    Be<uint16_t> lastType;       // the count of types minus 1, signed: -1 for a fork without resources
};
static_assert(sizeof(ResourceMap) == 30);

// Four characters in the order of the fork.
struct ResourceType {
    uint8_t bytes[4];

    bool operator==(const ResourceType&) const = default;
};

struct TypeEntry {
    ResourceType type;
    Be<uint16_t> lastIndex;      // the count of resources minus 1
    Be<uint16_t> referenceList;  // bytes from the start of the type list
};
static_assert(sizeof(TypeEntry) == 8);

constexpr uint8_t kResourceSystemHeap = 0x40;
constexpr uint8_t kResourcePurgeable = 0x20;
constexpr uint8_t kResourceLocked = 0x10;
constexpr uint8_t kResourceProtected = 0x08;
constexpr uint8_t kResourcePreload = 0x04;

struct ReferenceEntry {
    Be<uint16_t> idBits;
    Be<uint16_t> nameOffsetBits;
    uint8_t attributes;  // kResource...
    uint8_t dataOffsetBytes[3];
    Be<uint32_t> handle;  // reserved

    int16_t id() const { return static_cast<int16_t>(static_cast<uint16_t>(idBits)); }
    // From the start of the name list; -1 for a resource without a name.
    int16_t nameOffset() const { return static_cast<int16_t>(static_cast<uint16_t>(nameOffsetBits)); }
    // Bytes from the start of the resource data area.
    uint32_t dataOffset() const {
        return static_cast<uint32_t>(dataOffsetBytes[0]) << 16 |
               static_cast<uint32_t>(dataOffsetBytes[1]) << 8 | dataOffsetBytes[2];
    }
};
static_assert(sizeof(ReferenceEntry) == 12);

// ---- Reading ----

// Used by one thread. A request that fails leaves it as it was: the next may succeed. Entries are not held
// against the bounds of the map; what lies outside the fork cannot be read.
class ResourceForkReader {
  public:
    ResourceForkReader() noexcept { Init(); }
    ResourceForkReader(const ResourceForkReader&) = delete;
    ResourceForkReader& operator=(const ResourceForkReader&) = delete;
    ~ResourceForkReader() { Close(); }

    // Closed. Only for a reader that is.
    void Init() noexcept;

    // Opens the fork that is the file at `path`, which the caller keeps, for as long as it is open; others
    // may read it, too, and no one write to it. Closes the one that is open. Returns 1, or 0 with the last
    // error and closed: ERROR_CAN_NOT_COMPLETE for an empty fork, ERROR_HANDLE_EOF for one that is shorter
    // than it says or than the shortest map, else the system's.
    BOOL Open(const char* path) noexcept;

    // The same for a fork that is a part of a file, or in memory. There is no path then.
    BOOL Open(ForkBytes bytes) noexcept;

    // Leaves the last error as it is.
    void Close() noexcept;

    // Closes, and gives the caller the bytes of the fork that was open.
    ForkBytes TakeBytes() noexcept;

    // Null for a fork that is not a file.
    const char* Path() const noexcept { return path_; }

    // The count of types.
    unsigned TypeCount() const noexcept;

    // Return 1, or 0 when the entry cannot be read, as at the end of the fork.
    BOOL ReadTypeEntry(uint16_t index, TypeEntry& entry) noexcept;
    BOOL ReadReferenceEntry(const TypeEntry& type, uint16_t index, ReferenceEntry& entry) noexcept;

    // Writes the name, in the Mac character set and with a NUL, to `buffer` of `size` bytes, cut to size - 1
    // characters. Returns 1, or 0 with the last error: 0 for a resource without a name, ERROR_INVALID_DATA
    // for a name of no characters, ERROR_INVALID_PARAMETER for a buffer of 0 bytes or none, else the
    // system's; ERROR_BUFFER_OVERFLOW for a name longer than `size`: the name that was cut is in the buffer.
    BOOL ReadName(const ReferenceEntry& reference, char* buffer, unsigned size) noexcept;

    // In bytes, as it stands in front of the data. Returns 1 or 0.
    BOOL ReadDataLength(const ReferenceEntry& reference, uint32_t& length) noexcept;

    // Returns the resource's data, and its length in `length`, which on entry is the most that is wanted, 0
    // for all. A fork that ends early gives fewer bytes. Empty with the last error when it cannot be read:
    // ERROR_NOT_ENOUGH_MEMORY, or the system's.
    PageBuffer ReadData(const ReferenceEntry& reference, uint32_t& length) noexcept;

    // The low 32 bits of the fork's length in bytes; INVALID_FILE_SIZE when it cannot be told.
    DWORD ForkSize() const noexcept;

  private:
    ForkBytes bytes_;
    ResourceMap map_;
    const char* path_;
};

}  // namespace tidewell

#endif
