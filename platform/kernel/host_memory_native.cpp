#include "host_memory.h"

#include <cstdint>
#include <cstdlib>

#include <sys/mman.h>

namespace kernel {

namespace {

// From here on blocks are mapped by themselves, in large pages where the system has them: a whole file in
// small pages takes longer to fault in than to read.
constexpr size_t kMapped = size_t{4} << 20;
constexpr size_t kLargePage = size_t{2} << 20;

}  // namespace

void* takeHostMemory(size_t size) {
    if (size < kMapped) return std::calloc(1, size);
    if (size > SIZE_MAX - kLargePage) return nullptr;
    const size_t mapped = size + kLargePage;
    void* const memory =
        mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (memory == MAP_FAILED) return nullptr;
    madvise(memory, mapped, MADV_HUGEPAGE);
    return memory;
}

void giveHostMemory(void* memory, size_t size) {
    if (size < kMapped) {
        std::free(memory);
    } else {
        munmap(memory, size + kLargePage);
    }
}

}  // namespace kernel
