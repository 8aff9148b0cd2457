#include "support/help_calls_windows.h"

#include "support/replaced_import_windows.h"

HelpCall lastHelpCall;

namespace {

BOOL WINAPI recordHelp(HWND window, LPCSTR file, UINT command, ULONG_PTR data) {
    lastHelpCall = {window, file, command, data};
    return TRUE;
}

}  // namespace

REPLACE_IMPORT(WinHelpA, 16, recordHelp);
