#include "base/replacement_file.h"

#include "base/full_path.h"
#include "base/path.h"
#include "base/text.h"

#include <cstring>

namespace tidewell {

namespace {

// An 8.3 name: every file system takes it, and Windows keeps room for one in the path of every folder.
constexpr char kFreshName[] = "TW000000.TMP";
constexpr size_t kLastDigit = 7;
constexpr unsigned kFreshNames = 1000;

ErrorCode moveFile(const char* from, const char* to) {
    return MoveFileA(from, to) ? 0 : lastError();
}

// Calls `take` with names in the folder of `path`, from the one with the number `next` on, until it has taken
// one. Systems do not agree on the error for a name that something has, so that is looked at.
template <typename Take>
ErrorCode takeFreshName(const char* path, unsigned& next, char* fresh, Take take) {
    const char* const wanted = FileNamePart(path);
    const size_t folder = static_cast<size_t>(wanted - path);
    if (folder + sizeof kFreshName > kPathCapacity) return ERROR_FILENAME_EXCED_RANGE;
    char* const name = fresh + folder;
    std::memcpy(fresh, path, folder);
    std::memcpy(name, kFreshName, sizeof kFreshName);
    ErrorCode error = ERROR_FILE_EXISTS;
    while (next < kFreshNames) {
        char* digit = name + kLastDigit;
        for (unsigned rest = next++; rest != 0; rest /= 10)
            *digit-- = static_cast<char>('0' + rest % 10);
        // Nothing need be there yet, and it is not free all the same.
        if (equalsIgnoringCase(name, wanted)) continue;
        error = take();
        if (error == 0 || GetFileAttributesA(fresh) == INVALID_FILE_ATTRIBUTES) break;
    }
    return error;
}

}  // namespace

ErrorCode ReplacementFile::Create(const char* path) {
    ErrorCode error = GetFullOutputPath(path, path_);
    if (error != 0) return error;
    if (lastCharacter(FileNamePart(path_), ':') != nullptr) return ERROR_INVALID_NAME;
    // A file that its user may not write to, or is using, is not replaced, although it might be moved.
    const OwnedFile old(
        CreateFileA(path_, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    error = old ? 0 : lastError();
    if (error != 0 && error != ERROR_FILE_NOT_FOUND) return error;
    replaces_ = error == 0;
    error = takeFreshName(path_, nextFresh_, fresh_, [this] {
        file_ = OwnedFile(
            CreateFileA(fresh_, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        return file_ ? 0 : lastError();
    });
    // The name is not this file's.
    if (error != 0) fresh_[0] = '\0';
    return error;
}

void ReplacementFile::Discard() noexcept {
    file_.reset();
    if (fresh_[0] != '\0') DeleteFileA(fresh_);
    fresh_[0] = '\0';
}

ErrorCode ReplacementFile::Commit() {
    // The old file must not go before the disk has the new one.
    ErrorCode error = FlushWritten(file_.get());
    const ErrorCode closed = CloseWritten(file_);
    if (error == 0) error = closed;
    if (error == 0) error = TakePlace();
    if (error == 0) fresh_[0] = '\0';
    Discard();
    return error;
}

ErrorCode ReplacementFile::TakePlace() {
    if (!replaces_) return moveFile(fresh_, path_);
    char aside[kPathCapacity];
    const ErrorCode error = takeFreshName(path_, nextFresh_, aside, [&] { return moveFile(path_, aside); });
    // It has gone by itself.
    if (error == ERROR_FILE_NOT_FOUND) return moveFile(fresh_, path_);
    return error == 0 ? TakePlaceOf(aside) : error;
}

// An old file that cannot be deleted would stay under a name that tells its user nothing: then it is not
// replaced. If it can neither be deleted nor brought back, the new file stays: no name is worse than either.
ErrorCode ReplacementFile::TakePlaceOf(const char* aside) const {
    ErrorCode error = moveFile(fresh_, path_);
    if (error == 0) {
        if (DeleteFileA(aside)) return 0;
        error = lastError();
        if (moveFile(path_, fresh_) != 0) return error;
    }
    if (moveFile(aside, path_) != 0) moveFile(fresh_, path_);
    return error;
}

}  // namespace tidewell
