#include "ui/context_help.h"

namespace tidewell {

namespace {

constexpr char kHelpFile[] = "TIDEWELL.HLP";

}  // namespace

void ShowControlHelp(const HELPINFO& request, const DWORD* table) {
    if (request.iContextType != HELPINFO_WINDOW) return;
    WinHelpA(static_cast<HWND>(request.hItemHandle), kHelpFile, HELP_WM_HELP,
             reinterpret_cast<ULONG_PTR>(table));
}

void ShowContextMenuHelp(HWND control, const DWORD* table) {
    WinHelpA(control, kHelpFile, HELP_CONTEXTMENU, reinterpret_cast<ULONG_PTR>(table));
}

void ShowTopicPopup(HWND window, DWORD topic) {
    WinHelpA(window, kHelpFile, HELP_CONTEXTPOPUP, topic);
}

void ShowHelpTopic(HWND window, DWORD topic) {
    WinHelpA(window, kHelpFile, HELP_CONTEXT, topic);
}

}  // namespace tidewell
