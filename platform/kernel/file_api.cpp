// Files and devices by handle.
#include "call.h"
#include "kernel.h"
#include "pc_path.h"

#include <utility>

namespace kernel {

namespace {

HANDLE addHandle(const std::string& path, const pc::OpenMode& mode, pc::Opened opened, const PcPath& target) {
    pc::Pc& pc = *pc::Pc::current();
    const uintptr_t value = pc.newHandle();
    pc.openFiles()[value] =
        pc::OpenFile{path, mode, std::move(opened.identity), target.device, std::move(opened.file), 0};
    return reinterpret_cast<HANDLE>(value);
}

// Who may not share a device is refused before it is opened: an opening can have its effect on the device.
pc::Error openDevice(const PcPath& target, const pc::OpenMode& mode, pc::Opened& opened) {
    opened.identity = "\\\\.\\" + std::to_string(reinterpret_cast<uintptr_t>(target.device.get()));
    const pc::Error error = pc::Pc::current()->checkSharing(opened.identity, mode);
    return error == 0 ? target.device->open(mode, opened.file) : error;
}

pc::Error openOnVolume(const PcPath& target, const pc::OpenMode& mode, pc::Opened& opened) {
    const bool query = !mode.read && !mode.write;
    pc::Error error = query ? target.volume->openForQuery(target.inside, opened)
                            : target.volume->open(target.inside, mode, opened);
    if (error == 0) error = pc::Pc::current()->checkSharing(opened.identity, mode);
    if (error == 0 && !query && !opened.created)
        error = target.volume->truncate(target.inside, mode.disposition, *opened.file);
    return error;
}

pc::Error openFile(const std::string& path, const pc::OpenMode& mode, HANDLE& handle, bool& created) {
    PcPath target;
    pc::Opened opened;
    pc::Error error = findPath(path.c_str(), target);
    if (error == 0) {
        error =
            target.device != nullptr ? openDevice(target, mode, opened) : openOnVolume(target, mode, opened);
    }
    created = opened.created;
    if (error == 0) handle = addHandle(path, mode, std::move(opened), target);
    return error;
}

}  // namespace

bool ownsHandle(HANDLE handle) {
    return pc::Pc::isHandle(reinterpret_cast<uintptr_t>(handle));
}

HANDLE CreateFileA(LPCSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES /*security*/,
                   DWORD disposition, DWORD /*flags*/, HANDLE /*templateFile*/) {
    Call call("CreateFileA", path, access);
    pc::OpenMode mode;
    mode.read = (access & GENERIC_READ) != 0;
    mode.write = (access & GENERIC_WRITE) != 0;
    mode.share = share;
    mode.disposition = disposition;
    HANDLE handle = INVALID_HANDLE_VALUE;
    pc::Error error = call.fault();
    // Windows 95 and 98 know of no other sharing.
    if (error == 0 && (share & ~(FILE_SHARE_READ | FILE_SHARE_WRITE)) != 0) error = ERROR_INVALID_PARAMETER;
    bool created = false;
    if (error == 0) error = openFile(path != nullptr ? path : "", mode, handle, created);
    const HANDLE result = call.end(error, handle, INVALID_HANDLE_VALUE);
    // So a success tells whether there was a file.
    const bool always = disposition == OPEN_ALWAYS || disposition == CREATE_ALWAYS;
    if (error == 0 && always && !created) SetLastError(ERROR_ALREADY_EXISTS);
    return result;
}

BOOL ReadFile(HANDLE handle, LPVOID buffer, DWORD count, LPDWORD transferred, LPOVERLAPPED /*overlapped*/) {
    pc::OpenFile* const file = openFileOf(handle);
    Call call("ReadFile", file, count);
    *transferred = 0;
    if (file == nullptr) return call.end(ERROR_INVALID_HANDLE);
    if (!file->mode.read) return call.end(ERROR_ACCESS_DENIED);
    pc::Error error = call.fault();
    size_t got = 0;
    if (error == 0) error = file->file->read(file->position, buffer, call.transferable(count), got);
    file->position += got;
    *transferred = static_cast<DWORD>(got);
    return call.end(error);
}

BOOL WriteFile(HANDLE handle, LPCVOID buffer, DWORD count, LPDWORD transferred, LPOVERLAPPED /*overlapped*/) {
    pc::OpenFile* const file = openFileOf(handle);
    Call call("WriteFile", file, count);
    *transferred = 0;
    if (file == nullptr) return call.end(ERROR_INVALID_HANDLE);
    if (!file->mode.write) return call.end(ERROR_ACCESS_DENIED);
    pc::Error error = call.fault();
    const size_t size = call.transferable(count);
    if (error == 0) error = file->file->write(file->position, buffer, size);
    if (error != 0) return call.end(error);
    file->position += size;
    *transferred = static_cast<DWORD>(size);
    return call.end(0);
}

DWORD SetFilePointer(HANDLE handle, LONG distance, PLONG distanceHigh, DWORD origin) {
    pc::OpenFile* const file = openFileOf(handle);
    Call call("SetFilePointer", file, static_cast<uint32_t>(distance));
    if (file == nullptr) return call.end<DWORD>(ERROR_INVALID_HANDLE, 0, INVALID_SET_FILE_POINTER);
    pc::Error error = call.fault();
    uint64_t size = 0;
    if (error == 0 && origin == FILE_END) error = file->file->size(size);
    if (error != 0) return call.end<DWORD>(error, 0, INVALID_SET_FILE_POINTER);

    int64_t offset = distance;
    if (distanceHigh != nullptr) {
        offset = static_cast<int64_t>(static_cast<uint64_t>(static_cast<uint32_t>(*distanceHigh)) << 32 |
                                      static_cast<uint32_t>(distance));
    }
    const uint64_t base = origin == FILE_BEGIN ? 0 : origin == FILE_CURRENT ? file->position : size;
    const int64_t position = static_cast<int64_t>(base + static_cast<uint64_t>(offset));
    if (position < 0) return call.end<DWORD>(ERROR_NEGATIVE_SEEK, 0, INVALID_SET_FILE_POINTER);
    if (distanceHigh != nullptr) *distanceHigh = static_cast<LONG>(position >> 32);
    file->position = static_cast<uint64_t>(position);
    SetLastError(NO_ERROR);  // 0xFFFFFFFF is a position, too
    return call.end(0, static_cast<DWORD>(file->position), INVALID_SET_FILE_POINTER);
}

DWORD GetFileSize(HANDLE handle, LPDWORD high) {
    pc::OpenFile* const file = openFileOf(handle);
    Call call("GetFileSize", file);
    if (file == nullptr) return call.end<DWORD>(ERROR_INVALID_HANDLE, 0, INVALID_FILE_SIZE);
    pc::Error error = call.fault();
    uint64_t size = 0;
    if (error == 0) error = file->file->size(size);
    if (error == 0) {
        if (high != nullptr) *high = static_cast<DWORD>(size >> 32);
        SetLastError(NO_ERROR);  // 0xFFFFFFFF is a size, too
    }
    return call.end(error, static_cast<DWORD>(size), INVALID_FILE_SIZE);
}

BOOL FlushFileBuffers(HANDLE handle) {
    pc::OpenFile* const file = openFileOf(handle);
    Call call("FlushFileBuffers", file);
    if (file == nullptr) return call.end(ERROR_INVALID_HANDLE);
    if (!file->mode.write) return call.end(ERROR_ACCESS_DENIED);
    const pc::Error error = call.fault();
    return call.end(error != 0 ? error : file->file->flush());
}

BOOL DeviceIoControl(HANDLE handle, DWORD code, LPVOID input, DWORD inputSize, LPVOID output,
                     DWORD outputSize, LPDWORD returned, LPOVERLAPPED overlapped) {
    const pc::OpenFile* const file = openFileOf(handle);
    Call call("DeviceIoControl", file, code);
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

// The handle is closed whatever is reported. Only one that was written to has anything to report.
BOOL CloseHandle(HANDLE handle) {
    pc::OpenFile* const file = openFileOf(handle);
    const std::string path = file != nullptr ? file->path : "";  // which goes with the handle
    Call call("CloseHandle", path);
    if (file == nullptr) return call.end(ERROR_INVALID_HANDLE);
    pc::Error error = file->mode.write ? call.fault() : 0;
    const pc::Error closed = pc::Pc::current()->close(reinterpret_cast<uintptr_t>(handle));
    if (error == 0) error = closed;
    return call.end(error);
}

}  // namespace kernel
