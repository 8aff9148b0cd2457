// The library's own resources, linked into a native program.
#ifndef TIDEWELL_PLATFORM_KERNEL_EMBEDDED_RESOURCES_H
#define TIDEWELL_PLATFORM_KERNEL_EMBEDDED_RESOURCES_H

#include "resources.h"

namespace kernel {

ResourceFile embeddedResources();

}  // namespace kernel

#endif
