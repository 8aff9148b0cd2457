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

// Windows passes over the periods and blanks that a name ends with.
bool isNamed(const char* name, const char* wanted) {
    for (; *wanted != '\0'; ++name, ++wanted) {
        if (upperCase(*name) != *wanted) return false;
    }
    while (*name == '.' || *name == ' ')
        ++name;
    return *name == '\0';
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
    const char* name = FileNamePart(path);
    const bool drive = name - path == 2 && name[-1] == ':';
    if (name != path && name[-1] == ':' && !drive) return true;
    // Windows takes a slash for a backslash, too.
    if (const char* const slash = lastCharacter(name, '/')) name = slash + 1;
    return lastCharacter(name, ':') != nullptr || isNamed(name, kResourceForkName) ||
           isNamed(name, kFinderInfoName);
}

}  // namespace tidewell
