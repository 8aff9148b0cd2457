#include "macfile/driver.h"

namespace tidewell {

ErrorCode OpenMacDriver(OwnedFile& device) {
    device = OwnedFile(
        CreateFileA("\\\\.\\TIDEWELL", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    return device ? 0 : lastError();
}

ErrorCode SendDriverRequest(HANDLE device, DWORD code, const void* input, DWORD inputSize, void* output,
                            DWORD outputSize, DWORD* returned) {
    DWORD size = 0;
    const BOOL done = DeviceIoControl(device, code, const_cast<void*>(input), inputSize, output, outputSize,
                                      &size, nullptr);
    if (!done) return lastError();
    if (returned != nullptr) *returned = size;
    return 0;
}

}  // namespace tidewell
