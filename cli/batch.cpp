#include "batch.h"

#include "host.h"
#include "replace_policy.h"
#include "module/module_state.h"

#include <optional>
#include <vector>

namespace cli {

namespace {

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
    if (command.writesInPlace) lock.emplace(batch.folder.typed);
    Result result = command.run(batch, source);
    endReplacing(result.failure.error == 0);
    return result;
}

}  // namespace

Failure checkFile(const std::string& windowsPath) {
    const DWORD attributes = GetFileAttributesA(windowsPath.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return {tidewell::lastErrorOr(ERROR_FILE_NOT_FOUND), {}};
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return {ERROR_ACCESS_DENIED, "It is a folder."};
    return {};
}

int runBatch(const Options& options, const Command& command) {
    Batch batch;
    const Failure failure = findOutputFolder(options.outputFolder, batch.folder);
    if (failure.error != 0)
        return reportFailure(options.outputFolder.empty() ? "." : options.outputFolder, failure);
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
        if (reportResult(command.done, sources[i].typed, batch.folder, result) != kAllDone)
            status = kSomethingFailed;
        if (result.failure.error == ERROR_CANCELLED) break;
    }
    tidewell::ProgressDestroy(batch.progress);
    return status;
}

}  // namespace cli
