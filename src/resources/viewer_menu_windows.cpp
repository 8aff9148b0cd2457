// The menu of an item of the viewer's tree.
#include "module/module_state.h"
#include "res/resource.h"
#include "resources/viewer_dialog.h"
#include "ui/context_help.h"

#include <windowsx.h>

namespace tidewell {

namespace {

constexpr DWORD kTreeTopic = 50;

struct MenuTraits {
    using Value = HMENU;
    static Value none() noexcept { return nullptr; }
    static void close(Value menu) noexcept { DestroyMenu(menu); }
};
using OwnedMenu = Owned<MenuTraits>;

// An item, and where its menu comes up on the screen.
struct MenuPlace {
    HTREEITEM item;
    POINT point;
};

MenuPlace placeAt(HWND tree, POINT point) {
    TVHITTESTINFO hit = {};
    hit.pt = point;
    ScreenToClient(tree, &hit.pt);
    TreeView_HitTest(tree, &hit);
    return {(hit.flags & TVHT_ONITEM) != 0 ? hit.hItem : nullptr, point};
}

// For the key, which tells no point.
MenuPlace placeOfSelection(HWND tree) {
    MenuPlace place = {TreeView_GetSelection(tree), {}};
    RECT frame = {};
    if (place.item) TreeView_GetItemRect(tree, place.item, &frame, TRUE);
    place.point = {frame.left, frame.bottom};
    ClientToScreen(tree, &place.point);
    return place;
}

int menuOf(const ResourceTreeNode* node) {
    if (!node || node->kind == ResourceNodeKind::type) return 0;
    return node->kind == ResourceNodeKind::fork ? IDR_FORK_MENU : IDR_RESOURCE_MENU;
}

// Commands are enabled as their buttons are.
void enableAsButton(HMENU menu, HWND dialog, int command) {
    const bool enabled = IsWindowEnabled(GetDlgItem(dialog, command)) != 0;
    EnableMenuItem(menu, static_cast<UINT>(command), MF_BYCOMMAND | (enabled ? MF_ENABLED : MF_GRAYED));
}

// The command that the user chooses; 0 for none.
int choose(HWND dialog, int menuId, POINT point) {
    const OwnedMenu menu(LoadMenuA(ResourceModule, MAKEINTRESOURCEA(menuId)));
    if (!menu) return 0;
    enableAsButton(menu.get(), dialog, IDC_VIEWER_VIEW);
    enableAsButton(menu.get(), dialog, IDC_VIEWER_SAVE);
    return TrackPopupMenu(GetSubMenu(menu.get(), 0), TPM_RETURNCMD | TPM_RIGHTBUTTON, point.x, point.y, 0,
                          dialog, nullptr);
}

}  // namespace

BOOL ShowItemMenu(HWND dialog, HWND control, LPARAM point) {
    if (control == dialog) return FALSE;
    if (ViewerOf(dialog).saving) return TRUE;
    HWND const tree = TreeOf(dialog);
    constexpr DWORD kByKey = 0xFFFFFFFF;
    MenuPlace place = {};
    if (control == tree)
        place = static_cast<DWORD>(point) == kByKey
                    ? placeOfSelection(tree)
                    : placeAt(tree, {GET_X_LPARAM(point), GET_Y_LPARAM(point)});
    const int menuId = menuOf(NodeOf(tree, place.item));
    if (menuId == 0) {
        ShowContextMenuHelp(control, ViewerHelpTopics);
        return TRUE;
    }

    TreeView_SelectDropTarget(tree, place.item);
    const int command = choose(dialog, menuId, place.point);
    TreeView_SelectDropTarget(tree, nullptr);
    switch (command) {
    case IDC_VIEWER_VIEW: ViewItem(dialog, place.item); break;
    case IDC_VIEWER_SAVE: SaveItem(dialog, place.item); break;
    case ID_WHATS_THIS: ShowTopicPopup(tree, kTreeTopic); break;
    }
    return TRUE;
}

}  // namespace tidewell
