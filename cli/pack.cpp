#include "pack.h"

#include "batch.h"
#include "host.h"

#include "convert/create_macbinary.h"
#include "macfile/fork_paths.h"

namespace cli {

namespace {

using tidewell::ErrorCode;

// Besides what makes a file, what the conversion itself would tell with less help, or pass over in silence.
Failure checkMacFile(const std::string& path) {
    if (Failure failure = checkFile(path); failure.error != 0) return failure;
    tidewell::ForkPathBuffers paths;
    const ErrorCode error = tidewell::FindMacFile(path.c_str(), paths);
    switch (error) {
    case ERROR_INVALID_PARAMETER: return {error, "Its volume keeps no Macintosh information."};
    case ERROR_FILE_NOT_FOUND: return {error, "The file keeps no Macintosh information."};
    default: return {error, {}};
    }
}

// The source's file name as the user knows it, with ".bin" for its extension, or after it.
std::string outputNameOf(const std::string& source) {
    const char* const name = tidewell::FileNamePart(source.c_str());
    const std::string stem(name, static_cast<size_t>(tidewell::FileExtension(name) - name));
    return typedPathOf({}, stem.c_str()) + ".bin";
}

uint64_t sizeOfForks(const std::string& path) {
    tidewell::ForkPathBuffers paths;
    tidewell::GetForkPaths(path.c_str(), paths);
    uint64_t size = 0;
    if (paths.dataLength != 0) size += tidewell::GetFileSizeByPath(paths.dataPath);
    if (paths.resourceLength != 0) size += tidewell::GetFileSizeByPath(paths.resourcePath);
    return size;
}

Result packFile(Batch& batch, const Source& source) {
    const auto make = [&](const char* path) {
        return tidewell::PackMacFile(source.windows.c_str(), path, batch.progress);
    };
    return writeOutput(batch.folder, outputNameOf(source.windows), batch.moreFollow, batch.progress, make);
}

}  // namespace

int pack(const Options& options) {
    return runBatch(options, {"packed", false, sizeOfForks, checkMacFile, packFile});
}

}  // namespace cli
