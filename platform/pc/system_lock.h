// One caller at a time is in the PC, as often as it calls itself.
#ifndef TIDEWELL_PLATFORM_PC_SYSTEM_LOCK_H
#define TIDEWELL_PLATFORM_PC_SYSTEM_LOCK_H

#ifdef _WIN32
#include <windows.h>
#else
#include <mutex>
#endif

namespace pc {

#ifdef _WIN32
// The win32 thread model's C++ library has no mutexes.
class RecursiveMutex {
  public:
    RecursiveMutex() { InitializeCriticalSection(&section_); }
    void lock() { EnterCriticalSection(&section_); }
    void unlock() { LeaveCriticalSection(&section_); }

  private:
    CRITICAL_SECTION section_;
};
#else
using RecursiveMutex = std::recursive_mutex;
#endif

// Every kernel call holds it. It is the same for all PCs: a call may find another than the one before.
class SystemLock {
  public:
    SystemLock() { mutex().lock(); }
    ~SystemLock() { mutex().unlock(); }
    SystemLock(const SystemLock&) = delete;
    SystemLock& operator=(const SystemLock&) = delete;

  private:
    static RecursiveMutex& mutex() {
        static RecursiveMutex mutex;
        return mutex;
    }
};

}  // namespace pc

#endif
