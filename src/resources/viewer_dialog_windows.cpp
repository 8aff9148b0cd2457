#include "resources/viewer_dialog.h"

#include "messages.h"
#include "module/module_state.h"
#include "res/resource.h"
#include "resources/fork_file.h"
#include "resources/viewer.h"
#include "ui/busy_cursor.h"
#include "ui/context_help.h"
#include "ui/display_title.h"
#include "ui/place_window.h"
#include "ui/stored_name.h"
#include "ui/window_text.h"

#include <windowsx.h>

namespace tidewell {

namespace {

constexpr DWORD kViewerTopic = 103;

void setTitle(HWND dialog) {
    char path[kPathCapacity];
    GetLongFileOfFork(ViewerOf(dialog).reader.Path(), path);
    char title[kPathCapacity];
    GetDisplayTitle(path, title);
    SetWindowTextFromMessage(dialog, MSG_VIEWER_TITLE, title);
}

void onInit(HWND dialog, LPARAM viewer) {
    const BusyCursor busy(dialog);
    SetWindowLongPtrA(dialog, DWLP_USER, viewer);
    SendDlgItemMessageA(dialog, IDC_VIEWER_ICON, STM_SETICON,
                        reinterpret_cast<WPARAM>(LoadIconA(ModuleInstance, MAKEINTRESOURCEA(IDI_TIDEWELL))),
                        0);
    PlaceWindow(dialog, OpenViewerCount);
    setTitle(dialog);
    FillResourceTree(TreeOf(dialog), ViewerOf(dialog).reader);
}

void onCommand(HWND dialog, int command) {
    if (ViewerOf(dialog).saving) return;
    switch (command) {
    case IDC_VIEWER_VIEW: ViewItem(dialog, TreeView_GetSelection(TreeOf(dialog))); break;
    case IDC_VIEWER_SAVE: SaveItem(dialog, TreeView_GetSelection(TreeOf(dialog))); break;
    case IDC_VIEWER_HELP: ShowHelpTopic(dialog, kViewerTopic); break;
    case IDOK:
    case IDCANCEL: EndDialog(dialog, command); break;
    }
}

bool isOnSelection(HWND tree, DWORD point) {
    TVHITTESTINFO hit = {};
    hit.pt = {GET_X_LPARAM(point), GET_Y_LPARAM(point)};
    ScreenToClient(tree, &hit.pt);
    TreeView_HitTest(tree, &hit);
    return (hit.flags & TVHT_ONITEM) != 0 && hit.hItem == TreeView_GetSelection(tree);
}

// As a click on the button, which may be disabled.
void clickView(HWND dialog) {
    HWND const button = GetDlgItem(dialog, IDC_VIEWER_VIEW);
    if (IsWindowEnabled(button))
        PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(IDC_VIEWER_VIEW, BN_CLICKED),
                     reinterpret_cast<LPARAM>(button));
}

void onTreeNotification(HWND dialog, const NMHDR& header) {
    const auto& change = reinterpret_cast<const NMTREEVIEWA&>(header);
    switch (header.code) {
    case TVN_ITEMEXPANDINGA: {
        const BusyCursor busy(dialog);
        FillTypeItem(header.hwndFrom, change.itemNew.hItem);
        break;
    }
    case TVN_SELCHANGEDA: ExpectDetails(dialog, NodeOf(header.hwndFrom, change.itemNew.hItem)); break;
    case TVN_DELETEITEMA: FreeNode(change.itemOld.lParam); break;
    case NM_DBLCLK:
        if (isOnSelection(header.hwndFrom, GetMessagePos())) clickView(dialog);
        break;
    }
}

}  // namespace

const DWORD ViewerHelpTopics[] = {
    IDC_VIEWER_TREE,
    50,
    IDC_VIEWER_VIEW,
    51,
    IDC_VIEWER_SAVE,
    52,
    IDC_VIEWER_TYPE_CAPTION,
    53,
    IDC_VIEWER_TYPE,
    53,
    IDC_VIEWER_SIZE_CAPTION,
    54,
    IDC_VIEWER_SIZE,
    54,
    IDC_VIEWER_ATTRIBUTES_CAPTION,
    55,
    IDC_VIEWER_SYSTEM_HEAP,
    55,
    IDC_VIEWER_PURGEABLE,
    55,
    IDC_VIEWER_LOCKED,
    55,
    IDC_VIEWER_PROTECTED,
    55,
    IDC_VIEWER_PRELOAD,
    55,
    IDC_CONTENTS_TYPE,
    60,
    IDC_CONTENTS_SIZE,
    61,
    IDC_CONTENTS_DUMP,
    62,
    IDC_CONTENTS_PICTURE,
    kNoHelpTopic,
    IDC_CONTENTS_TEXT,
    kNoHelpTopic,
    IDC_VIEWER_HELP,
    56,
    IDC_VIEWER_ICON,
    kNoHelpTopic,
    static_cast<DWORD>(IDC_STATIC),
    kNoHelpTopic,
    0,
    0,
};

OpenViewer& ViewerOf(HWND dialog) {
    return *reinterpret_cast<OpenViewer*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

HWND TreeOf(HWND dialog) {
    return GetDlgItem(dialog, IDC_VIEWER_TREE);
}

INT_PTR CALLBACK ViewerProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: onInit(dialog, lParam); break;
    case WM_COMMAND: onCommand(dialog, LOWORD(wParam)); break;
    case WM_NOTIFY:
        if (wParam == IDC_VIEWER_TREE) onTreeNotification(dialog, *reinterpret_cast<const NMHDR*>(lParam));
        return FALSE;
    case WM_TIMER: ShowDetails(dialog, wParam); break;
    case WM_CONTEXTMENU: return ShowItemMenu(dialog, reinterpret_cast<HWND>(wParam), lParam);
    case WM_HELP: ShowControlHelp(*reinterpret_cast<const HELPINFO*>(lParam), ViewerHelpTopics); break;
    default: return FALSE;
    }
    return TRUE;
}

}  // namespace tidewell
