// Something open on the PC: a file of a volume of any kind, or a device.
#ifndef TIDEWELL_PLATFORM_PC_FILE_H
#define TIDEWELL_PLATFORM_PC_FILE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace pc {

// A Win32 error code; 0 is success.
using Error = uint32_t;

// What a file is opened for. `share` and `disposition` are Win32's values (FILE_SHARE_*, CREATE_NEW ...).
struct OpenMode {
    bool read = false;
    bool write = false;
    uint32_t share = 0;
    uint32_t disposition = 3;  // OPEN_EXISTING
};

// One opened stream of bytes. Positions are the caller's; every transfer names its offset. What an opening
// does not have gives ERROR_INVALID_FUNCTION.
class File {
  public:
    virtual ~File() = default;

    // Reads up to `count` bytes; `got` receives how many there were (fewer only at the end of the file).
    virtual Error read(uint64_t /*offset*/, void* /*buffer*/, size_t /*count*/, size_t& got) {
        got = 0;
        return kInvalidFunction;
    }

    // Writes `count` bytes, extending the file; a gap before `offset` reads as zeros.
    // ERROR_DISK_FULL when the volume is full.
    virtual Error write(uint64_t /*offset*/, const void* /*buffer*/, size_t /*count*/) {
        return kInvalidFunction;
    }

    virtual Error size(uint64_t& /*bytes*/) { return kInvalidFunction; }
    // To no bytes.
    virtual Error truncate() { return kInvalidFunction; }

    // Everything written so far is on the host's disk.
    virtual Error flush() { return kInvalidFunction; }

    // Answers one request to a device. `output` has the room that the caller gave, of which the first
    // `returned` bytes are the reply; 0 when the request fails.
    virtual Error control(uint32_t /*code*/, std::span<const uint8_t> /*input*/,
                          std::span<uint8_t> /*output*/, size_t& returned) {
        returned = 0;
        return kInvalidFunction;
    }

    // The locks of a device that were taken through this opening and not released.
    virtual unsigned locks() const { return 0; }

    // Ends the use of the file; tells of what the host could not keep of the bytes it had taken. A file that
    // is destroyed without it is closed in silence.
    virtual Error close() { return 0; }

  private:
    static constexpr Error kInvalidFunction = 1;
};

// What Volume::open gives: the file, not yet truncated, and what names it in the table of open files.
// Two openings of the same stream have the same identity whatever path, link or letter case led to them.
struct Opened {
    std::unique_ptr<File> file;
    std::string identity;
    bool created = false;     // it was not there before
    uint32_t attributes = 0;  // Win32's bits, of a query
};

}  // namespace pc

#endif
