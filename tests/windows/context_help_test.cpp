#include "ui/context_help.h"

#include "support/help_calls_windows.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("Help opens the product's file by the dialog's table, or by a topic") {
    const DWORD table[] = {1000, 41, 1018, kNoHelpTopic, 0, 0};
    const auto data = reinterpret_cast<ULONG_PTR>(table);
    HWND const window = GetDesktopWindow();
    HELPINFO request = {};
    request.cbSize = sizeof request;
    request.iContextType = HELPINFO_WINDOW;
    request.hItemHandle = window;

    ShowControlHelp(request, table);
    CHECK(lastHelpCall == HelpCall(window, "TIDEWELL.HLP", HELP_WM_HELP, data));
    lastHelpCall = {};
    request.iContextType = HELPINFO_MENUITEM;
    ShowControlHelp(request, table);
    CHECK(lastHelpCall == HelpCall());
    ShowContextMenuHelp(window, table);
    CHECK(lastHelpCall == HelpCall(window, "TIDEWELL.HLP", HELP_CONTEXTMENU, data));
    ShowTopicPopup(window, 50);
    CHECK(lastHelpCall == HelpCall(window, "TIDEWELL.HLP", HELP_CONTEXTPOPUP, 50));
    ShowHelpTopic(window, 100);
    CHECK(lastHelpCall == HelpCall(window, "TIDEWELL.HLP", HELP_CONTEXT, 100));
}
