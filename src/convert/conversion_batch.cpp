#include "convert/conversion_batch.h"

#include "base/path.h"
#include "convert/replace_question.h"
#include "macfile/fork_paths.h"
#include "messages.h"
#include "module/module_state.h"
#include "ui/display_title.h"
#include "ui/file_failure.h"

#include <cstring>

namespace tidewell {

namespace {

struct RunningBatch {
    const ConversionBatch& batch;
    HWND owner;
    ProgressDialog* progress = nullptr;
    DWORD flags = 0;  // kReplaceAll, kMoreFollow
};

// What the commands differ in.
struct BatchWork {
    uint64_t (*sizeOf)(const char* path);  // what the conversion of a file adds to the progress
    ErrorCode (*convert)(RunningBatch& running, const char* path);
    DWORD failureMessage;
};

// Whole, also beyond 4 GB: a bar that is full at a tenth of the work would tell nothing.
uint64_t sizeOf(const char* path) {
    uint64_t size = 0;
    return GetSizeByPath(path, size) == 0 ? size : 0;
}

ErrorCode extract(RunningBatch& running, const char* path) {
    return ExtractOriginalMacFile(running.owner, path, running.batch.folder, &running.flags,
                                  &running.progress);
}

uint64_t forkSizes(const char* path) {
    ForkPathBuffers paths;
    GetForkPaths(path, paths);
    return sizeOf(paths.dataPath) + sizeOf(paths.resourcePath);
}

ErrorCode makeOutputPath(const char* folder, const char* path, char* output) {
    constexpr char kExtension[] = ".bin";
    if (JoinPath(output, kPathCapacity, folder, FileNamePart(path)) > kPathCapacity)
        return ERROR_FILENAME_EXCED_RANGE;
    const size_t kept = static_cast<size_t>(FileExtension(output) - output);
    if (kept + sizeof kExtension > kPathCapacity) return ERROR_FILENAME_EXCED_RANGE;
    std::memcpy(output + kept, kExtension, sizeof kExtension);
    return 0;
}

ErrorCode pack(RunningBatch& running, const char* path) {
    char output[kPathCapacity];
    ErrorCode error = makeOutputPath(running.batch.folder, path, output);
    bool skip = false;
    if (error == 0) error = AskToReplace(running.owner, output, running.flags, running.progress, skip);
    if (error != 0 || skip) return error;
    return CreateMacBinaryFile(running.owner, path, output, &running.progress);
}

constexpr BatchWork kExtraction = {sizeOf, extract, MSG_EXTRACT_FAILED};
constexpr BatchWork kPacking = {forkSizes, pack, MSG_CREATE_FAILED};

// False when the user cancels meanwhile: to look at thousands of files on a network takes its time.
bool showProgress(RunningBatch& running, const BatchWork& work) {
    const ConversionBatch& batch = running.batch;
    running.progress = ProgressCreate(ModuleInstance, batch.display.title, nullptr, TRUE);
    if (!running.progress) return true;
    running.owner = ProgressWindow(running.progress);
    ProgressSetText(running.progress, batch.display.preparing, nullptr);
    ProgressSetIcon(running.progress, batch.display.icon);
    uint64_t total = 0;
    for (const char* path = nullptr; (path = batch.files.Next(path)) != nullptr;) {
        if (!ProgressPump(running.progress)) return false;
        total += work.sizeOf(path);
    }
    ProgressSetTotal(running.progress, &total);
    ProgressResume(running.progress);
    return true;
}

UINT buttonsAfter(ErrorCode error, bool moreFollow) {
    if (IsRetryableError(error)) return MB_RETRYCANCEL;
    return moreFollow ? MB_OKCANCEL : MB_OK;
}

int askAfterFailure(const RunningBatch& running, const BatchWork& work, ErrorCode error, const char* title) {
    const UINT buttons = buttonsAfter(error, (running.flags & kMoreFollow) != 0);
    ProgressPause(running.progress);
    const int answer = AskAfterFailure({running.owner, error, work.failureMessage,
                                        MB_ICONEXCLAMATION | buttons, title, running.batch.folder});
    ProgressResume(running.progress);
    return answer;
}

// Whether the batch goes on after the file, which is done or given up.
bool convertFile(RunningBatch& running, const BatchWork& work, const char* path) {
    char title[kPathCapacity];
    GetDisplayTitle(path, title);
    uint64_t done = 0;
    ProgressGetDone(running.progress, &done);
    for (;;) {
        ProgressSetText(running.progress, title, nullptr);
        // Nothing is begun for a user who has cancelled.
        if (!ProgressPump(running.progress)) return false;
        const ErrorCode error = work.convert(running, path);
        if (error == 0) return true;
        if (error == ERROR_CANCELLED) return false;
        const int answer = askAfterFailure(running, work, error, title);
        if (answer != IDRETRY) return answer == IDOK;
        // What the attempt has counted is counted again.
        ProgressSetDone(running.progress, &done);
    }
}

void run(const ConversionBatch& batch, const BatchWork& work) {
    RunningBatch running = {batch, batch.owner};
    bool goesOn = showProgress(running, work);
    const char* path = goesOn ? batch.files.Next(nullptr) : nullptr;
    while (path && goesOn) {
        const char* const next = batch.files.Next(path);
        running.flags = next ? running.flags | kMoreFollow : running.flags & ~kMoreFollow;
        goesOn = convertFile(running, work, path);
        path = next;
    }
    ProgressDestroy(running.progress);
}

}  // namespace

void ExtractFiles(const ConversionBatch& batch) {
    run(batch, kExtraction);
}

void PackFiles(const ConversionBatch& batch) {
    run(batch, kPacking);
}

bool IsRetryableError(ErrorCode error) {
    switch (error) {
    case ERROR_WRITE_PROTECT:
    case ERROR_NOT_READY:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_DISK_FULL: return true;
    default: return false;
    }
}

}  // namespace tidewell
