#include "fork_source.h"

#include "explanations.h"
#include "batch.h"

#include "convert/archived_fork.h"
#include "macfile/fork_paths.h"

#include <utility>

namespace cli {

namespace {

using tidewell::ErrorCode;
using tidewell::ForkBytes;

const Failure kNoResources = {ERROR_CAN_NOT_COMPLETE, "It has no resources."};

ErrorCode openFile(const char* path, ForkBytes& bytes) {
    tidewell::OwnedFile file;
    const ErrorCode error = tidewell::OpenForReading(path, file);
    if (error == 0) bytes = ForkBytes(std::move(file));
    return error;
}

// The fork that the volume keeps for the file; none when it keeps none, or an empty one.
ErrorCode openOwnFork(const std::string& path, ForkBytes& bytes) {
    tidewell::ForkPathBuffers paths;
    ErrorCode error = tidewell::FindForkPaths(path.c_str(), paths);
    if (error != 0 || paths.resourceLength == 0) return error;
    error = openFile(paths.resourcePath, bytes);
    if (error != 0) return tidewell::MeansNothingThere(error) ? 0 : error;
    uint64_t size = 0;
    error = bytes.GetSize(size);
    if (size == 0) bytes = {};
    return error;
}

// A listing asks for a few bytes tens of thousands of times, and the system would take its time for each.
// A fork of no sane size stays where it is.
ErrorCode readIntoMemory(ForkBytes& bytes) {
    constexpr uint64_t kMost =
        uint64_t{32} * 1024 * 1024;  // no resource's data begins beyond the first 16 MB
    uint64_t size = 0;
    ErrorCode error = bytes.GetSize(size);
    if (error != 0 || size == 0 || size > kMost) return error;
    tidewell::PageBuffer memory = tidewell::PageBuffer::allocate(static_cast<SIZE_T>(size));
    if (!memory) return 0;
    error = bytes.ReadWholeAt(0, memory.data(), static_cast<DWORD>(size));
    if (error == 0) bytes = ForkBytes(std::move(memory), size);
    return error;
}

Failure openForkBytes(const ForkSource& source, ForkBytes& bytes) {
    if (Failure failure = checkFile(source.windows); failure.error != 0) return failure;
    const char* const path = source.windows.c_str();
    if (source.fileIsFork) return {openFile(path, bytes), {}};
    ErrorCode error = openOwnFork(source.windows, bytes);
    if (error != 0) return {error, {}};
    if (bytes) return {};
    if (!tidewell::IsArchivePath(path)) return kNoResources;
    error = tidewell::OpenArchivedFork(path, bytes);
    return {error, explanationOf(error)};
}

}  // namespace

Failure openFork(const ForkSource& source, tidewell::ResourceForkReader& reader) {
    ForkBytes bytes;
    if (Failure failure = openForkBytes(source, bytes); failure.error != 0) return failure;
    ErrorCode error = readIntoMemory(bytes);
    if (error != 0) return {error, {}};
    if (reader.Open(std::move(bytes))) return {};
    error = tidewell::lastError();
    if (error == ERROR_CAN_NOT_COMPLETE) return kNoResources;
    return {error, error == ERROR_HANDLE_EOF ? "It is no resource fork, or it ends too early." : ""};
}

}  // namespace cli
