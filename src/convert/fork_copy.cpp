#include "convert/fork_copy.h"

#include "base/file.h"
#include "base/owned.h"

namespace tidewell {

namespace {

constexpr DWORD kCopyBlock = 64 * 1024;

DWORD blockOf(DWORD length) {
    return length < kCopyBlock ? length : kCopyBlock;
}

}  // namespace

ErrorCode CopyForkToFile(HANDLE source, HANDLE destination, DWORD length, ProgressDialog* progress) {
    const PageBuffer buffer = PageBuffer::allocate(kCopyBlock);
    if (!buffer) return ERROR_NOT_ENOUGH_MEMORY;
    while (length != 0) {
        const DWORD block = blockOf(length);
        ErrorCode error = ReadWhole(source, buffer.data(), block);
        if (error == 0) error = WriteWhole(destination, buffer.data(), block);
        if (error != 0) return error;
        ProgressAdvance(progress, block);
        if (!ProgressPump(progress)) return ERROR_CANCELLED;
        length -= block;
    }
    return 0;
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
