#include "convert/fork_copy.h"

#include "base/file.h"
#include "base/owned.h"

#include <cstring>

namespace tidewell {

namespace {

constexpr DWORD kCopyBlock = 64 * 1024;

// Of the files that are written to.
constexpr DWORD kPage = 4096;

DWORD blockOf(DWORD length) {
    return length < kCopyBlock ? length : kCopyBlock;
}

// How far into a page the file stands.
ErrorCode getPlaceInPage(HANDLE file, DWORD& place) {
    LONG high = 0;
    const DWORD low = SetFilePointer(file, 0, &high, FILE_CURRENT);
    if (low == INVALID_SET_FILE_POINTER && GetLastError() != NO_ERROR) return GetLastError();
    place = low % kPage;
    return 0;
}

}  // namespace

ErrorCode CopyForkToFile(HANDLE source, HANDLE destination, DWORD length, ProgressDialog* progress) {
    const PageBuffer buffer = PageBuffer::allocate(kPage + kCopyBlock);
    if (!buffer) return ERROR_NOT_ENOUGH_MEMORY;
    DWORD place = 0;
    ErrorCode error = getPlaceInPage(destination, place);
    // A write ends where a page of the destination does: to begin and end within one takes longer, as a
    // header before the fork would have it each time. What goes beyond waits for the next block.
    DWORD waiting = 0;
    while (error == 0 && length != 0) {
        const DWORD block = blockOf(length);
        error = ReadWhole(source, buffer.data() + waiting, block);
        if (error != 0) break;
        length -= block;
        DWORD ready = waiting + block;
        waiting = length == 0 ? 0 : (place + ready) % kPage;
        ready -= waiting;
        error = WriteWhole(destination, buffer.data(), ready);
        if (error != 0) break;
        std::memcpy(buffer.data(), buffer.data() + ready, waiting);
        place = 0;
        ProgressAdvance(progress, block);
        if (!ProgressPump(progress)) error = ERROR_CANCELLED;
    }
    return error;
}

ErrorCode WriteZeros(HANDLE file, DWORD count) {
    if (count == 0) return 0;
    const PageBuffer zeros = PageBuffer::allocate(blockOf(count));
    if (!zeros) return ERROR_NOT_ENOUGH_MEMORY;
    while (count != 0) {
        const DWORD block = blockOf(count);
        if (const ErrorCode error = WriteWhole(file, zeros.data(), block)) return error;
        count -= block;
    }
    return 0;
}

}  // namespace tidewell
