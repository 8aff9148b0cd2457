#include "set_aside.h"

#include "host.h"

#include "base/owned.h"
#include "macfile/finder_info.h"
#include "macfile/fork_paths.h"

namespace cli {

namespace {

using tidewell::ErrorCode;

ErrorCode checkReplaceable(const std::string& typed) {
    const DWORD attributes = GetFileAttributesA(typed.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return GetLastError();
    const bool kept = (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY)) != 0;
    return kept ? ERROR_ACCESS_DENIED : 0;
}

ErrorCode createEmpty(const std::string& typed) {
    const tidewell::OwnedFile file(
        CreateFileA(typed.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? 0 : GetLastError();
}

ErrorCode flush(const std::string& typed) {
    const tidewell::OwnedFile file(
        CreateFileA(typed.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file && FlushFileBuffers(file.get()) ? 0 : GetLastError();
}

}  // namespace

bool leftMacInformation(const std::string& /*typed*/) {
    return false;  // it goes with its file
}

ErrorCode SetAside::begin(const std::string& typed, const std::string& aside) {
    typed_ = typed;
    aside_ = aside;
    ErrorCode error = checkReplaceable(typed);
    if (error != 0) return error;
    // By the path as it stands: the short one is the moved file's.
    tidewell::ForkPathBuffers paths;
    lstrcpynA(paths.dataPath, windowsPathOf(typed).c_str(), static_cast<int>(paths.dataLength));
    error = tidewell::FindForkPaths(paths.dataPath, paths);
    if (error != 0) return error;
    tidewell::FinderInfoRecord record;
    const bool known = paths.finderInfoLength != 0 && tidewell::ReadFinderInfo(paths, &record) != 0;
    if (!MoveFileA(typed.c_str(), aside.c_str())) return GetLastError();
    movedFile_ = true;
    error = createEmpty(typed);
    if (error == 0 && known && !tidewell::WriteFinderInfo(paths, &record)) error = GetLastError();
    if (error != 0) bringBack();
    return error;
}

ErrorCode SetAside::bringBack() {
    const bool replaces = GetFileAttributesA(typed_.c_str()) != INVALID_FILE_ATTRIBUTES;
    const ErrorCode error = rename(aside_, typed_, replaces);
    if (error == 0) movedFile_ = false;
    return error;
}

ErrorCode SetAside::discard() {
    ErrorCode error = flush(typed_);
    if (error == 0 && !DeleteFileA(aside_.c_str())) error = GetLastError();
    if (error == 0) movedFile_ = false;
    return error;
}

std::string SetAside::what() const {
    return movedFile_ ? typed_ + " is now " + aside_ : std::string();
}

}  // namespace cli
