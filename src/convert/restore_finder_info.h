// The Finder information of an extracted file.
#ifndef TIDEWELL_CONVERT_RESTORE_FINDER_INFO_H
#define TIDEWELL_CONVERT_RESTORE_FINDER_INFO_H

#include "convert/macbinary_header.h"
#include "macfile/finder_info.h"

namespace tidewell {

// Reads what a file has before it is emptied; a file on NTFS without Finder information begins with zeros.
// Errors as ReadFinderInfo has them.
ErrorCode ReadFinderInfoToKeep(const ForkPaths& paths, FinderInfoRecord& had);

// Merges the Finder fields of a header in host order into what the file had, and writes that. Type, creator,
// flags and window that are 0 in the header keep the file's; the icon position, and on a Mac volume the
// attributes, are always replaced. Returns 1, or 0 with the last error, 87 for a kind of volume that keeps
// none.
BOOL WriteFinderInfoFromHeader(const ForkPaths& paths, const FinderInfoRecord& had,
                               const MacBinaryHeader& header);

}  // namespace tidewell

#endif
