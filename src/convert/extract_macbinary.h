// Restoring a Mac file from a MacBinary file.
#ifndef TIDEWELL_CONVERT_EXTRACT_MACBINARY_H
#define TIDEWELL_CONVERT_EXTRACT_MACBINARY_H

#include "convert/extraction.h"

namespace tidewell {

// ERROR_CRC for a header whose CRC is wrong, ERROR_INVALID_DATA for one that is none, ERROR_HANDLE_EOF for a
// file shorter than its header says or a fork cut short, ERROR_HANDLE_DISK_FULL for a short write,
// ERROR_NOT_ENOUGH_MEMORY without memory, ERROR_CANCELLED when the user cancels; else the system's. A file
// the user keeps is no error. Nothing partial is left.
ErrorCode ExtractMacBinary(const Extraction& extraction);

}  // namespace tidewell

#endif
