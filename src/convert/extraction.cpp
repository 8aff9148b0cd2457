#include "convert/extraction.h"

#include "macfile/mac_name.h"
#include "macfile/volume_kind.h"
#include "ui/confirm_replace.h"
#include "ui/display_title.h"

#include <shlobj.h>

#include <cstring>

namespace tidewell {

namespace {

ErrorCode confirmReplace(const Extraction& extraction, ExtractedFile& file) {
    if ((*extraction.flags & kReplaceAll) != 0) return 0;
    ProgressPause(extraction.progress);
    const int answer = ConfirmFileReplace(extraction.owner, file.paths.dataPath,
                                          (*extraction.flags & kMoreFollow) != 0 ? TRUE : FALSE);
    // The resume serves the display, which must not lose the answer to its last error.
    const ErrorCode error = answer == -1 ? lastErrorOr(ERROR_FILE_EXISTS) : 0;
    ProgressResume(extraction.progress);
    switch (answer) {
    case IDYESTOALL: *extraction.flags |= kReplaceAll; return 0;
    case IDYES: return 0;
    case IDNO: file.skip = true; return 0;
    case IDCANCEL: return ERROR_CANCELLED;
    default: return error;  // nobody could be asked: what is there stays
    }
}

ErrorCode placeFile(const Extraction& extraction, const uint8_t* macName, ExtractedFile& file) {
    char* const path = file.paths.dataPath;
    const DWORD capacity = file.paths.dataLength;
    const ErrorCode found = LookUpMacName(extraction.destinationFolder, macName, 0, path, capacity);
    if (found == 0) return confirmReplace(extraction, file);
    if (found != ERROR_FILE_NOT_FOUND) return found;
    const ErrorCode created = CreateMacNamedFile(extraction.destinationFolder, macName, 0, path, capacity);
    file.owned = created == 0;
    return created;
}

// A volume that keeps Mac information must get it all: a path too long for it is no reason to drop it.
bool areForksInReach(const ForkPaths& paths) {
    if (paths.dataLength >= MAX_PATH) return false;
    const bool keepsForks = GetVolumeKindOfPath(paths.dataPath) != VolumeKindOther;
    return !keepsForks || (paths.resourceLength != 0 && paths.finderInfoLength != 0);
}

}  // namespace

ErrorCode PlaceExtractedFile(const Extraction& extraction, const uint8_t* macName, ExtractedFile& file) {
    const ErrorCode error = placeFile(extraction, macName, file);
    if (error != 0 || file.skip) return error;
    GetForkPaths(file.paths.dataPath, file.paths);
    if (!areForksInReach(file.paths)) return ERROR_FILENAME_EXCED_RANGE;
    char title[kPathCapacity];
    GetDisplayTitle(file.paths.dataPath, title);
    ProgressSetText(extraction.progress, title, nullptr);
    return 0;
}

ErrorCode OpenExtractedFork(const char* path, ExtractedFile& file, OwnedFile& fork) {
    fork = OwnedFile(
        CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!fork) return lastErrorOr(ERROR_ACCESS_DENIED);
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
