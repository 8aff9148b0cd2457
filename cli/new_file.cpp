#include "new_file.h"

#include "base/file.h"

namespace cli {

using tidewell::ErrorCode;

ErrorCode makeNewFile(const char* path, const std::function<ErrorCode(HANDLE)>& fill) {
    UnfinishedFile unfinished;  // outlives the handle, with which the file could not be deleted
    tidewell::OwnedFile file(
        CreateFileA(path, GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return tidewell::lastError();
    unfinished = UnfinishedFile(path);
    ErrorCode error = fill(file.get());
    if (error == 0) error = tidewell::FlushWritten(file.get());
    const ErrorCode closed = tidewell::CloseWritten(file);
    if (error == 0) error = closed;
    if (error == 0) unfinished.release();
    return error;
}

ErrorCode makeNewFile(const char* path, const std::string& bytes) {
    return makeNewFile(path,
                       [&](HANDLE file) { return tidewell::WriteAll(file, bytes.data(), bytes.size()); });
}

}  // namespace cli
