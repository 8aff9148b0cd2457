// What is to go wrong on the PC, and when.
#ifndef TIDEWELL_PLATFORM_PC_FAULT_PLAN_H
#define TIDEWELL_PLATFORM_PC_FAULT_PLAN_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pc {

// Plans one fault at a time; counting starts when it is planned. A sweep plans n = 1, 2, ... until an
// operation ends without having met the fault. The subject of a call is the path that it names, or that its
// handle was opened with, as the library gave it. A call for memory fails with ERROR_NOT_ENOUGH_MEMORY,
// whatever error is planned.
class FaultPlan {
  public:
    // The n-th call that can fail does.
    void failCall(int n, uint32_t error) { plan(Kind::call, n, error); }
    // The n-th call that can fail does, and from then on every call of its name on its subject.
    void failFromCall(int n, uint32_t error) { plan(Kind::fromCall, n, error); }
    // Every call of that name on that subject does from now on.
    void failAlways(std::string_view call, std::string_view subject, uint32_t error);
    // The n-th read or write of more than a byte succeeds with half of its bytes.
    void shortTransfer(int n) { plan(Kind::transfer, n, 0); }
    // The n-th call for memory, and every one after it, fails.
    void failMemory(int n) { plan(Kind::memory, n, 0); }
    // The power goes with the n-th call: it and every one after it fails with ERROR_GEN_FAILURE and does
    // nothing, until Pc::cutPower ends that.
    void cutPower(int n) { plan(Kind::power, n, 31); }
    void clear() { plan(Kind::none, 0, 0); }

    bool hit() const { return hit_; }
    // The first call that was hit.
    const std::string& hitCall() const { return hitCall_; }
    const std::string& hitSubject() const { return hitSubject_; }
    // The error that a call was last failed with; 0 for a short transfer.
    uint32_t injected() const { return injected_; }

    // For the PC: after a cut the power is back, and the plan has been met.
    void restorePower() { kind_ = kind_ == Kind::power ? Kind::none : kind_; }

    // For the kernel: the error that this call must fail with, or 0.
    uint32_t onCall(std::string_view call, std::string_view subject);
    uint32_t onMemoryCall(std::string_view call);
    // For the kernel: how many of `count` bytes to transfer.
    size_t onTransfer(std::string_view call, std::string_view subject, size_t count);

  private:
    enum class Kind { none, call, fromCall, always, transfer, memory, power };

    void plan(Kind kind, int n, uint32_t error);
    bool strikes(std::string_view call, std::string_view subject);

    Kind kind_ = Kind::none;
    int left_ = 0;
    uint32_t error_ = 0;
    bool hit_ = false;
    uint32_t injected_ = 0;
    std::string hitCall_;
    std::string hitSubject_;
};

}  // namespace pc

#endif
