#include "convert/create_macbinary.h"

#include "base/file.h"
#include "base/full_path.h"
#include "convert/fork_copy.h"
#include "convert/macbinary_header.h"
#include "macfile/fork_paths.h"
#include "module/module_state.h"
#include "ui/progress.h"

#include <shlobj.h>

namespace tidewell {

namespace {

struct OpenForks {
    OwnedFile data;
    OwnedFile resource;  // none when the file has no resource fork
};

// 2 when there is nothing at `path`. Any other failure is no proof of that, and the file is not passed over.
ErrorCode checkExists(const char* path) {
    if (GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES) return 0;
    const ErrorCode error = lastError();
    return error == ERROR_PATH_NOT_FOUND ? ERROR_FILE_NOT_FOUND : error;
}

ErrorCode openForks(const ForkPaths& paths, OpenForks& forks) {
    ErrorCode error = OpenForReading(paths.dataPath, forks.data);
    if (error != 0) return error;
    error = OpenForReading(paths.resourcePath, forks.resource);
    return error == ERROR_FILE_NOT_FOUND ? 0 : error;
}

ErrorCode writeHeader(HANDLE output, MacBinaryHeader& header) {
    if (!WriteMacBinaryHeader(output, &header)) return lastError();
    return WriteZeros(output, kMacBinaryBlock - sizeof header);
}

ErrorCode writeFork(HANDLE output, HANDLE fork, DWORD length, ProgressDialog* progress) {
    if (length == 0) return 0;
    const ErrorCode error = CopyForkToFile(fork, output, length, progress);
    return error != 0 ? error : WriteZeros(output, MacBinaryPadding(length));
}

ErrorCode writeOutput(const char* outputPath, const OpenForks& forks, MacBinaryHeader& header,
                      ProgressDialog* progress) {
    OwnedFile output(
        CreateFileA(outputPath, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!output) return lastError();
    ErrorCode error = writeHeader(output.get(), header);
    if (error == 0) error = writeFork(output.get(), forks.data.get(), header.dataLength, progress);
    if (error == 0) error = writeFork(output.get(), forks.resource.get(), header.resourceLength, progress);
    const ErrorCode closed = CloseWritten(output);
    if (error == 0) error = closed;
    if (error != 0) {
        DeleteFileA(outputPath);
    } else {
        SHChangeNotify(SHCNE_CREATE, SHCNF_PATHA, outputPath, nullptr);
    }
    return error;
}

ErrorCode createFromFullPaths(const char* sourcePath, const char* outputPath, ProgressDialog* progress) {
    if (sourcePath == nullptr || outputPath == nullptr) return ERROR_INVALID_PARAMETER;
    char source[kPathCapacity];
    char output[kPathCapacity];
    ErrorCode error = GetFullPath(sourcePath, source);
    if (error != 0) return MeansNothingThere(error) ? ERROR_INVALID_PARAMETER : error;
    error = GetFullOutputPath(outputPath, output);
    return error != 0 ? error : PackMacFile(source, output, progress);
}

}  // namespace

ErrorCode FindMacFile(const char* sourcePath, ForkPaths& paths) {
    ErrorCode error = FindForkPaths(sourcePath, paths);
    // A drive without its disk may get it; of a file that is there, nothing else says that it keeps nothing.
    const bool none = paths.dataLength == 0 && MeansNothingThere(error) && error != ERROR_NOT_READY;
    if (error != 0) return none ? ERROR_INVALID_PARAMETER : error;
    if (paths.kind == VolumeKindOther) return ERROR_INVALID_PARAMETER;
    error = checkExists(paths.dataPath);
    // Under Windows 95 and 98 only the driver keeps Finder information, and it has one for every file.
    return error != 0 || !RunningOnNt ? error : checkExists(paths.finderInfoPath);
}

ErrorCode PackMacFile(const char* sourcePath, const char* outputPath, ProgressDialog* progress) {
    // A fork is no file with forks of its own; its Finder information would be its folder's.
    if (IsForkPath(sourcePath)) return ERROR_INVALID_NAME;
    ForkPathBuffers paths;
    ErrorCode error = FindMacFile(sourcePath, paths);
    if (error != 0) return error == ERROR_FILE_NOT_FOUND ? 0 : error;

    OpenForks forks;
    error = openForks(paths, forks);
    if (error != 0) return error;
    MacBinaryHeader header;
    if (!BuildMacBinaryHeader(paths, forks.data.get(), forks.resource.get(), &header)) return lastError();
    // Only the forks are held open: an output that is the source's Finder information would replace it.
    if (IsForkPath(outputPath)) return ERROR_INVALID_NAME;
    return writeOutput(outputPath, forks, header, progress);
}

}  // namespace tidewell

DWORD WINAPI CreateMacBinaryFile(HWND, const char* sourcePath, const char* outputPath,
                                 TidewellProgress** progressRef) {
    tidewell::ProgressDialog* const progress = progressRef != nullptr ? *progressRef : nullptr;
    return tidewell::createFromFullPaths(sourcePath, outputPath, progress);
}
