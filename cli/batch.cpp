#include "batch.h"

#include "host.h"
#include "replace_policy.h"
#include "base/path.h"
#include "module/module_state.h"

#include <optional>
#include <vector>

namespace cli {

namespace {

Failure checkFolder(const std::string& path) {
    const DWORD attributes = GetFileAttributesA(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return {tidewell::lastErrorOr(ERROR_PATH_NOT_FOUND), {}};
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return {ERROR_BAD_PATHNAME, "It is not a folder."};
    // Not even a name of one character fits after it.
    if (path.size() + sizeof "\\x" > MAX_PATH) return {ERROR_FILENAME_EXCED_RANGE, {}};
    return {};
}

// While it lives the terminal's line is free of the progress.
class Quiet {
  public:
    explicit Quiet(tidewell::ProgressDialog* progress) : progress_(progress) {
        tidewell::ProgressPause(progress_);
    }
    ~Quiet() { tidewell::ProgressResume(progress_); }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

  private:
    tidewell::ProgressDialog* progress_;
};

Result runOne(Batch& batch, const Command& command, const Source& source) {
    tidewell::ProgressSetText(batch.progress, source.typed.c_str(), nullptr);
    if (!tidewell::ProgressPump(batch.progress)) return {{ERROR_CANCELLED, {}}, {}};
    const Failure failure = command.check(source.windows);
    if (failure.error != 0) return {failure, {}};
    // Two processes must not write to one file, each a fork of it.
    std::optional<FolderLock> lock;
    if (command.writesInPlace) lock.emplace(batch.typedFolder);
    Result result = command.run(batch, source);
    endReplacing(result.failure.error == 0);
    if (const std::string refusal = takeRefusal(); !refusal.empty()) result.failure.text = refusal;
    return result;
}

// Returns the exit status that the file leads to.
int report(const Command& command, const Options& options, const Source& source, const Result& result) {
    if (result.failure.error == ERROR_CANCELLED) {
        reportNote("cancelled");
    } else if (result.failure.error != 0) {
        reportFailure(source.typed, result.failure);
    } else if (!result.output.empty()) {
        const std::string output =
            typedPathOf(options.outputFolder, tidewell::FileNamePart(result.output.c_str()));
        protect(result.output, output, "was written a moment ago, from another file");
        const bool told =
            print(Stream::output, std::string(command.done) + " " + shownOn(Stream::output, source.typed) +
                                      " -> " + shownOn(Stream::output, output) + "\n");
        return told ? kAllDone : kSomethingFailed;
    }
    return result.failure.error == 0 ? kAllDone : kSomethingFailed;
}

}  // namespace

Failure checkFile(const std::string& windowsPath) {
    if (windowsPath.size() + 1 > MAX_PATH) return {ERROR_FILENAME_EXCED_RANGE, {}};
    const DWORD attributes = GetFileAttributesA(windowsPath.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return {tidewell::lastErrorOr(ERROR_FILE_NOT_FOUND), {}};
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {ERROR_ACCESS_DENIED, "It is a folder."};
    return {};
}

int runBatch(const Options& options, const Command& command) {
    const std::string folder = options.outputFolder.empty() ? "." : options.outputFolder;
    Batch batch;
    batch.typedFolder = options.outputFolder;
    batch.windowsFolder = windowsPathOf(folder);
    if (const Failure failure = checkFolder(batch.windowsFolder); failure.error != 0) {
        reportFailure(folder, failure);
        return kSomethingFailed;
    }
    std::vector<Source> sources;
    uint64_t total = 0;
    for (const std::string& file : options.files) {
        sources.push_back({file, windowsPathOf(file)});
        total += command.sizeOf(sources.back().windows);
    }
    beginReplacing(options.replace, options.outputFolder, command.writesInPlace);
    for (const Source& source : sources)
        protect(source.windows, source.typed, "is a file to work on");
    batch.progress = tidewell::ProgressCreate(tidewell::ModuleInstance, "", nullptr, TRUE);
    tidewell::ProgressSetTotal(batch.progress, &total);
    tidewell::ProgressResume(batch.progress);
    int status = kAllDone;
    for (size_t i = 0; i < sources.size(); ++i) {
        batch.moreFollow = i + 1 < sources.size();
        const Result result = runOne(batch, command, sources[i]);
        const Quiet quiet(batch.progress);
        if (report(command, options, sources[i], result) != kAllDone) status = kSomethingFailed;
        if (result.failure.error == ERROR_CANCELLED) break;
    }
    tidewell::ProgressDestroy(batch.progress);
    return status;
}

}  // namespace cli
