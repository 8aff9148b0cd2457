// The viewer's dialog, IDD_VIEWER, and what its handlers share.
#ifndef TIDEWELL_RESOURCES_VIEWER_DIALOG_H
#define TIDEWELL_RESOURCES_VIEWER_DIALOG_H

#include "resources/resource_tree.h"

#include <windows.h>

namespace tidewell {

// Bytes of a type's description that are shown, with the NUL.
constexpr DWORD kTypeDescriptionCapacity = 584;

// What a viewer has open. It outlives the dialog.
struct OpenViewer {
    ResourceForkReader reader;
    bool saving = false;  // nothing else is begun meanwhile
};

// Begun with a pointer to the OpenViewer. Ends with a button's number.
INT_PTR CALLBACK ViewerProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

// The topics of the viewer's controls and of the contents window's.
extern const DWORD ViewerHelpTopics[];

OpenViewer& ViewerOf(HWND dialog);

HWND TreeOf(HWND dialog);

// Has the details of the selected item shown when the selection has rested for a while, and nothing until
// then; the buttons are enabled for `node` at once, which is null for no item.
void ExpectDetails(HWND dialog, const ResourceTreeNode* node);

// Shows the details of the selected item. Answers the timer.
void ShowDetails(HWND dialog, UINT_PTR timer);

// Shows what the resource contains. Nothing for another item.
void ViewItem(HWND dialog, HTREEITEM item);

// Asks for a file and saves the resource or the fork in it. Nothing for another item.
void SaveItem(HWND dialog, HTREEITEM item);

// The menu of the tree's item at a point of the screen, or of the selected one when the menu was asked for by
// a key; the system's help menu over other controls. FALSE where there is no control: that is the system's.
BOOL ShowItemMenu(HWND dialog, HWND control, LPARAM point);

}  // namespace tidewell

#endif
