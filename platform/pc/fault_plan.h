// What is to go wrong on the PC, and when.
#ifndef TIDEWELL_PLATFORM_PC_FAULT_PLAN_H
#define TIDEWELL_PLATFORM_PC_FAULT_PLAN_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace pc {

// Plans one fault at a time; counting starts when it is planned. A sweep plans n = 1, 2, ... until an
// operation ends without having met the fault.
class FaultPlan {
  public:
    // The n-th call that can fail does, with `error` (a call for memory fails with 8 instead).
    void failCall(int n, uint32_t error) { plan(Kind::call, n, error); }
    // The n-th read or write of more than a byte succeeds with half of its bytes.
    void shortTransfer(int n) { plan(Kind::transfer, n, 0); }
    // The n-th call for memory, and every one after it, fails.
    void failMemory(int n) { plan(Kind::memory, n, 0); }
    // Every call of this name on this path fails.
    void failAlways(std::string name, std::string subject, uint32_t error) {
        plan(Kind::always, 0, error);
        alwaysCall_ = std::move(name);
        alwaysSubject_ = std::move(subject);
    }
    void clear() { plan(Kind::none, 0, 0); }

    bool hit() const { return hit_; }
    const std::string& hitCall() const { return hitCall_; }
    const std::string& hitSubject() const { return hitSubject_; }
    // The error that the call was failed with; 0 for a short transfer.
    uint32_t injected() const { return injected_; }

    // For the kernel: the error that this call must fail with, or 0.
    uint32_t onCall(const char* name, std::string_view subject = {});
    uint32_t onMemoryCall(const char* name, std::string_view subject = {});
    // For the kernel: how many of `count` bytes to transfer.
    size_t onTransfer(const char* name, std::string_view subject, size_t count);

  private:
    enum class Kind { none, call, always, transfer, memory };

    void plan(Kind kind, int n, uint32_t error);
    bool strikes(const char* name, std::string_view subject);

    Kind kind_ = Kind::none;
    int left_ = 0;
    uint32_t error_ = 0;
    bool hit_ = false;
    uint32_t injected_ = 0;
    std::string hitCall_;
    std::string hitSubject_;
    std::string alwaysCall_;
    std::string alwaysSubject_;
};

}  // namespace pc

#endif
