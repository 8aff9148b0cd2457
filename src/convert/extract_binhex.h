// Restoring a Mac file from a BinHex 4.0 file.
#ifndef TIDEWELL_CONVERT_EXTRACT_BINHEX_H
#define TIDEWELL_CONVERT_EXTRACT_BINHEX_H

#include "convert/extraction.h"

namespace tidewell {

// ERROR_INVALID_DATA for a file that is no BinHex, ERROR_HANDLE_EOF for one cut short or whose header claims
// more than the file can hold, ERROR_CRC for a wrong CRC, ERROR_HANDLE_DISK_FULL for a short write,
// ERROR_NOT_ENOUGH_MEMORY without memory, ERROR_CANCELLED when the user cancels; else the system's. A file
// the user keeps is no error. Nothing partial is left.
ErrorCode ExtractBinHex(const Extraction& extraction);

}  // namespace tidewell

#endif
