// The window in which a user looks at the resources of a Mac file, and saves them.
#ifndef TIDEWELL_RESOURCES_VIEWER_H
#define TIDEWELL_RESOURCES_VIEWER_H

#include <windows.h>

namespace tidewell {

// How many viewers are open in the process: the next comes up so many steps further down.
extern volatile LONG OpenViewerCount;

// Shows the resources of the file at `path` and returns when the user closes the viewer, which is modal to
// `owner`. Returns 1, or 0 when there was nothing to show, of which the user was told.
BOOL ViewMacResources(HWND owner, const char* path);

}  // namespace tidewell

#endif
