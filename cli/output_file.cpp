#include "output_file.h"

#include "new_file.h"
#include "replace_policy.h"

#include "base/path.h"
#include "ui/confirm_replace.h"
#include "ui/progress.h"

namespace cli {

namespace {

using tidewell::ErrorCode;

// By both its names.
struct OutputFile {
    OutputFile(const OutputFolder& folder, const std::string& name)
        : typed(typedPathOf(folder.typed, windowsNameOf(name).c_str())) {
        char path[tidewell::kPathCapacity];
        const DWORD size =
            tidewell::JoinPath(path, sizeof path, folder.windows.c_str(), windowsNameOf(name).c_str());
        if (size <= sizeof path) windows = path;
    }

    std::string typed;
    std::string windows;  // empty: longer than Windows can hold
};

// Only a file can be replaced, and not a folder, a device or a pipe. Tells, too, whether there is one.
Failure checkReplaceable(const OutputFile& output, bool& existed) {
    const DWORD attributes = GetFileAttributesA(output.windows.c_str());
    existed = attributes != INVALID_FILE_ATTRIBUTES;
    if (!existed) {
        const ErrorCode error = tidewell::lastErrorOr(ERROR_FILE_NOT_FOUND);
        if (tidewell::MeansNothingThere(error)) return {};
        return {error, "The output " + shownOn(Stream::errors, output.typed) + " cannot be replaced."};
    }
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return {};
    return {ERROR_ACCESS_DENIED, "The output " + shownOn(Stream::errors, output.typed) + " is a folder."};
}

ErrorCode makeOutput(const OutputFolder& folder, const OutputFile& output, bool mayReplace,
                     const MakeFile& make) {
    const OutputFile fresh(folder, freshNameIn(folder.typed));
    if (fresh.windows.empty()) return ERROR_FILENAME_EXCED_RANGE;
    ErrorCode error = make(fresh.windows.c_str());
    if (error != 0) return error;
    UnfinishedFile unfinished(fresh.windows.c_str());
    error = interrupted() ? ERROR_CANCELLED : rename(fresh.typed, output.typed, mayReplace);
    if (error == 0) unfinished.release();
    return error;
}

}  // namespace

Failure findOutputFolder(const std::string& typed, OutputFolder& folder) {
    folder = {typed, windowsPathOf(typed.empty() ? "." : typed)};
    const DWORD attributes = GetFileAttributesA(folder.windows.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return {tidewell::lastErrorOr(ERROR_PATH_NOT_FOUND), {}};
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return {ERROR_BAD_PATHNAME, "It is not a folder."};
    return {};
}

Result writeOutput(const OutputFolder& folder, const std::string& name, bool moreFollow,
                   tidewell::ProgressDialog* progress, const MakeFile& make) {
    const OutputFile output(folder, name);
    if (output.windows.empty()) return {{ERROR_FILENAME_EXCED_RANGE, {}}, {}};
    if (isMacInformation(output.typed.substr(fileNameStart(output.typed))))
        return {{ERROR_ACCESS_DENIED, "The output would be the Mac information of another file."}, {}};

    bool existed = false;
    if (const Failure failure = checkReplaceable(output, existed); failure.error != 0) return {failure, {}};
    tidewell::ProgressPause(progress);
    const int answer =
        tidewell::ConfirmFileReplace(nullptr, output.windows.c_str(), moreFollow ? TRUE : FALSE);
    const ErrorCode refusal = answer == -1 ? tidewell::lastErrorOr(ERROR_FILE_EXISTS) : 0;
    tidewell::ProgressResume(progress);
    if (answer == IDNO) return {};
    if (answer == IDCANCEL) return {{ERROR_CANCELLED, {}}, {}};
    if (refusal != 0) return {{refusal, takeRefusal()}, {}};
    const ErrorCode error = makeOutput(folder, output, existed, make);
    return error != 0 ? Result{{error, {}}, {}} : Result{{}, output.windows};
}

int reportResult(const char* done, const std::string& source, const OutputFolder& folder,
                 const Result& result) {
    if (result.failure.error != 0) return reportFailure(source, result.failure);
    if (result.output.empty()) return kAllDone;
    const std::string typed = typedPathOf(folder.typed, tidewell::FileNamePart(result.output.c_str()));
    protect(result.output, typed, "was written a moment ago, from another file");
    const bool told = printOutput(std::string(done) + " " + shownOn(Stream::output, source) + " -> " +
                                  shownOn(Stream::output, typed) + "\n");
    return told ? kAllDone : kSomethingFailed;
}

}  // namespace cli
