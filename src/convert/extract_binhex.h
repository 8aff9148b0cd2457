// Restoring a Mac file from a BinHex 4.0 file.
#ifndef TIDEWELL_CONVERT_EXTRACT_BINHEX_H
#define TIDEWELL_CONVERT_EXTRACT_BINHEX_H

#include "convert/extraction.h"

namespace tidewell {

// 13 for a file that is no BinHex, 38 for one cut short or whose header claims more than the file can hold,
// 23 for a wrong CRC, 39 for a short write, 8 without memory, 1223 when the user cancels; else the system's.
// A file the user keeps is no error. Nothing partial is left.
ErrorCode ExtractBinHex(const Extraction& extraction);

}  // namespace tidewell

#endif
