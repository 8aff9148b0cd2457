// A computer as the library sees it.
#ifndef TIDEWELL_PLATFORM_PC_PC_H
#define TIDEWELL_PLATFORM_PC_PC_H

#include "pc/clock.h"
#include "pc/names/code_page.h"
#include "pc/devices/device.h"
#include "pc/fault_plan.h"
#include "pc/journal.h"
#include "pc/volumes/volume.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

namespace pc {

enum class Platform { nt, windows95, windows98 };

// By their Win32 numbers.
enum class DriveType : uint32_t { none = 1, removable = 2, fixed = 3, remote = 4, cd = 5 };

struct Drive {
    std::unique_ptr<Volume> volume;  // null: no medium
    DriveType type = DriveType::fixed;
};

// An open handle of the library.
struct OpenFile {
    std::string path;  // as the library gave it
    OpenMode mode;     // neither reading nor writing for a query of attributes
    std::string identity;
    std::shared_ptr<Device> device;  // which outlives its openings, or null
    std::unique_ptr<File> file;
    uint64_t position = 0;
};

// The newest living PC is the current one, which the kernel works on. Kernel calls come from any thread; a
// test that calls the PC itself has no others under way.
class Pc {
  public:
    explicit Pc(Platform platform = Platform::nt);
    ~Pc();
    Pc(const Pc&) = delete;
    Pc& operator=(const Pc&) = delete;

    static Pc* current();

    Platform platform() const { return platform_; }

    void addDrive(char letter, std::unique_ptr<Volume> volume, DriveType type = DriveType::fixed);
    // Null when there is no such drive.
    Drive* drive(char letter);
    // A bit for each, A: the lowest.
    uint32_t driveLetters() const;

    // The device "\\.\NAME", in the place of one of that name. Letter case does not matter.
    void addDevice(std::string_view name, std::shared_ptr<Device> device);
    // Null when the PC has no such device.
    std::shared_ptr<Device> device(std::string_view name) const;

    // 1252 at first. In a code page of two-byte characters paths hold them, as on such a Windows.
    void setCodePage(unsigned codePage) { codePage_ = codePage; }
    unsigned codePage() const { return codePage_; }

    // A limit in bytes, with the NUL, in the place of Windows' own: that is 260 characters on NT, and 260
    // bytes of the code page on 95 and 98.
    void setPathLimit(size_t bytes) { pathLimit_ = bytes; }
    bool takesPath(const std::string& utf8) const;

    // Text of the code page: makes "X:\folder" the current folder, and X: the current drive. A drive's folder
    // is its root at first; there is no current drive at first.
    void setCurrentFolder(const std::string& path);
    char currentDrive() const { return currentDrive_; }
    // Without the drive and without a separator at its end.
    std::string currentFolder(char letter) const;

    // Whether NUL, COM1 and their like are devices in every folder. Not where a host's files may have such
    // names.
    void setDeviceNames(bool reserved) { deviceNames_ = reserved; }
    bool hasDeviceNames() const { return deviceNames_; }

    Journal& journal() { return journal_; }
    FaultPlan& faults() { return faults_; }
    Clock& clock() { return clock_; }

    // Every handle is gone, and of the volumes what was not flushed. They can be looked at again.
    void cutPower(PowerCut cut = PowerCut::keepsNames);

    // The handles the library holds.
    std::map<uintptr_t, OpenFile>& openFiles() { return openFiles_; }
    uintptr_t newHandle();
    static bool isHandle(uintptr_t handle);
    // ERROR_SHARING_VIOLATION when an open file forbids `mode` on `identity`, or `mode` forbids what is open.
    Error checkSharing(const std::string& identity, const OpenMode& mode) const;
    // The handle is gone whatever is told.
    Error close(uintptr_t handle);

    // The memory the library holds.
    std::set<void*>& memory() { return memory_; }

    // Every handle is closed, every lock was released before its handle was closed, all memory given back.
    bool nothingHeld() const { return openFiles_.empty() && memory_.empty() && forgottenLocks_ == 0; }

  private:
    Platform platform_;
    Pc* previous_;
    std::map<char, Drive> drives_;
    std::map<std::string, std::shared_ptr<Device>> devices_;  // by the name in capitals
    unsigned codePage_ = 1252;
    size_t pathLimit_ = 0;  // 0: Windows' own
    bool deviceNames_ = true;
    char currentDrive_ = '\0';
    std::map<char, std::string> currentFolders_;
    Journal journal_;
    FaultPlan faults_;
    Clock clock_;
    std::map<uintptr_t, OpenFile> openFiles_;
    uintptr_t lastHandle_;
    unsigned forgottenLocks_ = 0;
    std::set<void*> memory_;
};

}  // namespace pc

#endif
