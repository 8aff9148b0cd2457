#include "macfile/fork_paths.h"

#include "base/text.h"
#include "macfile/volume_kind.h"

namespace tidewell {

namespace {

DWORD joinPart(const char* dataPath, char* out, DWORD capacity, const char* pseudoFile, const char* stream) {
    switch (GetVolumeKindOfPath(dataPath)) {
    case VolumeKindMac: return JoinPath(out, capacity, dataPath, pseudoFile);
    case VolumeKindNtfs: return JoinPath(out, capacity, dataPath, stream);
    case VolumeKindOther: break;
    }
    return 0;
}

// A part whose path was not written, because there is none or it does not fit, is not available.
void settlePart(char* path, DWORD& length, DWORD capacity) {
    if (length > capacity) length = 0;
    if (length == 0 && capacity != 0) path[0] = '\0';
}

}  // namespace

DWORD GetResourceForkPath(const char* dataPath, char* out, DWORD capacity) {
    return joinPart(dataPath, out, capacity, kResourceForkName, kResourceForkStream);
}

DWORD GetFinderInfoPath(const char* dataPath, char* out, DWORD capacity) {
    return joinPart(dataPath, out, capacity, kFinderInfoName, kFinderInfoStream);
}

void GetForkPaths(const char* path, ForkPaths& paths) {
    const DWORD dataCapacity = paths.dataLength;
    const DWORD resourceCapacity = paths.resourceLength;
    const DWORD finderInfoCapacity = paths.finderInfoLength;
    paths.dataLength = GetShortPath(path, paths.dataPath, dataCapacity);
    // The length needed for a path that does not fit comes back with nothing written.
    if (paths.dataLength >= dataCapacity) paths.dataLength = 0;
    settlePart(paths.dataPath, paths.dataLength, dataCapacity);
    paths.resourceLength = 0;
    paths.finderInfoLength = 0;
    if (paths.dataLength != 0) {
        paths.resourceLength = GetResourceForkPath(paths.dataPath, paths.resourcePath, resourceCapacity);
        paths.finderInfoLength = GetFinderInfoPath(paths.dataPath, paths.finderInfoPath, finderInfoCapacity);
    }
    settlePart(paths.resourcePath, paths.resourceLength, resourceCapacity);
    settlePart(paths.finderInfoPath, paths.finderInfoLength, finderInfoCapacity);
}

bool IsForkPath(const char* path) {
    const char* const name = FileNamePart(path);
    if (equalsIgnoringCase(name, kResourceForkName) || equalsIgnoringCase(name, kFinderInfoName)) return true;
    // A drive's colon is followed by nothing of a name that stands after a backslash.
    const char* const beforeStream = lastCharacter(name, ':');
    return beforeStream != nullptr || (name != path && name[-1] == ':' && name - path > 2);
}

}  // namespace tidewell
