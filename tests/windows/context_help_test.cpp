// What is asked of the help program. The program stands in for the system's call.
#include "ui/context_help.h"

#include "support/replaced_import_windows.h"

#include <doctest/doctest.h>

#include <string>
#include <tuple>

using namespace tidewell;

namespace {

using HelpCall = std::tuple<HWND, std::string, UINT, ULONG_PTR>;
HelpCall lastCall;

BOOL WINAPI recordHelp(HWND window, LPCSTR file, UINT command, ULONG_PTR data) {
    lastCall = {window, file, command, data};
    return TRUE;
}

}  // namespace

REPLACE_IMPORT(WinHelpA, 16, recordHelp);

TEST_CASE("Help opens the product's file by the dialog's table, or by a topic") {
    const DWORD table[] = {1000, 41, 1018, kNoHelpTopic, 0, 0};
    const auto data = reinterpret_cast<ULONG_PTR>(table);
    HWND const window = GetDesktopWindow();
    HELPINFO request = {};
    request.cbSize = sizeof request;
    request.iContextType = HELPINFO_WINDOW;
    request.hItemHandle = window;

    ShowControlHelp(request, table);
    CHECK(lastCall == HelpCall(window, "TIDEWELL.HLP", HELP_WM_HELP, data));
    lastCall = {};
    request.iContextType = HELPINFO_MENUITEM;
    ShowControlHelp(request, table);
    CHECK(lastCall == HelpCall());
    ShowContextMenuHelp(window, table);
    CHECK(lastCall == HelpCall(window, "TIDEWELL.HLP", HELP_CONTEXTMENU, data));
    ShowHelpTopic(window, 100);
    CHECK(lastCall == HelpCall(window, "TIDEWELL.HLP", HELP_CONTEXT, 100));
}
