#include "support/local_allocations_windows.h"

#include "support/replaced_import_windows.h"

#include <algorithm>

int failingAllocation = 0;
SIZE_T largestAllocation = 0;

namespace {

HLOCAL WINAPI localAlloc(UINT flags, SIZE_T size) {
    static const auto real = systemFunction<decltype(&LocalAlloc)>("kernel32.dll", "LocalAlloc");
    largestAllocation = std::max(largestAllocation, size);
    if (failingAllocation == 0 || --failingAllocation != 0) return real(flags, size);
    SetLastError(ERROR_OUTOFMEMORY);
    return nullptr;
}

}  // namespace

REPLACE_IMPORT(LocalAlloc, 8, localAlloc);
