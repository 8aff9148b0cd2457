// The timers of windows in the test program: the system has none of them, the test rings.
#ifndef TIDEWELL_TESTS_SUPPORT_TIMERS_H
#define TIDEWELL_TESTS_SUPPORT_TIMERS_H

#include <windows.h>

#include <map>

// By their numbers: milliseconds.
using Timers = std::map<UINT_PTR, UINT>;
extern std::map<HWND, Timers> timersOf;

#endif
