// Requests to devices.
#include "call.h"
#include "kernel.h"
#include "open_file.h"

#include <span>

namespace kernel {

BOOL DeviceIoControl(HANDLE handle, DWORD code, LPVOID input, DWORD inputSize, LPVOID output,
                     DWORD outputSize, LPDWORD returned, LPOVERLAPPED overlapped) {
    const pc::OpenFile* const file = openFileOf(handle);
    Call call("DeviceIoControl", pathOf(file), code);
    if (file == nullptr) return call.end(ERROR_INVALID_HANDLE);
    const bool noInput = input == nullptr && inputSize != 0;
    const bool noOutput = output == nullptr && outputSize != 0;
    // Every request is answered before the call returns.
    if (noInput || noOutput || returned == nullptr || overlapped != nullptr)
        return call.end(ERROR_INVALID_PARAMETER);
    *returned = 0;
    pc::Error error = call.fault();
    if (error != 0) return call.end(error);
    size_t size = 0;
    error = file->file->control(code, {static_cast<const uint8_t*>(input), inputSize},
                                {static_cast<uint8_t*>(output), outputSize}, size);
    *returned = static_cast<DWORD>(size);
    return call.end(error);
}

}  // namespace kernel
