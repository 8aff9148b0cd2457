// Drives the resource viewer, step by step; what the system would ask and show is scripted.
#ifndef TIDEWELL_TESTS_SUPPORT_VIEWER_DRIVER_H
#define TIDEWELL_TESTS_SUPPORT_VIEWER_DRIVER_H

#include "res/resource.h"
#include "resources/viewer.h"
#include "support/modal_windows.h"
#include "support/replaced_import_windows.h"
#include "support/timers_windows.h"

#include <doctest/doctest.h>

#include <windows.h>
#include <commctrl.h>
#include <commdlg.h>

#include <functional>
#include <string>
#include <vector>

// ---- What the system would ask and show ----

inline struct {
    OPENFILENAMEA asked;
    std::string filters, title, proposed;
    std::string chosen;  // empty: the user cancels
    DWORD filter;
    int times = 0;
} saveDialog;

inline BOOL WINAPI getSaveFileName(LPOPENFILENAMEA question) {
    ++saveDialog.times;
    saveDialog.asked = *question;
    saveDialog.title = question->lpstrTitle;
    saveDialog.proposed = question->lpstrFile;
    saveDialog.filters.clear();
    for (const char* entry = question->lpstrFilter; *entry != '\0'; entry += lstrlenA(entry) + 1)
        saveDialog.filters += "[" + std::string(entry) + "]";
    if (saveDialog.chosen.empty()) return FALSE;
    lstrcpynA(question->lpstrFile, saveDialog.chosen.c_str(), static_cast<int>(question->nMaxFile));
    question->nFilterIndex = saveDialog.filter;
    return TRUE;
}

// The PC finds no long names: those of N: are this one.
inline HANDLE WINAPI findFirst(LPCSTR path, LPWIN32_FIND_DATAA found) {
    if (std::string(path).starts_with("N:\\")) {
        lstrcpyA(found->cFileName, "Long Letter.txt");
        return nullptr;
    }
    return systemFunction<decltype(&FindFirstFileA)>("kernel32.dll", "FindFirstFileA")(path, found);
}

inline BOOL WINAPI findClose(HANDLE search) {
    return search ? systemFunction<decltype(&FindClose)>("kernel32.dll", "FindClose")(search) : TRUE;
}

inline DWORD saveDialogError = 0;

inline DWORD WINAPI saveError() {
    return saveDialogError;
}

// Where the mouse was.
inline DWORD messagePoint = 0;

inline DWORD WINAPI getMessagePoint() {
    return messagePoint;
}

inline std::string shownMenu;
inline POINT menuPoint;
inline int menuAnswer = 0;
inline HTREEITEM highlit = nullptr;

inline BOOL WINAPI trackMenu(HMENU menu, UINT flags, int x, int y, int, HWND window, const RECT*) {
    menuPoint = {x, y};
    CHECK((flags & TPM_RETURNCMD) != 0);
    HWND const tree = GetDlgItem(window, IDC_VIEWER_TREE);
    highlit = TreeView_GetDropHilight(tree);
    shownMenu.clear();
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        char text[100] = "";
        GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
        const bool grey = (GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_GRAYED) != 0;
        shownMenu += "[" + std::string(text) + (grey ? "-]" : "]");
    }
    return menuAnswer;
}

// ---- Driving ----

using Steps = std::vector<std::function<void(HWND)>>;

// Shows the viewer; each window that comes up or comes back is handed to the next step.
inline BOOL view(const char* path, const Steps& steps, HWND owner = nullptr) {
    size_t next = 0;
    const ModalDriver driver([&](HWND window) {
        if (next++ < steps.size()) steps[next - 1](window);
    });
    const BOOL result = tidewell::ViewMacResources(owner, path);
    CHECK(next == steps.size());
    return result;
}

inline HWND treeOf(HWND viewer) {
    return GetDlgItem(viewer, IDC_VIEWER_TREE);
}

inline HTREEITEM related(HWND viewer, UINT relation, HTREEITEM item) {
    return TreeView_GetNextItem(treeOf(viewer), item, relation);
}

inline std::string labelOf(HWND viewer, HTREEITEM item) {
    char text[300] = "";
    TVITEMA wanted = {};
    wanted.mask = TVIF_TEXT;
    wanted.hItem = item;
    wanted.pszText = text;
    wanted.cchTextMax = sizeof text;
    SendMessageA(treeOf(viewer), TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&wanted));
    return text;
}

inline HTREEITEM rootOf(HWND viewer) {
    return related(viewer, TVGN_ROOT, nullptr);
}

