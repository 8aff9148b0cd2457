// Restoring a Mac file from a MacBinary file.
#ifndef TIDEWELL_CONVERT_EXTRACT_MACBINARY_H
#define TIDEWELL_CONVERT_EXTRACT_MACBINARY_H

#include "convert/extraction.h"

namespace tidewell {

// 23 for a header whose CRC is wrong, 13 for one that is none, 38 for a file shorter than its header says or
// a fork cut short, 39 for a short write, 8 without memory, 1223 when the user cancels; else the system's.
// A file the user keeps is no error. Nothing partial is left.
ErrorCode ExtractMacBinary(const Extraction& extraction);

}  // namespace tidewell

#endif
