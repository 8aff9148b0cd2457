// The conversions over the files that a user has selected: one after the other, under one progress, and with
// a question after each failure.
#ifndef TIDEWELL_CONVERT_CONVERSION_BATCH_H
#define TIDEWELL_CONVERT_CONVERSION_BATCH_H

#include "base/error_code.h"
#include "base/path_list.h"

namespace tidewell {

// What the progress shows of a batch, each null when it cannot be had. Without a title no progress is shown,
// and nobody can cancel.
struct BatchDisplay {
    const char* title;
    const char* preparing;  // while the amount of work is found out
    HICON icon;
};

struct ConversionBatch {
    HWND owner;  // of questions and messages, where the progress is no window
    const PathList& files;
    const char* folder;  // where the outputs go
    BatchDisplay display;
};

// Restores the Mac file from each MacBinary or BinHex file, by ExtractOriginalMacFile.
void ExtractFiles(const ConversionBatch& batch);

// Packs each Mac file into a MacBinary file, by CreateMacBinaryFile: its name with ".bin" for its extension.
void PackFiles(const ConversionBatch& batch);

// Whether the user can do something about an error, so that the same file may be tried again: the medium is
// write-protected or full, or the drive is not ready.
bool IsRetryableError(ErrorCode error);

}  // namespace tidewell

#endif
