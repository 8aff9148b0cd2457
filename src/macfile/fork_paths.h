// The paths by which the forks and the Finder information of a Mac file are reached.
#ifndef TIDEWELL_MACFILE_FORK_PATHS_H
#define TIDEWELL_MACFILE_FORK_PATHS_H

#include "base/path.h"
#include "macfile/volume_kind.h"

namespace tidewell {

// The caller provides the buffers; each length is its buffer's capacity in bytes on entry and the result on
// return. A length of 0 on return: the volume keeps no such part, there is no such file, or the path does not
// fit; the text is then empty, that of the data path too.
struct ForkPaths {
    char* dataPath;
    DWORD dataLength;  // on return without the terminating NUL
    char* resourcePath;
    DWORD resourceLength;  // on return with the terminating NUL
    char* finderInfoPath;
    DWORD finderInfoLength;  // on return with the terminating NUL
    VolumeKind kind;         // on return; VolumeKindOther, too, when it cannot be told
};

// ForkPaths over buffers of its own.
struct ForkPathBuffers : ForkPaths {
    ForkPathBuffers() noexcept : ForkPaths() {
        dataPath = data;
        resourcePath = resource;
        finderInfoPath = finderInfo;
        dataLength = resourceLength = finderInfoLength = kPathCapacity;
    }
    ForkPathBuffers(const ForkPathBuffers&) = delete;
    ForkPathBuffers& operator=(const ForkPathBuffers&) = delete;

  private:
    char data[kPathCapacity];
    char resource[kPathCapacity];
    char finderInfo[kPathCapacity];
};

// The paths of an existing file, from its short path; or, when `path` is the dataPath buffer itself, from
// the path as it stands.
void GetForkPaths(const char* path, ForkPaths& paths);

// GetForkPaths, which tells why a file has no short path or the kind of its volume cannot be told: the
// system's error. ERROR_FILENAME_EXCED_RANGE for a short path that does not fit.
ErrorCode FindForkPaths(const char* path, ForkPaths& paths);

// The paths of the file at paths.dataPath, which may not be there yet, on a volume whose kind is known.
// ERROR_FILENAME_EXCED_RANGE when the volume keeps a part whose path does not fit.
ErrorCode SetForkPaths(VolumeKind kind, ForkPaths& paths);

// Where a volume of this kind keeps the parts of the file at `dataPath`. Return JoinPath's result, or 0 with
// nothing written where it keeps no such part.
DWORD GetResourceForkPath(VolumeKind kind, const char* dataPath, char* out, DWORD capacity);
DWORD GetFinderInfoPath(VolumeKind kind, const char* dataPath, char* out, DWORD capacity);

// Whether the last part of `path` names a resource fork or a Finder information, or any stream of a file,
// rather than a file.
bool IsForkPath(const char* path);

}  // namespace tidewell

#endif