inline std::string childrenOf(HWND viewer, HTREEITEM item) {
    std::string labels;
    for (item = related(viewer, TVGN_CHILD, item); item; item = related(viewer, TVGN_NEXT, item))
        labels += "[" + labelOf(viewer, item) + "]";
    return labels;
}

inline HTREEITEM childOf(HWND viewer, HTREEITEM parent, const std::string& label) {
    HTREEITEM item = related(viewer, TVGN_CHILD, parent);
    while (item && labelOf(viewer, item) != label)
        item = related(viewer, TVGN_NEXT, item);
    REQUIRE_MESSAGE(item != nullptr, label);
    return item;
}

inline HTREEITEM typeItem(HWND viewer, const std::string& type) {
    HTREEITEM const item = childOf(viewer, rootOf(viewer), type);
    TreeView_Expand(treeOf(viewer), item, TVE_EXPAND);
    return item;
}

// A point of its label, on the screen.
inline POINT placeOf(HWND viewer, HTREEITEM item) {
    RECT place = {};
    TreeView_GetItemRect(treeOf(viewer), item, &place, TRUE);
    POINT point = {place.left + 2, place.top + 2};
    ClientToScreen(treeOf(viewer), &point);
    return point;
}

inline HTREEITEM select(HWND viewer, HTREEITEM item) {
    TreeView_SelectItem(treeOf(viewer), item);
    return item;
}

inline void selectResource(HWND viewer, const std::string& type, const std::string& label) {
    select(viewer, childOf(viewer, typeItem(viewer, type), label));
}

// The selection has rested.
inline void rest(HWND viewer) {
    CHECK(timersOf[viewer] == Timers{{1138, 300}});
    SendMessageA(viewer, WM_TIMER, 1138, 0);
    CHECK(timersOf[viewer].empty());
}

// "type|size|attributes", each with a minus where its label is disabled; "*" for each attribute that is set.
inline std::string detailsOf(HWND viewer) {
    const auto text = [&](int label, int control) {
        return std::string(IsWindowEnabled(GetDlgItem(viewer, label)) ? "" : "-") +
               windowText(GetDlgItem(viewer, control)) + "|";
    };
    std::string details = text(IDC_VIEWER_TYPE_CAPTION, IDC_VIEWER_TYPE) +
                          text(IDC_VIEWER_SIZE_CAPTION, IDC_VIEWER_SIZE) +
                          (IsWindowEnabled(GetDlgItem(viewer, IDC_VIEWER_ATTRIBUTES_CAPTION)) ? "" : "-");
    for (const int box : {IDC_VIEWER_SYSTEM_HEAP, IDC_VIEWER_PURGEABLE, IDC_VIEWER_LOCKED,
                          IDC_VIEWER_PROTECTED, IDC_VIEWER_PRELOAD}) {
        CHECK_FALSE(IsWindowEnabled(GetDlgItem(viewer, box)));
        details += IsDlgButtonChecked(viewer, box) ? "*" : ".";
    }
    return details;
}

inline std::string buttonStates(HWND viewer) {
    const bool save = IsWindowEnabled(GetDlgItem(viewer, IDC_VIEWER_SAVE)) != 0;
    const bool show = IsWindowEnabled(GetDlgItem(viewer, IDC_VIEWER_VIEW)) != 0;
    return std::string(show ? "view" : "") + (save ? "save" : "");
}

inline void close(HWND window) {
    press(window, IDOK);
}

// The controls that Tab reaches, from the tree on.
inline std::vector<int> tabOrder(HWND viewer) {
    std::vector<int> order;
    HWND control = treeOf(viewer);
    do {
        order.push_back(GetDlgCtrlID(control));
        control = GetNextDlgTabItem(viewer, control, FALSE);
    } while (control != treeOf(viewer) && order.size() < 20);
    return order;
}

// The menu of an item by its key.
inline void openMenu(HWND viewer) {
    SendMessageA(viewer, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(treeOf(viewer)), -1);
}

// A message box that tells of an error, over `owner`.
inline std::function<void(HWND)> errorBox(HWND& owner, const std::string& text) {
    return [&owner, text](HWND box) {
        CHECK(windowText(box) == "Tidewell 98 Error");
        CHECK(labelTexts(box).starts_with(text));
        CHECK(buttonTexts(box) == "[OK*]");
        CHECK(iconOf(box) == LoadIconA(nullptr, IDI_HAND));
        CHECK(GetWindow(box, GW_OWNER) == owner);
        press(box, IDOK);
    };
}

#endif
