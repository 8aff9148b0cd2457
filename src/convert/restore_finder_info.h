// The Finder information of an extracted file.
#ifndef TIDEWELL_CONVERT_RESTORE_FINDER_INFO_H
#define TIDEWELL_CONVERT_RESTORE_FINDER_INFO_H

#include "convert/macbinary_header.h"

namespace tidewell {

// Merges the Finder fields of a header in host order into the Finder information at `finderInfoPath`. Type,
// creator, flags and window that are 0 in the header keep what the file had; the icon position, and on a Mac
// volume the attributes, are always replaced. Returns 1, or 0 with the last error, ERROR_INVALID_PARAMETER
// for a kind of volume that keeps none.
BOOL WriteFinderInfoFromHeader(const char* finderInfoPath, const MacBinaryHeader& header);

}  // namespace tidewell

#endif
