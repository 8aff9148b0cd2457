#include "pc/fault_plan.h"

#include <windows.h>

namespace pc {

void FaultPlan::plan(Kind kind, int n, uint32_t error) {
    kind_ = kind;
    left_ = n;
    error_ = error;
    hit_ = false;
    injected_ = 0;
    hitCall_.clear();
    hitSubject_.clear();
}

void FaultPlan::failAlways(std::string_view call, std::string_view subject, uint32_t error) {
    plan(Kind::always, 0, error);
    hitCall_ = call;
    hitSubject_ = subject;
}

// Once the count is down, what the fault persists in is hit again.
bool FaultPlan::strikes(std::string_view call, std::string_view subject) {
    if (hit_ || kind_ == Kind::always) {
        const bool same = call == hitCall_ && subject == hitSubject_;
        const bool named = kind_ == Kind::fromCall || kind_ == Kind::always;
        const bool again = kind_ == Kind::memory || kind_ == Kind::power || (named && same);
        hit_ = hit_ || again;
        return again;
    }
    if (left_ == 0 || --left_ > 0) return false;
    hit_ = true;
    hitCall_ = call;
    hitSubject_ = subject;
    return true;
}

uint32_t FaultPlan::onCall(std::string_view call, std::string_view subject) {
    const bool counts = kind_ != Kind::none && kind_ != Kind::transfer && kind_ != Kind::memory;
    if (!counts || !strikes(call, subject)) return 0;
    injected_ = error_;
    return error_;
}

uint32_t FaultPlan::onMemoryCall(std::string_view call) {
    const bool struck = kind_ == Kind::memory ? strikes(call, {}) : onCall(call, {}) != 0;
    return struck ? injected_ = ERROR_NOT_ENOUGH_MEMORY : 0;
}

size_t FaultPlan::onTransfer(std::string_view call, std::string_view subject, size_t count) {
    return kind_ == Kind::transfer && count >= 2 && strikes(call, subject) ? count / 2 : count;
}

}  // namespace pc
