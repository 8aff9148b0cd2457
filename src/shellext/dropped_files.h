// The files of a data object.
#ifndef TIDEWELL_SHELLEXT_DROPPED_FILES_H
#define TIDEWELL_SHELLEXT_DROPPED_FILES_H

#include "base/path.h"

#include <windows.h>
#include <objidl.h>

namespace tidewell {

// The list of files that the shell hands over in a data object, for as long as the object lives.
class DroppedFiles {
  public:
    // None for a data object that is null or has no such list.
    explicit DroppedFiles(IDataObject* object);
    ~DroppedFiles();
    DroppedFiles(const DroppedFiles&) = delete;
    DroppedFiles& operator=(const DroppedFiles&) = delete;

    UINT Count() const;
    // The path of a file into a buffer of kPathCapacity bytes; false when it does not fit.
    bool GetPath(UINT index, char* path) const;

  private:
    STGMEDIUM medium_ = {};
};

}  // namespace tidewell

#endif
