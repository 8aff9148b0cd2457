// From a handle to what it has open on the PC.
#ifndef TIDEWELL_PLATFORM_KERNEL_OPEN_FILE_H
#define TIDEWELL_PLATFORM_KERNEL_OPEN_FILE_H

#include "pc/pc.h"

#include <windows.h>

#include <string_view>

namespace kernel {

// Null when the handle is none of the PC's.
inline pc::OpenFile* openFileOf(HANDLE handle) {
    pc::Pc* const pc = pc::Pc::current();
    if (pc == nullptr) return nullptr;
    const auto found = pc->openFiles().find(reinterpret_cast<uintptr_t>(handle));
    return found == pc->openFiles().end() ? nullptr : &found->second;
}

inline std::string_view pathOf(const pc::OpenFile* file) {
    return file != nullptr ? std::string_view(file->path) : std::string_view();
}

}  // namespace kernel

#endif
