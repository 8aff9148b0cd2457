// What is done when a process loads the library.
#ifndef TIDEWELL_MODULE_ATTACH_H
#define TIDEWELL_MODULE_ATTACH_H

#include "module/module_state.h"

namespace tidewell {

// Fixes the module state. What cannot be found out leaves its flag false, or the library's own resources in
// use; nothing of it fails.
void AttachModule(HINSTANCE instance);

}  // namespace tidewell

#endif
