#include "pack.h"

#include "host.h"
#include "report.h"

#include "convert/create_macbinary.h"
#include "macfile/fork_paths.h"
#include "module/module_state.h"
#include "ui/confirm_replace.h"
#include "ui/progress.h"

#include <set>

namespace cli {

namespace {

using tidewell::ErrorCode;

enum class Outcome { done, kept, failed, cancelled };

struct Source {
    std::string typed;    // as the user named it
    std::string windows;  // its full Windows path
};

// One run of the command.
struct Batch {
    std::string typedFolder;
    std::string windowsFolder;
    Replace replace;
    std::set<std::string> written;  // the outputs of this run
    tidewell::ProgressDialog* progress;
};

// What the conversion itself would report with less help, or pass over in silence.
Failure checkSource(const std::string& path) {
    if (path.size() + 1 > MAX_PATH) return {ERROR_FILENAME_EXCED_RANGE, {}};
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return {tidewell::lastErrorOr(ERROR_FILE_NOT_FOUND), {}};
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {ERROR_ACCESS_DENIED, "It is a folder."};

    tidewell::ForkPathBuffers paths;
    tidewell::GetForkPaths(path.c_str(), paths);
    if (paths.resourceLength == 0 || paths.finderInfoLength == 0)
        return {ERROR_INVALID_PARAMETER, "Its volume keeps no Macintosh information."};
    if (GetFileAttributesA(paths.finderInfoPath) != INVALID_FILE_ATTRIBUTES) return {};
    const ErrorCode error = tidewell::lastErrorOr(ERROR_FILE_NOT_FOUND);
    return {error, error == ERROR_FILE_NOT_FOUND ? "The file keeps no Macintosh information." : ""};
}

Failure checkFolder(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return {tidewell::lastErrorOr(ERROR_PATH_NOT_FOUND), {}};
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return {ERROR_BAD_PATHNAME, "It is not a folder."};
    return {};
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

Outcome fail(const Source& source, const Failure& failure) {
    reportFailure(source.typed, failure);
    return Outcome::failed;
}

// Done when the output may be written.
Outcome confirmOutput(Batch& batch, const Source& source, const std::string& output,
                      const std::string& typedOutput, bool several) {
    if (output == source.windows)
        return fail(source, {ERROR_SHARING_VIOLATION, "The output would be the file itself."});
    if (batch.written.contains(output))
        return fail(source, {ERROR_FILE_EXISTS, "Another file was just packed to " + typedOutput + "."});
    if (batch.replace == Replace::yes || GetFileAttributesA(output.c_str()) == INVALID_FILE_ATTRIBUTES)
        return Outcome::done;
    if (batch.replace == Replace::ask) {
        switch (tidewell::ConfirmFileReplace(nullptr, output.c_str(), several ? TRUE : FALSE)) {
        case IDYESTOALL: batch.replace = Replace::yes; return Outcome::done;
        case IDYES: return Outcome::done;
        case IDNO: break;
        case IDCANCEL: return Outcome::cancelled;
        default:
            return fail(source,
                        {ERROR_FILE_EXISTS, typedOutput + " exists; say --replace=yes or --replace=no."});
        }
    }
    reportNote(source.typed + ": kept " + typedOutput + ", which was there already");
    return Outcome::kept;
}

Outcome packFile(Batch& batch, const Source& source, bool several) {
    tidewell::ProgressSetText(batch.progress, source.typed.c_str(), nullptr);
    if (!tidewell::ProgressPump(batch.progress)) return Outcome::cancelled;
    const std::string output = outputPathOf(batch.windowsFolder, source.windows);

    // What is said here takes the terminal's line from the progress.
    tidewell::ProgressPause(batch.progress);
    Outcome outcome = Outcome::done;
    const std::string typedOutput = typedPathOf(batch.typedFolder, tidewell::FileNamePart(output.c_str()));
    if (const Failure failure = checkSource(source.windows); failure.error != 0) {
        outcome = fail(source, failure);
    } else if (output.empty()) {
        outcome = fail(source, {ERROR_FILENAME_EXCED_RANGE, {}});
    } else {
        outcome = confirmOutput(batch, source, output, typedOutput, several);
    }
    tidewell::ProgressResume(batch.progress);
    if (outcome != Outcome::done) return outcome;

    const ErrorCode error =
        CreateMacBinaryFile(nullptr, source.windows.c_str(), output.c_str(), &batch.progress);
    tidewell::ProgressPause(batch.progress);
    if (error == 0) {
        batch.written.insert(output);
        print(Stream::output, "packed " + source.typed + " -> " + typedOutput + "\n");
    } else if (error == ERROR_CANCELLED) {
        outcome = Outcome::cancelled;
    } else {
        outcome = fail(source, {error, {}});
    }
    tidewell::ProgressResume(batch.progress);
    return outcome;
}

int packAll(Batch& batch, const std::vector<Source>& sources) {
    int status = kAllDone;
    for (size_t i = 0; i < sources.size(); ++i) {
        const Outcome outcome = packFile(batch, sources[i], i + 1 < sources.size());
        if (outcome == Outcome::failed) status = kSomethingFailed;
        if (outcome == Outcome::cancelled) {
            tidewell::ProgressPause(batch.progress);
            reportNote("cancelled");
            return kSomethingFailed;
        }
    }
    return status;
}

}  // namespace

int pack(const Options& options) {
    const std::string folder = options.outputFolder.empty() ? "." : options.outputFolder;
    Batch batch = {options.outputFolder, windowsPathOf(folder), options.replace, {}, nullptr};
    if (const Failure failure = checkFolder(batch.windowsFolder); failure.error != 0) {
        reportFailure(folder, failure);
        return kSomethingFailed;
    }
    std::vector<Source> sources;
    uint64_t total = 0;
    for (const std::string& file : options.files) {
        sources.push_back({file, windowsPathOf(file)});
        total += sizeOfForks(sources.back().windows);
    }
    batch.progress = tidewell::ProgressCreate(tidewell::ModuleInstance, "", nullptr, TRUE);
    tidewell::ProgressSetTotal(batch.progress, &total);
    tidewell::ProgressResume(batch.progress);
    const int status = packAll(batch, sources);
    tidewell::ProgressDestroy(batch.progress);
    return status;
}

}  // namespace cli
