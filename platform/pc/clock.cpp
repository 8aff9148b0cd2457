#include "pc/clock.h"

#include <chrono>

namespace pc {

int64_t Clock::now() const {
    if (time_) return *time_;
    using HundredNanoseconds = std::chrono::duration<int64_t, std::ratio<1, 10'000'000>>;
    constexpr int64_t kUnixEpoch = 116'444'736'000'000'000;  // 1970 in 100 ns since 1601
    const auto sinceUnixEpoch = std::chrono::system_clock::now().time_since_epoch();
    return kUnixEpoch + std::chrono::duration_cast<HundredNanoseconds>(sinceUnixEpoch).count();
}

}  // namespace pc
