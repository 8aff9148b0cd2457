// What is asked of the help program. The program stands in for the system's call.
#include "ui/context_help.h"

#include <doctest/doctest.h>

#include <string>

using namespace tidewell;

namespace {

struct HelpCall {
    HWND window;
    std::string file;
    UINT command;
    ULONG_PTR data;
};
HelpCall lastCall;

BOOL WINAPI recordHelp(HWND window, LPCSTR file, UINT command, ULONG_PTR data) {
    lastCall = {window, file, command, data};
    return TRUE;
}

}  // namespace

// The pointer through which this program calls WinHelpA; defined here, it is not imported from Windows.
#ifdef _WIN64
extern "C" const void* const helpImport asm("__imp_WinHelpA");
#else
extern "C" const void* const helpImport asm("__imp__WinHelpA@16");
#endif
extern "C" const void* const helpImport = reinterpret_cast<const void*>(&recordHelp);

TEST_CASE("Help opens the product's file by the dialog's table, or by a topic") {
    const DWORD table[] = {1000, 41, 1018, kNoHelpTopic, 0, 0};
    HWND const window = GetDesktopWindow();
    HELPINFO request = {};
    request.cbSize = sizeof request;
    request.iContextType = HELPINFO_WINDOW;
    request.hItemHandle = window;

    lastCall = {};
    ShowControlHelp(request, table);
    CHECK(lastCall.window == window);
    CHECK(lastCall.file == "TIDEWELL.HLP");
    CHECK(lastCall.command == HELP_WM_HELP);
    CHECK(lastCall.data == reinterpret_cast<ULONG_PTR>(table));

    lastCall = {};
    request.iContextType = HELPINFO_MENUITEM;
    ShowControlHelp(request, table);
    CHECK(lastCall.window == nullptr);

    ShowContextMenuHelp(window, table);
    CHECK(lastCall.window == window);
    CHECK(lastCall.command == HELP_CONTEXTMENU);
    CHECK(lastCall.data == reinterpret_cast<ULONG_PTR>(table));

    ShowHelpTopic(window, 100);
    CHECK(lastCall.file == "TIDEWELL.HLP");
    CHECK(lastCall.command == HELP_CONTEXT);
    CHECK(lastCall.data == 100);
}
