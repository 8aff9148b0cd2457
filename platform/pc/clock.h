// The PC's clock: the host's, until a test sets it.
#ifndef TIDEWELL_PLATFORM_PC_CLOCK_H
#define TIDEWELL_PLATFORM_PC_CLOCK_H

#include <cstdint>
#include <optional>

namespace pc {

// Times are 100 ns since 1601, as Windows counts them.
class Clock {
  public:
    int64_t now() const;
    void set(int64_t time) { time_ = time; }
    void advance(int64_t time) { time_ = now() + time; }

  private:
    std::optional<int64_t> time_;
};

}  // namespace pc

#endif
