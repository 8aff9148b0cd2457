#include "macfile/fork_paths.h"

#include "base/text.h"

#include <cstring>

namespace tidewell {

namespace {

DWORD joinPart(VolumeKind kind, const char* dataPath, char* out, DWORD capacity, const char* pseudoFile,
               const char* stream) {
    switch (kind) {
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

DWORD GetResourceForkPath(VolumeKind kind, const char* dataPath, char* out, DWORD capacity) {
    return joinPart(kind, dataPath, out, capacity, kResourceForkName, kResourceForkStream);
}

DWORD GetFinderInfoPath(VolumeKind kind, const char* dataPath, char* out, DWORD capacity) {
    return joinPart(kind, dataPath, out, capacity, kFinderInfoName, kFinderInfoStream);
}

ErrorCode SetForkPaths(VolumeKind kind, ForkPaths& paths) {
    const DWORD resourceCapacity = paths.resourceLength;
    const DWORD finderInfoCapacity = paths.finderInfoLength;
    paths.kind = kind;
    paths.dataLength = static_cast<DWORD>(std::strlen(paths.dataPath));
    paths.resourceLength = GetResourceForkPath(kind, paths.dataPath, paths.resourcePath, resourceCapacity);
    paths.finderInfoLength =
        GetFinderInfoPath(kind, paths.dataPath, paths.finderInfoPath, finderInfoCapacity);
    settlePart(paths.resourcePath, paths.resourceLength, resourceCapacity);
    settlePart(paths.finderInfoPath, paths.finderInfoLength, finderInfoCapacity);
    const bool whole = paths.resourceLength != 0 && paths.finderInfoLength != 0;
    return whole || kind == VolumeKindOther ? 0 : ERROR_FILENAME_EXCED_RANGE;
}

ErrorCode FindForkPaths(const char* path, ForkPaths& paths) {
    const DWORD capacity = paths.dataLength;
    paths.dataLength = GetShortPath(path, paths.dataPath, capacity);
    ErrorCode error = paths.dataLength == 0 ? lastError() : 0;
    // The length needed for a path that does not fit comes back with nothing written.
    if (paths.dataLength >= capacity) {
        paths.dataLength = 0;
        error = ERROR_FILENAME_EXCED_RANGE;
    }
    settlePart(paths.dataPath, paths.dataLength, capacity);
    VolumeKind kind = VolumeKindOther;
    if (error == 0) error = TellVolumeKindOfPath(paths.dataPath, kind);
    const ErrorCode set = SetForkPaths(kind, paths);
    return error != 0 ? error : set;
}

void GetForkPaths(const char* path, ForkPaths& paths) {
    FindForkPaths(path, paths);
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
