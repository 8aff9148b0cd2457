// Native builds: the system's texts of its error codes, and the messages of the library.
#include "module_message.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <string_view>

namespace {

struct SystemText {
    DWORD error;
    std::string_view text;
};

// In ascending order, each ending its line as Windows' texts do.
constexpr SystemText kSystemTexts[] = {
    {ERROR_SUCCESS, "The operation completed successfully.\r\n"},
    {ERROR_INVALID_FUNCTION, "Incorrect function.\r\n"},
    {ERROR_FILE_NOT_FOUND, "The system cannot find the file specified.\r\n"},
    {ERROR_PATH_NOT_FOUND, "The system cannot find the path specified.\r\n"},
    {ERROR_TOO_MANY_OPEN_FILES, "The system cannot open the file.\r\n"},
    {ERROR_ACCESS_DENIED, "Access is denied.\r\n"},
    {ERROR_INVALID_HANDLE, "The handle is invalid.\r\n"},
    {ERROR_NOT_ENOUGH_MEMORY, "Not enough storage is available to process this command.\r\n"},
    {ERROR_INVALID_DATA, "The data is invalid.\r\n"},
    {ERROR_WRITE_PROTECT, "The media is write protected.\r\n"},
    {ERROR_NOT_READY, "The device is not ready.\r\n"},
    {ERROR_CRC, "Data error (cyclic redundancy check).\r\n"},
    {ERROR_GEN_FAILURE, "A device attached to the system is not functioning.\r\n"},
    {ERROR_SHARING_VIOLATION,
     "The process cannot access the file because it is being used by another process.\r\n"},
    {ERROR_HANDLE_EOF, "Reached the end of the file.\r\n"},
    {ERROR_HANDLE_DISK_FULL, "The disk is full.\r\n"},
    {ERROR_FILE_EXISTS, "The file exists.\r\n"},
    {ERROR_INVALID_PARAMETER, "The parameter is incorrect.\r\n"},
    {ERROR_DISK_FULL, "There is not enough space on the disk.\r\n"},
    {ERROR_CALL_NOT_IMPLEMENTED, "This function is not supported on this system.\r\n"},
    {ERROR_INSUFFICIENT_BUFFER, "The data area passed to a system call is too small.\r\n"},
    {ERROR_INVALID_NAME, "The filename, directory name, or volume label syntax is incorrect.\r\n"},
    {ERROR_NEGATIVE_SEEK,
     "An attempt was made to move the file pointer before the beginning of the file.\r\n"},
    {ERROR_BAD_PATHNAME, "The specified path is invalid.\r\n"},
    {ERROR_ALREADY_EXISTS, "Cannot create a file when that file already exists.\r\n"},
    {ERROR_FILENAME_EXCED_RANGE, "The filename or extension is too long.\r\n"},
    {ERROR_FILE_TOO_LARGE, "The file size exceeds the limit allowed and cannot be saved.\r\n"},
    {ERROR_MORE_DATA, "More data is available.\r\n"},
    {ERROR_CAN_NOT_COMPLETE, "Cannot complete this function.\r\n"},
    {ERROR_IO_DEVICE, "The request could not be performed because of an I/O device error.\r\n"},
    {ERROR_CANCELLED, "The operation was canceled by the user.\r\n"},
    {ERROR_FILE_CORRUPT, "The file or directory is corrupted and unreadable.\r\n"},
};
static_assert(std::is_sorted(std::begin(kSystemTexts), std::end(kSystemTexts),
                             [](const SystemText& a, const SystemText& b) { return a.error < b.error; }));

DWORD findSystemText(DWORD id, std::string& text) {
    const auto* const found = std::find_if(std::begin(kSystemTexts), std::end(kSystemTexts),
                                           [id](const SystemText& entry) { return entry.error == id; });
    if (found == std::end(kSystemTexts)) return ERROR_MR_MID_NOT_FOUND;
    text = found->text;
    return 0;
}

DWORD format(DWORD flags, DWORD id, const void* arguments, std::string& text) {
    switch (flags) {
    case FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS: return findSystemText(id, text);
    case FORMAT_MESSAGE_FROM_HMODULE | FORMAT_MESSAGE_ARGUMENT_ARRAY:
        return kernel::formatModuleMessage(id, static_cast<const char* const*>(arguments), text);
    default: return ERROR_INVALID_PARAMETER;
    }
}

}  // namespace

extern "C" DWORD FormatMessageA(DWORD flags, LPCVOID /*source*/, DWORD id, DWORD /*language*/, LPSTR buffer,
                                DWORD capacity, void* arguments) {
    std::string text;
    DWORD error = format(flags, id, arguments, text);
    if (error == 0 && text.size() >= capacity) error = ERROR_INSUFFICIENT_BUFFER;
    if (error != 0) {
        SetLastError(error);
        return 0;
    }
    *std::copy(text.begin(), text.end(), buffer) = '\0';
    return static_cast<DWORD>(text.size());
}
