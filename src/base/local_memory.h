// Memory of the local allocator, which the system's own text functions give out.
#ifndef TIDEWELL_BASE_LOCAL_MEMORY_H
#define TIDEWELL_BASE_LOCAL_MEMORY_H

#include "base/owned.h"

namespace tidewell {

struct LocalTextTraits {
    using Value = char*;
    static Value none() noexcept { return nullptr; }
    static void close(Value text) noexcept { LocalFree(text); }
};
using LocalText = Owned<LocalTextTraits>;

}  // namespace tidewell

#endif
