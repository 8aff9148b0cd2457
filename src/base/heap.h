// Records on the process's heap, which anybody can give back.
#ifndef TIDEWELL_BASE_HEAP_H
#define TIDEWELL_BASE_HEAP_H

#include <windows.h>

namespace tidewell {

// Zero-filled; null without memory.
template <typename T>
T* NewRecord() noexcept {
    return static_cast<T*>(HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, sizeof(T)));
}

// Of a record from NewRecord, or null.
inline void DeleteRecord(void* record) noexcept {
    if (record) HeapFree(GetProcessHeap(), 0, record);
}

}  // namespace tidewell

#endif
