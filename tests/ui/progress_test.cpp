#include "ui/progress.h"

#include "res/resource.h"
#include "support/scripted_progress_display.h"
#include "pc/pc.h"
#include "ui/progress_display.h"

#include <doctest/doctest.h>

#include <limits>
#include <vector>

using namespace tidewell;
using scripted_display::record;

namespace {

constexpr int64_t kSecond = 10'000'000;
constexpr uint64_t kTotal = 1000;

using Values = std::vector<uint16_t>;

// A progress on a PC whose clock stands still.
class Progress {
  public:
    explicit Progress(BOOL startPaused = FALSE) {
        scripted_display::reset();
        pc_.clock().set(130'000'000'000'000'000);
        dialog_ = ProgressCreate(GetModuleHandleA(nullptr), "Packing", nullptr, startPaused);
        REQUIRE(dialog_ != nullptr);
        CHECK(ProgressSetTotal(dialog_, &kTotal));
    }
    ~Progress() {
        ProgressDestroy(dialog_);
        CHECK(record().destroyed == 1);
        CHECK(pc_.nothingHeld());
    }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    operator ProgressDialog*() const { return dialog_; }
    ProgressDialog* operator->() const { return dialog_; }

    void pass(int64_t seconds) { pc_.clock().advance(seconds * kSecond); }
    uint32_t secondsRemaining() const {
        const TimeRemaining estimate = ProgressTimeRemaining(*dialog_);
        if (estimate.stringId != 0) CHECK(estimate.stringId == IDS_SECONDS_REMAINING);
        return estimate.number;
    }

  private:
    pc::Pc pc_;
    ProgressDialog* dialog_;
};

// What `call` leaves as the last error when it fails.
template <typename Call>
DWORD errorOf(Call call) {
    SetLastError(0);
    CHECK(call() == 0);
    return GetLastError();
}

}  // namespace

TEST_CASE("Progress that is not there harms nothing") {
    uint64_t value = 7;
    ProgressDialog* const none = nullptr;
    HICON const icon = reinterpret_cast<HICON>(1);
    CHECK(errorOf([&] { return ProgressSetIcon(none, icon); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressSetText(none, "a", "b"); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressSetTotal(none, &value); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressSetDone(none, &value); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressAdvance(none, 1); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressGetDone(none, &value); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressPause(none); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressResume(none); }) == ERROR_INVALID_PARAMETER);
    CHECK(value == 7);
    CHECK(ProgressPump(none) == 1);
    CHECK(ProgressWindow(none) == nullptr);
    ProgressDestroy(none);
}

TEST_CASE("Null arguments are refused and change nothing") {
    Progress progress;
    CHECK(errorOf([&] { return ProgressSetIcon(progress, nullptr); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressSetTotal(progress, nullptr); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressSetDone(progress, nullptr); }) == ERROR_INVALID_PARAMETER);
    CHECK(errorOf([&] { return ProgressGetDone(progress, nullptr); }) == ERROR_INVALID_PARAMETER);
    CHECK(progress->total == kTotal);
    CHECK(record().serves == 0);
}

TEST_CASE("A progress that cannot be made is null with the reason") {
    pc::Pc pc;
    const auto create = [](const char* title) {
        return ProgressCreate(GetModuleHandleA(nullptr), title, nullptr, FALSE) != nullptr;
    };
    scripted_display::reset();
    CHECK(errorOf([&] { return create(nullptr); }) == ERROR_INVALID_PARAMETER);
    scripted_display::failCreate(ERROR_ACCESS_DENIED);
    CHECK(errorOf([&] { return create("x"); }) == ERROR_ACCESS_DENIED);
    scripted_display::reset();
    pc.faults().failMemory(1);
    CHECK(errorOf([&] { return create("x"); }) == ERROR_NOT_ENOUGH_MEMORY);
    CHECK(record().created == 0);
    CHECK(pc.nothingHeld());
}

TEST_CASE("Texts and icon reach the display, a null text leaves its line") {
    Progress progress;
    CHECK(record().title == "Packing");
    CHECK(ProgressSetText(progress, "first", "second"));
    CHECK(ProgressSetText(progress, nullptr, "other"));
    CHECK(ProgressSetText(progress, "file", nullptr));
    CHECK(record().line1 == "file");
    CHECK(record().line2 == "other");
    HICON const icon = reinterpret_cast<HICON>(0x1234);
    CHECK(ProgressSetIcon(progress, icon) == 0);
    CHECK(ProgressSetIcon(progress, icon) == reinterpret_cast<LRESULT>(icon));
}

TEST_CASE("The bar follows the work in 16 bits") {
    Progress progress;
    uint64_t done = 0;
    CHECK(ProgressAdvance(progress, 400));
    done = 900;
    CHECK(ProgressSetDone(progress, &done));
    CHECK(record().ranges == Values{1000});
    CHECK(record().positions == Values{400, 900});
    // Each step serves the display, setting the total does not.
    CHECK(record().serves == 2);

    uint64_t total = 0x30'0000'0001;
    CHECK(ProgressSetTotal(progress, &total));
    done = 0x1F'FFFF'FFFF;
    CHECK(ProgressSetDone(progress, &done));
    CHECK(ProgressAdvance(progress, 1));
    CHECK(ProgressGetDone(progress, &done));
    CHECK(done == 0x20'0000'0000);
    CHECK(record().ranges == Values{1000, 0x30});
    CHECK(record().positions == Values{400, 900, 0x1F, 0x20});
}

TEST_CASE("More done than the total raises the total, and the bar is full") {
    Progress progress;
    CHECK(ProgressAdvance(progress, 70000));
    CHECK(progress->total == 70000);
    CHECK(progress->shift == 16);
    CHECK(record().ranges == Values{1000, 1});
    CHECK(record().positions == Values{1});
    uint64_t done = std::numeric_limits<uint64_t>::max();
    CHECK(ProgressSetDone(progress, &done));
    CHECK(record().ranges.back() == 0xFFFF);
    CHECK(record().positions.back() == 0xFFFF);
}

TEST_CASE("Only the pump tells of a cancel, and tells it ever after") {
    Progress progress;
    scripted_display::cancelAtServe(2);
    CHECK(ProgressPump(progress) == 1);
    CHECK(ProgressAdvance(progress, 1) == 1);
    CHECK(ProgressAdvance(progress, 1) == 1);
    CHECK(ProgressPump(progress) == 0);
    CHECK(ProgressPump(progress) == 0);
}

TEST_CASE("The time remaining comes from the running clock alone") {
    Progress progress(TRUE);
    CHECK(ProgressAdvance(progress, 250));
    progress.pass(100);
    CHECK(progress.secondsRemaining() == 0);
    CHECK(ProgressResume(progress));
    CHECK(progress.secondsRemaining() == 0);
    progress.pass(10);
    CHECK(progress.secondsRemaining() == 30);

    CHECK(ProgressPause(progress));
    CHECK(progress.secondsRemaining() == 0);
    progress.pass(1000);
    CHECK(ProgressPause(progress));
    progress.pass(1000);
    CHECK(ProgressResume(progress));
    CHECK(progress.secondsRemaining() == 0);
    progress.pass(1000);
    CHECK(ProgressResume(progress));
    CHECK(progress.secondsRemaining() == 30);
    progress.pass(5);
    CHECK(progress.secondsRemaining() == 45);
}

TEST_CASE("The outermost pause shows the display, the outermost resume serves it") {
    Progress progress;
    CHECK(record().shows == 0);
    CHECK(ProgressPause(progress));
    CHECK(ProgressPause(progress));
    CHECK(record().shows == 1);
    CHECK(ProgressResume(progress));
    CHECK(record().serves == 0);
    CHECK(ProgressResume(progress));
    CHECK(record().serves == 1);
    const int64_t clock = progress->clock;
    progress.pass(1);
    CHECK(errorOf([&] { return ProgressResume(progress); }) == ERROR_INVALID_PARAMETER);
    CHECK(progress->clock == clock);
    CHECK(progress->pauses == 0);
    CHECK(record().serves == 1);
}

TEST_CASE("A progress that starts paused is not shown until a pause of its own") {
    Progress progress(TRUE);
    CHECK(ProgressPause(progress));
    CHECK(record().shows == 0);
    CHECK(ProgressResume(progress));
    CHECK(ProgressResume(progress));
    CHECK(ProgressPause(progress));
    CHECK(record().shows == 1);
}
