// Page memory and the process heap. The PC keeps count of what the library holds.
#include "call.h"
#include "kernel.h"

#include <cstdint>
#include <cstdlib>
#include <map>

#ifndef _WIN32
#include <sys/mman.h>
#endif

namespace kernel {

namespace {

// Memory of the host: zero-filled, null when there is none; it goes back with its size.
#ifdef _WIN32

void* takeHostMemory(size_t size) {
    return std::calloc(1, size);
}

void giveHostMemory(void* memory, size_t) {
    std::free(memory);
}

#else

// From here on blocks are mapped by themselves, in large pages where the system has them: a whole file in
// small pages takes longer to fault in than to read.
constexpr size_t kMapped = size_t{4} << 20;
constexpr size_t kLargePage = size_t{2} << 20;

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

#endif

// Memory can outlive the PC it was taken under, in a test that fails half-way; a block is recognised
// without one.
std::map<const void*, SIZE_T>& livingBlocks() {
    static std::map<const void*, SIZE_T> blocks;
    return blocks;
}

void* allocate(Call& call, SIZE_T size) {
    const pc::Error error = call.memoryFault();
    void* const memory = error == 0 ? takeHostMemory(size) : nullptr;
    if (memory == nullptr) return call.end<void*>(ERROR_NOT_ENOUGH_MEMORY, nullptr, nullptr);
    livingBlocks()[memory] = size;
    if (pc::Pc* const pc = pc::Pc::current()) pc->memory().insert(memory);
    return call.end(0, memory, static_cast<void*>(nullptr));
}

BOOL release(Call& call, void* memory) {
    const auto block = livingBlocks().find(memory);
    if (block == livingBlocks().end()) return call.end(ERROR_INVALID_PARAMETER);
    if (pc::Pc* const pc = pc::Pc::current()) pc->memory().erase(memory);
    giveHostMemory(memory, block->second);
    livingBlocks().erase(block);
    return call.end(0);
}

}  // namespace

bool ownsMemory(const void* memory) {
    return livingBlocks().contains(memory);
}

LPVOID VirtualAlloc(LPVOID /*address*/, SIZE_T size, DWORD /*type*/, DWORD /*protection*/) {
    Call call("VirtualAlloc", "", size);
    if (size == 0) return call.end<void*>(ERROR_INVALID_PARAMETER, nullptr, nullptr);
    return allocate(call, size);
}

BOOL VirtualFree(LPVOID address, SIZE_T /*size*/, DWORD /*type*/) {
    Call call("VirtualFree");
    return release(call, address);
}

LPVOID HeapAlloc(HANDLE /*heap*/, DWORD /*flags*/, SIZE_T size) {
    Call call("HeapAlloc", "", size);
    return allocate(call, size == 0 ? 1 : size);
}

BOOL HeapFree(HANDLE /*heap*/, DWORD /*flags*/, LPVOID memory) {
    Call call("HeapFree");
    return release(call, memory);
}

}  // namespace kernel
