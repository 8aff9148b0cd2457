// The files of a data object.
#ifndef TIDEWELL_SHELLEXT_DROPPED_FILES_H
#define TIDEWELL_SHELLEXT_DROPPED_FILES_H

#include "base/path_list.h"

#include <objidl.h>

namespace tidewell {

// Adds the paths of the files that the shell hands over in a data object, which may be null, so that the list
// begins with the last. False when it has no list of files, and when one of them cannot be reached by a path
// in the ANSI code page of less than kPathCapacity bytes, or memory runs out: what is in `lastFirst` then is
// not all.
bool AddDroppedFiles(IDataObject* object, PathList& lastFirst);

}  // namespace tidewell

#endif
