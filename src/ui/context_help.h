// Help from TIDEWELL.HLP. A dialog's table holds pairs of a control's number and the number of its topic
// (kNoHelpTopic for a control without one), and ends with two zeros.
#ifndef TIDEWELL_UI_CONTEXT_HELP_H
#define TIDEWELL_UI_CONTEXT_HELP_H

#include <windows.h>

namespace tidewell {

constexpr DWORD kNoHelpTopic = static_cast<DWORD>(-1);

// Answers WM_HELP: F1, or the question mark and a click. What is no control has no help.
void ShowControlHelp(const HELPINFO& request, const DWORD* table);

// Answers WM_CONTEXTMENU over a control: the menu "What's This?".
void ShowContextMenuHelp(HWND control, const DWORD* table);

// Shows a topic in a small window of its own, over `window`.
void ShowTopicPopup(HWND window, DWORD topic);

// Opens a topic by its number, for Help buttons.
void ShowHelpTopic(HWND window, DWORD topic);

}  // namespace tidewell

#endif
