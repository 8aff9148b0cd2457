// A PC for tests with a volume of each kind, all in memory: F: FAT, N: NTFS, M: a Mac volume.
#ifndef TIDEWELL_TESTS_SUPPORT_TEST_PC_H
#define TIDEWELL_TESTS_SUPPORT_TEST_PC_H

#include "macfile/fork_paths.h"
#include "pc/pc.h"
#include "support/host_folder.h"
#include "support/scripted_user.h"

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

class TestPc : public pc::Pc {
  public:
    explicit TestPc(pc::Platform platform = pc::Platform::nt);

    // Holds the volumes' folders, named by their letters.
    const MemoryFolder& folder() const { return folder_; }

    // What there is now is not lost with the power.
    void flushAll() { folder_.memory().flushAll(); }

  private:
    MemoryFolder folder_;
    const UserInCharge user_{&kScriptedUser};
};

using Bytes = std::vector<uint8_t>;

// Bytes that tell their place, so that a shift or a swap shows.
Bytes patternOf(size_t size, unsigned seed = 0);
Bytes bytesOf(const std::string& text);

// Through the system calls under test, as any Windows program would.
bool exists(const std::string& path);
Bytes readFile(const std::string& path);
void writeFile(const std::string& path, const Bytes& bytes);

// The paths of an existing file.
struct ForkPathsOf : tidewell::ForkPathBuffers {
    explicit ForkPathsOf(const std::string& path) { tidewell::GetForkPaths(path.c_str(), *this); }
};

// What makes a Mac file.
struct MacFile {
    Bytes data = {};
    Bytes resource = {};
    bool hasResource = true;
    uint32_t type = 0x54455854;     // TEXT
    uint32_t creator = 0x74747874;  // ttxt
    uint16_t flags = 0x2100;
    uint16_t vertical = 0x0102;
    uint16_t horizontal = 0x0304;
    uint16_t window = 0x0506;
    uint8_t attributes = 0x01;  // kept by Mac volumes only

    bool operator==(const MacFile&) const = default;
};

// What the volume keeps of it.
void writeMacFile(const std::string& path, const MacFile& file);
// What the volume keeps of the file; 0 and nothing for what it does not.
MacFile readMacFile(const std::string& path);
MacFile keptOn(char drive, const MacFile& file);

#endif
