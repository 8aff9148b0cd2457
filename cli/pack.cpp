#include "pack.h"

#include "batch.h"

#include "convert/create_macbinary.h"
#include "macfile/fork_paths.h"
#include "ui/confirm_replace.h"

namespace cli {

namespace {

using tidewell::ErrorCode;

// Besides what makes a file, what the conversion itself would tell with less help, or pass over in silence.
Failure checkMacFile(const std::string& path) {
    if (const Failure failure = checkFile(path); failure.error != 0) return failure;
    tidewell::ForkPathBuffers paths;
    const ErrorCode error = tidewell::FindMacFile(path.c_str(), paths);
    switch (error) {
    case ERROR_INVALID_PARAMETER: return {error, "Its volume keeps no Macintosh information."};
    case ERROR_FILE_NOT_FOUND: return {error, "The file keeps no Macintosh information."};
    default: return {error, {}};
    }
}

// The file name of the source with ".bin" for its extension, or after it. Empty when that is too long.
std::string outputPathOf(const std::string& folder, const std::string& source) {
    char path[tidewell::kPathCapacity];
    const char* const name = tidewell::FileNamePart(source.c_str());
    if (tidewell::JoinPath(path, sizeof path, folder.c_str(), name) > sizeof path) return {};
    const std::string output =
        std::string(path, static_cast<size_t>(tidewell::FileExtension(path) - path)) + ".bin";
    return output.size() + 1 > MAX_PATH ? std::string() : output;
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
    const std::string output = outputPathOf(batch.windowsFolder, source.windows);
    if (output.empty()) return {{ERROR_FILENAME_EXCED_RANGE, {}}, {}};

    tidewell::ProgressPause(batch.progress);
    const int answer = tidewell::ConfirmFileReplace(nullptr, output.c_str(), batch.moreFollow ? TRUE : FALSE);
    const ErrorCode refusal = answer == -1 ? tidewell::lastErrorOr(ERROR_FILE_EXISTS) : 0;
    tidewell::ProgressResume(batch.progress);
    if (answer == IDNO) return {};
    if (answer == IDCANCEL) return {{ERROR_CANCELLED, {}}, {}};
    if (refusal != 0) return {{refusal, {}}, {}};
    const ErrorCode error =
        CreateMacBinaryFile(nullptr, source.windows.c_str(), output.c_str(), &batch.progress);
    return error != 0 ? Result{{error, {}}, {}} : Result{{}, output};
}

}  // namespace

int pack(const Options& options) {
    return runBatch(options, {"packed", sizeOfForks, checkMacFile, packFile});
}

}  // namespace cli
