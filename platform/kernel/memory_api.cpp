// Page memory and the process heap. The PC keeps count of what the library holds.
#include "call.h"
#include "kernel.h"

#include <cstring>
#include <cstdlib>
#include <set>

namespace kernel {

namespace {

// Memory can outlive the PC it was taken under, in a test that fails half-way; a block is recognised
// without one.
std::set<const void*>& livingBlocks() {
    static std::set<const void*> blocks;
    return blocks;
}

void* allocate(Call& call, SIZE_T size) {
    const pc::Error error = call.memoryFault();
    void* const memory = error == 0 ? std::calloc(1, size) : nullptr;
    if (memory == nullptr) return call.end<void*>(ERROR_NOT_ENOUGH_MEMORY, nullptr, nullptr);
    livingBlocks().insert(memory);
    if (pc::Pc* const pc = pc::Pc::current()) pc->memory().insert(memory);
    return call.end(0, memory, static_cast<void*>(nullptr));
}

BOOL release(Call& call, void* memory) {
    const auto block = livingBlocks().find(memory);
    if (block == livingBlocks().end()) return call.end(ERROR_INVALID_PARAMETER);
    if (pc::Pc* const pc = pc::Pc::current()) pc->memory().erase(memory);
    std::free(memory);
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

LPVOID HeapAlloc(HANDLE /*heap*/, DWORD flags, SIZE_T size) {
    Call call("HeapAlloc", "", size);
    void* const memory = allocate(call, size == 0 ? 1 : size);
    // What nobody has asked to be zero is anything else.
    if (memory && (flags & HEAP_ZERO_MEMORY) == 0) std::memset(memory, 0xCD, size);
    return memory;
}

BOOL HeapFree(HANDLE /*heap*/, DWORD /*flags*/, LPVOID memory) {
    Call call("HeapFree");
    return release(call, memory);
}

}  // namespace kernel
