// Memory from the host.
#ifndef TIDEWELL_PLATFORM_KERNEL_HOST_MEMORY_H
#define TIDEWELL_PLATFORM_KERNEL_HOST_MEMORY_H

#include <cstddef>

namespace kernel {

// Zero-filled; null when there is none. It goes back with its size.
void* takeHostMemory(size_t size);
void giveHostMemory(void* memory, size_t size);

}  // namespace kernel

#endif
