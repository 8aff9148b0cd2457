#include "pack.h"

#include "batch.h"
#include "host.h"

#include "convert/create_macbinary.h"
#include "macfile/fork_paths.h"
#include "ui/confirm_replace.h"

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

// A file of the output folder, by both its names.
struct OutputFile {
    OutputFile(const Batch& batch, const std::string& name)
        : typed(typedPathOf(batch.typedFolder, windowsNameOf(name).c_str())) {
        char path[tidewell::kPathCapacity];
        const DWORD size =
            tidewell::JoinPath(path, sizeof path, batch.windowsFolder.c_str(), windowsNameOf(name).c_str());
        if (size <= MAX_PATH) windows = path;
    }

    std::string typed;
    std::string windows;  // empty: longer than Windows can hold
};

uint64_t sizeOfForks(const std::string& path) {
    tidewell::ForkPathBuffers paths;
    tidewell::GetForkPaths(path.c_str(), paths);
    uint64_t size = 0;
    if (paths.dataLength != 0) size += tidewell::GetFileSizeByPath(paths.dataPath);
    if (paths.resourceLength != 0) size += tidewell::GetFileSizeByPath(paths.resourcePath);
    return size;
}

// Packs into a file of another name first: until all of it is there, nothing that the user has is touched.
ErrorCode packInto(Batch& batch, const Source& source, const OutputFile& output, bool mayReplace) {
    const OutputFile unfinished(batch, freshNameIn(batch.typedFolder));
    if (unfinished.windows.empty()) return ERROR_FILENAME_EXCED_RANGE;
    ErrorCode error =
        tidewell::PackMacFile(source.windows.c_str(), unfinished.windows.c_str(), batch.progress);
    if (error != 0) return error;
    error = rename(unfinished.typed, output.typed, mayReplace);
    if (error != 0) DeleteFileA(unfinished.windows.c_str());
    return error;
}

Result packFile(Batch& batch, const Source& source) {
    const OutputFile output(batch, outputNameOf(source.windows));
    if (output.windows.empty()) return {{ERROR_FILENAME_EXCED_RANGE, {}}, {}};

    const bool existed = tidewell::MayExist(output.windows.c_str());
    tidewell::ProgressPause(batch.progress);
    const int answer =
        tidewell::ConfirmFileReplace(nullptr, output.windows.c_str(), batch.moreFollow ? TRUE : FALSE);
    const ErrorCode refusal = answer == -1 ? tidewell::lastErrorOr(ERROR_FILE_EXISTS) : 0;
    tidewell::ProgressResume(batch.progress);
    if (answer == IDNO) return {};
    if (answer == IDCANCEL) return {{ERROR_CANCELLED, {}}, {}};
    if (refusal != 0) return {{refusal, {}}, {}};
    const ErrorCode error = packInto(batch, source, output, existed);
    return error != 0 ? Result{{error, {}}, {}} : Result{{}, output.windows};
}

}  // namespace

int pack(const Options& options) {
    return runBatch(options, {"packed", false, sizeOfForks, checkMacFile, packFile});
}

}  // namespace cli
