// What is asked of the help program. The test program stands in for the system's call.
#ifndef TIDEWELL_TESTS_SUPPORT_HELP_CALLS_H
#define TIDEWELL_TESTS_SUPPORT_HELP_CALLS_H

#include <windows.h>

#include <string>
#include <tuple>

// The window, the file, the command and its data.
using HelpCall = std::tuple<HWND, std::string, UINT, ULONG_PTR>;
extern HelpCall lastHelpCall;

#endif
