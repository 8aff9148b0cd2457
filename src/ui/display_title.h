// A file's name as the user's settings show it.
#ifndef TIDEWELL_UI_DISPLAY_TITLE_H
#define TIDEWELL_UI_DISPLAY_TITLE_H

#include "base/file.h"

namespace tidewell {

// The system's title of the file at `path`, which follows the user's setting for extensions; the path itself
// when the system has none. `title` holds kPathCapacity bytes.
void GetDisplayTitle(const char* path, char* title);

}  // namespace tidewell

#endif
