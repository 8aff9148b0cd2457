// Windows as the host. Its calls by name go to a PC in a test program, so every path is given to the wide
// calls; those by handle reach the system for handles that are not the PC's.
#include "host_file.h"

#include "utf8.h"
#include "win32_error.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace pc {

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr size_t kLargestTransfer = size_t{1} << 30;
constexpr std::wstring_view kLiteral = L"\\\\?\\";

Error errorFrom(DWORD code) {
    switch (code) {
    case ERROR_ALREADY_EXISTS: return kFileExists;
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_PATHNAME: return kPathNotFound;
    case ERROR_HANDLE_DISK_FULL: return kDiskFull;
    case ERROR_SUCCESS: return kGeneralFailure;
    default: return code;
    }
}

Error lastError() {
    return errorFrom(GetLastError());
}

std::wstring wideFrom(const std::string& text) {
    const std::u16string units = utf16FromUtf8(text);
    std::wstring wide(units.begin(), units.end());
    std::replace(wide.begin(), wide.end(), L'/', L'\\');
    return wide;
}

std::string textFrom(std::wstring_view wide) {
    std::string text = utf8FromUtf16(std::u16string(wide.begin(), wide.end()));
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

std::wstring fullPath(const std::wstring& path) {
    wchar_t buffer[1024];
    const DWORD length = GetFullPathNameW(path.c_str(), 1024, buffer, nullptr);
    return length != 0 && length < 1024 ? std::wstring(buffer, length) : path;
}

// The form that Windows takes literally: no limit of length, no name of a device ("NUL", "COM1") in it.
std::wstring literalPath(const std::string& path) {
    std::wstring wide = wideFrom(path);
    if (wide.starts_with(kLiteral)) return wide;
    const bool complete = wide.size() > 2 && wide[1] == L':' && wide[2] == L'\\';
    if (!complete) wide = fullPath(wide);
    if (wide.starts_with(L"\\\\")) return L"\\\\?\\UNC" + wide.substr(1);
    return std::wstring(kLiteral) + wide;
}

HANDLE handleFrom(intptr_t value) {
    return reinterpret_cast<HANDLE>(value);
}

int64_t unixTime(const FILETIME& time) {
    constexpr int64_t kTicksPerSecond = 10000000;
    constexpr int64_t kSecondsFrom1601 = 11644473600;
    const uint64_t ticks = uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
    return static_cast<int64_t>(ticks) / kTicksPerSecond - kSecondsFrom1601;
}

Error statusOf(HANDLE handle, HostStatus& status) {
    BY_HANDLE_FILE_INFORMATION raw;
    if (!GetFileInformationByHandle(handle, &raw)) return lastError();
    const bool folder = (raw.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    const bool device = (raw.dwFileAttributes & FILE_ATTRIBUTE_DEVICE) != 0;
    status.kind = device ? HostKind::other : folder ? HostKind::folder : HostKind::file;
    status.size = uint64_t{raw.nFileSizeHigh} << 32 | raw.nFileSizeLow;
    status.device = std::to_string(raw.dwVolumeSerialNumber);
    const uint64_t index = uint64_t{raw.nFileIndexHigh} << 32 | raw.nFileIndexLow;
    status.identity = status.device + ":" + std::to_string(index);
    status.ownerMayWrite = (raw.dwFileAttributes & FILE_ATTRIBUTE_READONLY) == 0;
    status.modified = unixTime(raw.ftLastWriteTime);
    return 0;
}

Error moveTo(HANDLE handle, uint64_t offset) {
    LONG high = static_cast<LONG>(offset >> 32);
    SetLastError(NO_ERROR);
    const DWORD low = SetFilePointer(handle, static_cast<LONG>(offset & 0xFFFFFFFF), &high, FILE_BEGIN);
    if (low == INVALID_SET_FILE_POINTER && GetLastError() != NO_ERROR) return lastError();
    return 0;
}

OVERLAPPED at(uint64_t offset) {
    OVERLAPPED overlapped = {};
    overlapped.Offset = static_cast<DWORD>(offset);
    overlapped.OffsetHigh = static_cast<DWORD>(offset >> 32);
    return overlapped;
}

}  // namespace

Error hostStatus(const std::string& path, HostStatus& status) {
    const HANDLE handle = CreateFileW(literalPath(path).c_str(), 0, kShareAll, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return lastError();
    const Error error = statusOf(handle, status);
    CloseHandle(handle);
    return error;
}

Error hostList(const std::string& folder, std::vector<HostItem>& items) {
    items.clear();
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW(literalPath(hostJoin(folder, "*")).c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_FILE_NOT_FOUND ? 0 : lastError();
    do {
        const std::wstring_view name = found.cFileName;
        const bool link = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (name != L"." && name != L"..") items.push_back({textFrom(name), isFolder && !link});
    } while (FindNextFileW(search, &found));
    const Error error = GetLastError() == ERROR_NO_MORE_FILES ? 0 : lastError();
    FindClose(search);
    return error;
}

Error hostRemove(const std::string& path) {
    return DeleteFileW(literalPath(path).c_str()) ? 0 : lastError();
}

Error hostReplace(const std::string& from, const std::string& to) {
    const BOOL moved =
        MoveFileExW(literalPath(from).c_str(), literalPath(to).c_str(), MOVEFILE_REPLACE_EXISTING);
    return moved ? 0 : lastError();
}

Error hostMove(const std::string& from, const std::string& to) {
    return MoveFileExW(literalPath(from).c_str(), literalPath(to).c_str(), 0) ? 0 : lastError();
}

std::string hostAbsolute(const std::string& path) {
    std::string absolute = textFrom(fullPath(wideFrom(path)));
    const bool drive = absolute.size() == 3 && absolute[1] == ':';
    if (!drive && absolute.size() > 1 && absolute.back() == '/') absolute.pop_back();
    return absolute;
}

unsigned long hostProcess() {
    return GetCurrentProcessId();
}

Error HostFile::open(const std::string& path, const HostAccess& access, std::shared_ptr<SpaceLimit> space,
                     std::unique_ptr<HostFile>& file) {
    HostStatus status;
    if (!access.create) {
        const Error error = hostStatus(path, status);
        if (error != 0) return error;
        if (status.kind != HostKind::file) return kAccessDenied;
    }
    const DWORD rights = (access.read ? GENERIC_READ : 0) | (access.write ? GENERIC_WRITE : 0);
    const HANDLE handle = CreateFileW(literalPath(path).c_str(), rights, kShareAll, nullptr,
                                      access.create ? CREATE_NEW : OPEN_EXISTING, 0, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return lastError();
    std::unique_ptr<HostFile> opened(new HostFile(reinterpret_cast<intptr_t>(handle), std::move(space)));
    if (GetFileType(handle) != FILE_TYPE_DISK) return kAccessDenied;
    file = std::move(opened);
    return 0;
}

Error HostFile::closeHandle(intptr_t handle) {
    return CloseHandle(handleFrom(handle)) ? 0 : lastError();
}

Error HostFile::read(uint64_t offset, void* buffer, size_t count, size_t& got) {
    got = 0;
    while (got < count) {
        OVERLAPPED position = at(offset + got);
        const DWORD wanted = static_cast<DWORD>(std::min(count - got, kLargestTransfer));
        DWORD done = 0;
        if (!ReadFile(handleFrom(handle_), static_cast<char*>(buffer) + got, wanted, &done, &position)) {
            return GetLastError() == ERROR_HANDLE_EOF ? 0 : lastError();
        }
        if (done == 0) break;
        got += done;
    }
    return 0;
}

Error HostFile::writeAll(uint64_t offset, const void* buffer, size_t count) {
    for (size_t written = 0; written < count;) {
        OVERLAPPED position = at(offset + written);
        const DWORD wanted = static_cast<DWORD>(std::min(count - written, kLargestTransfer));
        const char* const from = static_cast<const char*>(buffer) + written;
        DWORD done = 0;
        if (!WriteFile(handleFrom(handle_), from, wanted, &done, &position)) return lastError();
        if (done == 0) return kDiskFull;
        written += done;
    }
    return 0;
}

Error HostFile::size(uint64_t& bytes) {
    DWORD high = 0;
    SetLastError(NO_ERROR);
    const DWORD low = GetFileSize(handleFrom(handle_), &high);
    if (low == INVALID_FILE_SIZE && GetLastError() != NO_ERROR) return lastError();
    bytes = uint64_t{high} << 32 | low;
    return 0;
}

Error HostFile::resize(uint64_t bytes) {
    const Error error = moveTo(handleFrom(handle_), bytes);
    if (error != 0) return error;
    return SetEndOfFile(handleFrom(handle_)) ? 0 : lastError();
}

Error HostFile::flush() {
    return FlushFileBuffers(handleFrom(handle_)) ? 0 : lastError();
}

Error HostFile::status(HostStatus& status) const {
    return statusOf(handleFrom(handle_), status);
}

// A new file gets the folder's permissions from Windows.
void HostFile::takePermissions(const std::string& /*path*/, bool /*ownerWrites*/) {}

}  // namespace pc
