#include "convert/extraction.h"

#include "convert/replace_question.h"
#include "convert/restore_finder_info.h"
#include "macfile/mac_name.h"
#include "module/module_state.h"
#include "ui/display_title.h"

#include <shlobj.h>

#include <cstring>

namespace tidewell {

namespace {

// Whether the error is the system's word for a path that is too long. Windows 95 and 98 may say 3 of any file
// below a file.
bool isTooLong(ErrorCode error) {
    return error == ERROR_FILENAME_EXCED_RANGE || (error == ERROR_PATH_NOT_FOUND && RunningOnNt);
}

// The forks' paths from that of the file, which may not be there yet. A volume that keeps Mac information
// must get it all: that the longest path, a fork's, is too long is said now, and not when half of the file is
// there.
ErrorCode reachForks(VolumeKind kind, ForkPaths& paths) {
    const ErrorCode error = SetForkPaths(kind, paths);
    if (error != 0 || paths.resourceLength == 0) return error;
    if (GetFileAttributesA(paths.resourcePath) != INVALID_FILE_ATTRIBUTES) return 0;
    const ErrorCode look = GetLastError();
    return isTooLong(look) ? look : 0;
}

ErrorCode replaceFile(const Extraction& extraction, VolumeKind kind, ExtractedFile& file) {
    ErrorCode error = reachForks(kind, file.paths);
    if (error == 0)
        error = AskToReplace(extraction.owner, file.paths.dataPath, *extraction.flags, extraction.progress,
                             file.skip);
    if (error != 0 || file.skip || kind == VolumeKindOther) return error;
    return ReadFinderInfoToKeep(file.paths, file.finderInfo);
}

// Only the driver knows the path of a file that is not there yet on its volume.
ErrorCode createFile(const Extraction& extraction, const uint8_t* macName, VolumeKind kind,
                     ExtractedFile& file) {
    ErrorCode error = kind == VolumeKindMac ? 0 : reachForks(kind, file.paths);
    if (error == 0)
        error = CreateMacNamedFile(kind, extraction.destinationFolder, macName, 0, file.paths.dataPath,
                                   kPathCapacity);
    if (error != 0) return error;
    // It has come since it was looked for, and is somebody else's.
    if (kind != VolumeKindMac && GetLastError() == ERROR_ALREADY_EXISTS)
        return replaceFile(extraction, kind, file);
    file.owned = true;
    if (kind == VolumeKindMac) error = reachForks(kind, file.paths);
    return error != 0 || kind == VolumeKindOther ? error : ReadFinderInfoToKeep(file.paths, file.finderInfo);
}

ErrorCode placeFile(const Extraction& extraction, const uint8_t* macName, ExtractedFile& file) {
    if (macName[1] == '\0') return ERROR_INVALID_DATA;
    VolumeKind kind = VolumeKindOther;
    const ErrorCode told = TellVolumeKindOfFolder(extraction.destinationFolder, kind);
    if (told != 0) return told;
    const ErrorCode found =
        LookUpMacName(kind, extraction.destinationFolder, macName, 0, file.paths.dataPath, kPathCapacity);
    if (found == 0) return replaceFile(extraction, kind, file);
    return found == ERROR_FILE_NOT_FOUND ? createFile(extraction, macName, kind, file) : found;
}

}  // namespace

ErrorCode PlaceExtractedFile(const Extraction& extraction, const uint8_t* macName, ExtractedFile& file) {
    const ErrorCode error = placeFile(extraction, macName, file);
    if (error != 0 || file.skip) return error;
    char title[kPathCapacity];
    GetDisplayTitle(file.paths.dataPath, title);
    ProgressSetText(extraction.progress, title, nullptr);
    return 0;
}

ErrorCode OpenExtractedFork(const char* path, ExtractedFile& file, OwnedFile& fork) {
    fork = OwnedFile(
        CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!fork) return lastError();
    file.owned = true;
    return 0;
}

ErrorCode FinishExtractedFile(const Extraction& extraction, const ExtractedFile& file, ErrorCode error) {
    if (error == 0) {
        if (extraction.extractedPath != nullptr)
            std::memcpy(extraction.extractedPath, file.paths.dataPath, std::strlen(file.paths.dataPath) + 1);
        SHChangeNotify(SHCNE_CREATE, SHCNF_PATHA, file.paths.dataPath, nullptr);
    } else if (file.owned) {
        DeleteFileA(file.paths.dataPath);
    }
    return error;
}

}  // namespace tidewell
