#include "fault_plan.h"

namespace pc {

namespace {
constexpr uint32_t kNotEnoughMemory = 8;
}

void FaultPlan::plan(Kind kind, int n, uint32_t error) {
    kind_ = kind;
    left_ = n;
    error_ = error;
    hit_ = false;
    injected_ = 0;
    hitCall_.clear();
}

bool FaultPlan::strikes(const char* name, std::string_view subject) {
    if (left_ == 0 || --left_ > 0) return false;
    hit_ = true;
    hitCall_ = name;
    hitSubject_ = subject;
    return true;
}

uint32_t FaultPlan::onCall(const char* name, std::string_view subject) {
    if (kind_ == Kind::always && alwaysCall_ == name && alwaysSubject_ == subject) {
        hit_ = true;
        hitCall_ = name;
        hitSubject_ = subject;
        return injected_ = error_;
    }
    if (kind_ != Kind::call || !strikes(name, subject)) return 0;
    injected_ = error_;
    return error_;
}

uint32_t FaultPlan::onMemoryCall(const char* name, std::string_view subject) {
    if (kind_ == Kind::call) return onCall(name, subject) != 0 ? injected_ = kNotEnoughMemory : 0;
    if (kind_ != Kind::memory) return 0;
    if (!hit_ && !strikes(name, subject)) return 0;
    injected_ = kNotEnoughMemory;
    return kNotEnoughMemory;
}

size_t FaultPlan::onTransfer(const char* name, std::string_view subject, size_t count) {
    if (kind_ != Kind::transfer || count < 2 || !strikes(name, subject)) return count;
    return count / 2;
}

}  // namespace pc
