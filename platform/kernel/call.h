// One system call in progress: the place where a planned fault strikes, and its line in the journal.
#ifndef TIDEWELL_PLATFORM_KERNEL_CALL_H
#define TIDEWELL_PLATFORM_KERNEL_CALL_H

#include "pc/pc.h"

#include <windows.h>

#include <string_view>

namespace kernel {

// What a handle has open; null when the handle is none of the PC's.
inline pc::OpenFile* openFileOf(HANDLE handle) {
    pc::Pc* const pc = pc::Pc::current();
    if (pc == nullptr) return nullptr;
    const auto found = pc->openFiles().find(reinterpret_cast<uintptr_t>(handle));
    return found == pc->openFiles().end() ? nullptr : &found->second;
}

class Call {
  public:
    // `name` and `subject` outlive the call.
    explicit Call(const char* name, std::string_view subject = {}, uint64_t amount = 0)
        : name_(name), subject_(subject), amount_(amount), pc_(pc::Pc::current()) {}
    Call(const char* name, LPCSTR path, uint64_t amount = 0)
        : Call(name, std::string_view(path != nullptr ? path : ""), amount) {}
    Call(const char* name, const pc::OpenFile* file, uint64_t amount = 0)
        : Call(name, file != nullptr ? std::string_view(file->path) : std::string_view(), amount) {}
    ~Call() {
        if (pc_ != nullptr && pc_->journal().kept()) pc_->journal().record(name_, subject_, amount_, error_);
    }
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    // The error planned for this call, or 0. Asked once a call.
    pc::Error fault() { return pc_ != nullptr ? pc_->faults().onCall(name_, subject_) : 0; }
    pc::Error memoryFault() { return pc_ != nullptr ? pc_->faults().onMemoryCall(name_) : 0; }
    size_t transferable(size_t count) {
        return pc_ != nullptr ? pc_->faults().onTransfer(name_, subject_, count) : count;
    }

    // Ends the call: with the last error set and `failure` when there is an error, else with `success`.
    template <typename Result>
    Result end(pc::Error error, Result success, Result failure) {
        error_ = error;
        if (error == 0) return success;
        SetLastError(error);
        return failure;
    }
    // One that succeeds need not leave the last error as it was, and does not.
    BOOL end(pc::Error error) {
        SetLastError(error);
        return end<BOOL>(error, TRUE, FALSE);
    }

  private:
    const char* name_;
    std::string_view subject_;
    uint64_t amount_;
    pc::Pc* pc_;
    pc::Error error_ = 0;
};

}  // namespace kernel

#endif
