// A file that takes its place only when it is whole.
#ifndef TIDEWELL_BASE_REPLACEMENT_FILE_H
#define TIDEWELL_BASE_REPLACEMENT_FILE_H

#include "base/file.h"

namespace tidewell {

// Written under a fresh name in the folder of its path, beside the file that it may replace. Used once, by
// one thread.
class ReplacementFile {
  public:
    ReplacementFile() noexcept = default;
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;
    // A file that was not committed is deleted.
    ~ReplacementFile() { Discard(); }

    // Makes the file, empty. What is at `path` now is what Commit replaces: the user has agreed to it. That
    // has to be a file that can be written to, or nothing: ERROR_ACCESS_DENIED for a folder or a read-only
    // file, ERROR_SHARING_VIOLATION for a file that is open. ERROR_INVALID_NAME for a device or a stream,
    // ERROR_FILENAME_EXCED_RANGE for a path that does not fit; else the system's error.
    ErrorCode Create(const char* path);

    // For writing, shared with nobody.
    HANDLE get() const noexcept { return file_.get(); }

    // Puts the file on the disk and in its place; the one that it replaces goes with all its forks. The
    // system's error; ERROR_ALREADY_EXISTS when a file has come to the path since. After an error the new
    // file is gone, and the old one is under its name. When a second call has failed and that cannot be, the
    // old file is whole under the fresh name that it was set aside with.
    ErrorCode Commit();

  private:
    void Discard() noexcept;
    ErrorCode TakePlace();
    ErrorCode TakePlaceOf(const char* aside) const;

    OwnedFile file_;
    bool replaces_ = false;
    unsigned nextFresh_ = 0;
    char path_[kPathCapacity];
    char fresh_[kPathCapacity] = "";  // empty: there is no such file, or it has taken its place
};

}  // namespace tidewell

#endif
