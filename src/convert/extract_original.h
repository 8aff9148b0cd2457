// Restoring a Mac file from a MacBinary or a BinHex file.
#ifndef TIDEWELL_CONVERT_EXTRACT_ORIGINAL_H
#define TIDEWELL_CONVERT_EXTRACT_ORIGINAL_H

#include "convert/extraction.h"
#include "tidewell.h"

namespace tidewell {

// ExtractOriginalMacFile for what may tell the path of the file that it has written.
ErrorCode ExtractOriginal(const Extraction& extraction);

}  // namespace tidewell

#endif
