// What the module state takes from Windows itself.
#ifndef TIDEWELL_MODULE_SYSTEM_FACTS_H
#define TIDEWELL_MODULE_SYSTEM_FACTS_H

#include "module/module_state.h"

namespace tidewell {

// What cannot be found out is as if it were not so; nothing of it fails.
extern const SystemFacts WindowsFacts;

}  // namespace tidewell

#endif
