#include "support/timers_windows.h"

#include "support/replaced_import_windows.h"

#include <doctest/doctest.h>

std::map<HWND, Timers> timersOf;

namespace {

UINT_PTR WINAPI setTimer(HWND window, UINT_PTR timer, UINT interval, TIMERPROC procedure) {
    static const auto real = systemFunction<decltype(&SetTimer)>("user32.dll", "SetTimer");
    if (!window) return real(window, timer, interval, procedure);
    CHECK((procedure == nullptr));
    timersOf[window][timer] = interval;
    return 1;
}

BOOL WINAPI killTimer(HWND window, UINT_PTR timer) {
    static const auto real = systemFunction<decltype(&KillTimer)>("user32.dll", "KillTimer");
    return window ? timersOf[window].erase(timer) == 1 : real(window, timer);
}

}  // namespace

REPLACE_IMPORT(SetTimer, 16, setTimer);
REPLACE_IMPORT(KillTimer, 8, killTimer);
