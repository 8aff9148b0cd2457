#include "ui/progress.h"

#include "pc/pc.h"
#include "res/resource.h"
#include "support/scripted_user.h"
#include "ui/progress_display.h"

#include <doctest/doctest.h>

#include <limits>
#include <vector>

using namespace tidewell;

namespace {

constexpr int64_t kSecond = 10'000'000;
constexpr uint64_t kTotal = 1000;
constexpr uint64_t kMost = std::numeric_limits<uint64_t>::max();

using Values = std::vector<uint16_t>;

// A progress on a PC whose clock stands still.
class Progress {
  public:
    explicit Progress(BOOL startPaused = FALSE) {
        scriptedUser = {};
        pc_.clock().set((int64_t{30'000'000} << 32) - 1);  // whose high half is about to change
        dialog_ = ProgressCreate(GetModuleHandleA(nullptr), "Packing", nullptr, startPaused);
        REQUIRE(dialog_ != nullptr);
        CHECK(ProgressSetTotal(dialog_, &kTotal) == 1);
    }
    ~Progress() {
        ProgressDestroy(dialog_);
        CHECK(scriptedUser.destroyed == 1);
        CHECK(pc_.nothingHeld());
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    operator ProgressDialog*() const { return dialog_; }
    ProgressDialog* operator->() const { return dialog_; }

    // Seconds, after more of them have passed.
    uint32_t remainingAfter(int64_t seconds) {
        pc_.clock().advance(seconds * kSecond);
        const TimeRemaining estimate = ProgressTimeRemaining(*dialog_);
        if (estimate.stringId != 0) CHECK(estimate.stringId == IDS_SECONDS_REMAINING);
        return estimate.number;
    }

  private:
    pc::Pc pc_;
    const UserInCharge user_{&kScriptedUser};
    ProgressDialog* dialog_;
};

// The result of a call that failed with this error.
void refused(LRESULT result, DWORD error = ERROR_INVALID_PARAMETER) {
    CHECK(result == 0);
    CHECK(GetLastError() == error);
    SetLastError(0);
}

}  // namespace

TEST_CASE("Progress that is not there harms nothing, and null arguments change nothing") {
    Progress progress;
    uint64_t value = 7;
    ProgressDialog* const none = nullptr;
    HICON const icon = reinterpret_cast<HICON>(1);
    refused(ProgressSetIcon(none, icon));
    CHECK(ProgressSetIcon(progress, icon) == reinterpret_cast<LRESULT>(icon));
    refused(ProgressSetIcon(progress, nullptr));
    refused(ProgressSetText(none, "a", "b"));
    refused(ProgressSetTotal(none, &value));
    refused(ProgressSetTotal(progress, nullptr));
    refused(ProgressSetDone(none, &value));
    refused(ProgressSetDone(progress, nullptr));
    refused(ProgressAdvance(none, 1));
    refused(ProgressGetDone(none, &value));
    refused(ProgressGetDone(progress, nullptr));
    refused(ProgressPause(none));
    refused(ProgressResume(none));
    CHECK(value == 7);
    CHECK(progress->total == kTotal);
    CHECK(scriptedUser.serves == 0);
    CHECK(ProgressPump(none) == 1);
    CHECK(ProgressWindow(none) == nullptr);
    ProgressDestroy(none);
}

TEST_CASE("A progress that cannot be made is null with the reason") {
    pc::Pc pc;
    const UserInCharge user(&kScriptedUser);
    const auto create = [](const char* title) {
        return ProgressCreate(GetModuleHandleA(nullptr), title, nullptr, FALSE) != nullptr;
    };
    scriptedUser = {};
    refused(create(nullptr));
    scriptedUser.createError = ERROR_ACCESS_DENIED;
    refused(create("x"), ERROR_ACCESS_DENIED);
    scriptedUser = {};
    pc.faults().failMemory(1);
    refused(create("x"), ERROR_NOT_ENOUGH_MEMORY);
    CHECK(scriptedUser.created == 0);
    CHECK(pc.nothingHeld());
}

TEST_CASE("The bar follows the work in 16 bits, and is full when more is done than the total") {
    Progress progress;
    CHECK(ProgressAdvance(progress, 400) == 1);
    CHECK(scriptedUser.ranges == Values{1000});
    CHECK(scriptedUser.positions == Values{400});
    // Each step serves the display, setting the total does not.
    CHECK(scriptedUser.serves == 1);

    const uint64_t total = 0x30'0000'0001;
    uint64_t done = 0x1F'FFFF'FFFF;
    CHECK(ProgressSetTotal(progress, &total) == 1);
    CHECK(ProgressSetDone(progress, &done) == 1);
    CHECK(ProgressAdvance(progress, 1) == 1);
    CHECK(ProgressGetDone(progress, &done) == 1);
    CHECK(done == 0x20'0000'0000);
    CHECK(ProgressSetDone(progress, &kMost) == 1);
    CHECK(progress->total == kMost);
    CHECK(progress->shift == 48);
    CHECK(scriptedUser.ranges == Values{1000, 0x30, 0xFFFF});
    CHECK(scriptedUser.positions == Values{400, 0x1F, 0x20, 0xFFFF});
}

TEST_CASE("The time remaining comes from the running clock alone") {
    Progress progress(TRUE);
    CHECK(ProgressAdvance(progress, 250) == 1);
    CHECK(progress.remainingAfter(100) == 0);
    CHECK(ProgressResume(progress) == 1);
    CHECK(progress.remainingAfter(0) == 0);
    CHECK(progress.remainingAfter(10) == 30);

    CHECK(ProgressPause(progress) == 1);
    CHECK(ProgressPause(progress) == 1);
    CHECK(ProgressResume(progress) == 1);
    CHECK(progress.remainingAfter(1000) == 0);
    CHECK(ProgressResume(progress) == 1);
    CHECK(progress.remainingAfter(0) == 30);
}

TEST_CASE("The outermost pause shows the display, the outermost resume serves it") {
    for (const BOOL startPaused : {FALSE, TRUE}) {
        Progress progress(startPaused);
        const int shows = startPaused ? 0 : 1;  // not until a pause of its own
        if (!startPaused) CHECK(ProgressPause(progress) == 1);
        CHECK(ProgressPause(progress) == 1);
        CHECK(scriptedUser.shows == shows);
        CHECK(ProgressResume(progress) == 1);
        CHECK(scriptedUser.serves == 0);
        CHECK(ProgressResume(progress) == 1);
        CHECK(scriptedUser.serves == 1);
        const int64_t clock = progress->clock;
        refused(ProgressResume(progress));
        CHECK(progress->clock == clock);
        CHECK(progress->pauses == 0);
        CHECK(ProgressPause(progress) == 1);
        CHECK(scriptedUser.shows == shows + 1);
    }
}
