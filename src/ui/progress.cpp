#include "ui/progress.h"

#include "base/error_code.h"
#include "base/heap.h"
#include "ui/progress_arithmetic.h"
#include "ui/user.h"

namespace tidewell {

namespace {

const ProgressDisplay& display() {
    return *CurrentUser().progress;
}

// Turns the starting moment into the elapsed time, and that back into a starting moment.
void turnClock(ProgressDialog& progress) {
    progress.clock = SystemTime100ns() - progress.clock;
}

void setTotal(ProgressDialog& progress, uint64_t total) {
    progress.total = total;
    progress.shift = ProgressShift(total);
    display().setRange(progress, static_cast<uint16_t>(total >> progress.shift));
}

void setDone(ProgressDialog& progress, uint64_t done) {
    progress.done = done;
    if (done > progress.total) setTotal(progress, done);
    display().setPosition(progress, static_cast<uint16_t>(done >> progress.shift));
    display().serve(progress);
}

}  // namespace

ProgressDialog* ProgressCreate(HINSTANCE instance, const char* title, HWND owner, BOOL startPaused) {
    if (!instance || !title) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    auto* const progress = NewRecord<ProgressDialog>();
    if (!progress) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    progress->instance = instance;
    if (startPaused)
        progress->pauses = 1;
    else
        progress->clock = SystemTime100ns();
    if (!display().create(*progress, title, owner)) {
        const ErrorCode error = GetLastError();
        DeleteRecord(progress);
        SetLastError(error);
        return nullptr;
    }
    return progress;
}

void ProgressDestroy(ProgressDialog* progress) {
    if (!progress) return;
    display().destroy(*progress);
    DeleteRecord(progress);
}

LRESULT ProgressSetIcon(ProgressDialog* progress, HICON icon) {
    if (!progress || !icon) return failWith(ERROR_INVALID_PARAMETER);
    return display().setIcon(*progress, icon);
}

BOOL ProgressSetText(ProgressDialog* progress, const char* line1, const char* line2) {
    if (!progress) return failWith(ERROR_INVALID_PARAMETER);
    display().setText(*progress, line1, line2);
    return 1;
}

BOOL ProgressPump(ProgressDialog* progress) {
    if (!progress) return 1;
    display().serve(*progress);
    return progress->cancelled == 0;
}

HWND ProgressWindow(const ProgressDialog* progress) {
    return progress ? progress->window : nullptr;
}

BOOL ProgressSetTotal(ProgressDialog* progress, const uint64_t* total) {
    if (!progress || !total) return failWith(ERROR_INVALID_PARAMETER);
    setTotal(*progress, *total);
    return 1;
}

BOOL ProgressSetDone(ProgressDialog* progress, const uint64_t* done) {
    if (!progress || !done) return failWith(ERROR_INVALID_PARAMETER);
    setDone(*progress, *done);
    return 1;
}

BOOL ProgressAdvance(ProgressDialog* progress, uint32_t amount) {
    if (!progress) return failWith(ERROR_INVALID_PARAMETER);
    setDone(*progress, progress->done + amount);
    return 1;
}

BOOL ProgressGetDone(const ProgressDialog* progress, uint64_t* done) {
    if (!progress || !done) return failWith(ERROR_INVALID_PARAMETER);
    *done = progress->done;
    return 1;
}

BOOL ProgressPause(ProgressDialog* progress) {
    if (!progress) return failWith(ERROR_INVALID_PARAMETER);
    if (++progress->pauses == 1) {
        turnClock(*progress);
        display().showNow(*progress);
    }
    return 1;
}

BOOL ProgressResume(ProgressDialog* progress) {
    if (!progress || progress->pauses == 0) return failWith(ERROR_INVALID_PARAMETER);
    if (--progress->pauses == 0) {
        turnClock(*progress);
        display().serve(*progress);
    }
    return 1;
}

TimeRemaining ProgressTimeRemaining(const ProgressDialog& progress) {
    if (progress.pauses != 0) return {0, 0};
    return EstimateTimeRemaining(SystemTime100ns() - progress.clock, progress.done, progress.total);
}

}  // namespace tidewell
