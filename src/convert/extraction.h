// What the two extractors share: placing the file, and being done with it.
#ifndef TIDEWELL_CONVERT_EXTRACTION_H
#define TIDEWELL_CONVERT_EXTRACTION_H

#include "base/owned.h"
#include "convert/replace_question.h"
#include "macfile/finder_info.h"
#include "ui/progress.h"

#include <cstdint>

namespace tidewell {

// What every extraction is given.
struct Extraction {
    HWND owner;
    const char* sourcePath;
    const char* destinationFolder;
    DWORD* flags;  // kReplaceAll, kMoreFollow
    ProgressDialog* progress;
    char* extractedPath;  // null, or kPathCapacity bytes for the path of the file that was written
};

// The file that an extraction writes.
struct ExtractedFile {
    ForkPathBuffers paths;
    // What the file had before it was emptied: on NTFS it may be gone then.
    FinderInfoRecord finderInfo;
    bool skip = false;  // the user keeps the file that is there
    // Whether what is at the data path is the extraction's own: a file it made, or one it has begun to
    // replace. Only then may a failure delete it.
    bool owned = false;
};

// Finds or makes the file with the length-prefixed `macName` in the destination folder, asking before one
// that is there is replaced, and shows its title as the first line of the progress. ERROR_INVALID_DATA for a
// name that begins with NUL, before anything is asked; ERROR_FILE_EXISTS when the question has no answer;
// ERROR_FILENAME_EXCED_RANGE for a fork whose path is too long; ERROR_CANCELLED when the user cancels.
ErrorCode PlaceExtractedFile(const Extraction& extraction, const uint8_t* macName, ExtractedFile& file);

// Creates or empties a fork for writing; the file is `owned` from then on.
ErrorCode OpenExtractedFork(const char* path, ExtractedFile& file, OwnedFile& fork);

// Ends the extraction: the shell is told of a whole file, a failed one is deleted. Returns `error`.
ErrorCode FinishExtractedFile(const Extraction& extraction, const ExtractedFile& file, ErrorCode error);

}  // namespace tidewell

#endif
