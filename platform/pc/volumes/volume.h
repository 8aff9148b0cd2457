// A volume of the PC, kept in a folder of a host.
#ifndef TIDEWELL_PLATFORM_PC_VOLUMES_VOLUME_H
#define TIDEWELL_PLATFORM_PC_VOLUMES_VOLUME_H

#include "pc/file.h"
#include "pc/host/host.h"
#include "pc/names/mac_host_name.h"

#include <functional>

namespace pc {

// The items of a Mac volume by their Mac names. Folders are paths as Volume has them.
class MacDirectory {
  public:
    virtual ~MacDirectory() = default;

    // The item with that Mac name in the folder, or the one that a file of that name would take the place of:
    // two Mac names may stand for one host name. Mac information whose file is gone is an item, too.
    // `windowsName` receives its name on Windows. ERROR_FILE_NOT_FOUND: there is none, and `windowsName` is
    // what `create` would give; ERROR_PATH_NOT_FOUND: no such folder.
    virtual Error find(const std::string& folder, const MacName& name, std::string& windowsName) = 0;

    // Makes an empty file unless `find` finds one, which stays as it is. A Mac name in Mac Roman that its
    // host name does not tell is kept beside it. ERROR_ACCESS_DENIED: what is there is no file. After an
    // error there is no new file.
    virtual Error create(const std::string& folder, const MacName& name, std::string& windowsName) = 0;
};

// ERROR_SHARING_VIOLATION when what has that identity is open.
using SharingCheck = std::function<Error(const std::string& identity)>;

// Paths given to a volume are UTF-8, relative to its root, components separated by '\', without a leading
// one; the root itself is the empty path. A trailing '\' is allowed after a folder.
class Volume {
  public:
    virtual ~Volume() = default;

    // "FAT", "NTFS" or "HFS".
    virtual const char* fileSystemName() const = 0;

    // Opens or creates as mode.disposition says, except that nothing is truncated yet: the PC first checks
    // sharing, then calls `truncate`. A file that this call creates exists afterwards with no bytes.
    // ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND (the folder). ERROR_ACCESS_DENIED: a folder, a file the host
    // refuses, or one that is no regular file. ERROR_FILE_EXISTS: CREATE_NEW and it exists. ERROR_DISK_FULL.
    // ERROR_INVALID_NAME: a name no volume of this kind can hold. ERROR_FILE_CORRUPT: what is kept of the
    // file's Mac information is damaged.
    virtual Error open(const std::string& path, const OpenMode& mode, Opened& opened) = 0;

    // Empties a file that `open` has opened and not created, when the disposition says so.
    virtual Error truncate(const std::string& path, uint32_t disposition, File& file);

    // As open, for a query of attributes and size only: neither reading nor writing, folders allowed.
    virtual Error openForQuery(const std::string& path, Opened& opened) = 0;

    // Deletes a file together with everything kept beside it: its streams, or its Mac information.
    // A path of a stream deletes only the stream.
    virtual Error remove(const std::string& path) = 0;

    // Gives a file another path on the volume, and everything that is kept beside it, or after an error
    // nothing. `check` is asked for the file and each of its forks whether it may move. ERROR_ALREADY_EXISTS:
    // there is anything at `to`; ERROR_ACCESS_DENIED: a folder, or a path that is no file's on a Mac volume;
    // ERROR_INVALID_NAME: a stream. A file whose Mac information is damaged does not move: it could not be
    // deleted with it afterwards.
    virtual Error move(const std::string& from, const std::string& to, const SharingCheck& check) = 0;

    // The 8.3 form of an existing path, or the path unchanged where the volume has no short names.
    virtual Error shortPath(const std::string& path, std::string& shortForm) = 0;

    // Limits the free space that writes may take, for tests of a full disk. Not limited at first.
    virtual void setFreeSpace(uint64_t bytes) = 0;

    // The host's power is cut. No file is open.
    virtual void losePower(PowerCut cut) = 0;

    // NTFS: whether a file that is created anew keeps its streams. At first it loses them.
    virtual void setKeepsStreams(bool) {}

    // Null for a volume that is none of the Mac volume driver's.
    virtual MacDirectory* macDirectory() { return nullptr; }
};

// A person waits for what is flushed to the disk: a batch of small files takes many times as long. The host
// has the Finder information as safely as the data fork, which nobody flushes.
enum class FinderFlush { toDisk, withDataFork };

// The folder must exist. FAT: neither streams nor short names. NTFS: streams and 8.3 names, letter case
// kept and ignored. Mac: the driver's two pseudo-files of every file and folder, over AppleDouble files.
std::unique_ptr<Volume> makeFatVolume(std::shared_ptr<Host> host, const std::string& folder);
std::unique_ptr<Volume> makeNtfsVolume(std::shared_ptr<Host> host, const std::string& folder);
std::unique_ptr<Volume> makeMacVolume(std::shared_ptr<Host> host, const std::string& folder,
                                      FinderFlush flush = FinderFlush::toDisk);

}  // namespace pc

#endif
