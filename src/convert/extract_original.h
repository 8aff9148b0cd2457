// Restoring a Mac file from a MacBinary or a BinHex file.
#ifndef TIDEWELL_CONVERT_EXTRACT_ORIGINAL_H
#define TIDEWELL_CONVERT_EXTRACT_ORIGINAL_H

#include "convert/extraction.h"

namespace tidewell {

// Restores the Mac file that the source (".bin" or ".hqx", in any case) holds into the destination folder.
// Besides the errors of the extractions: 161 when the destination is no folder, 13 for any other extension.
// The source is only read.
ErrorCode ExtractOriginal(const Extraction& extraction);

}  // namespace tidewell

extern "C" {

// ExtractOriginal for other programs. `owner` owns the replace question; `flags` is the batch's, kReplaceAll
// and kMoreFollow; `progressRef` points to a ProgressDialog pointer, and either may be null. Any ANSI paths.
// 87 when another pointer is null, 123 for a device as the folder.
tidewell::ErrorCode WINAPI ExtractOriginalMacFile(HWND owner, const char* sourcePath,
                                                  const char* destinationFolder, DWORD* flags,
                                                  tidewell::ProgressDialog** progressRef);
}

#endif
