#include "support/folder_chooser_windows.h"

#include "base/path.h"
#include "support/modal_windows.h"
#include "support/replaced_import_windows.h"
#include "ui/shell_folders.h"

#include <doctest/doctest.h>

#include <cstring>

FolderChooser folderChooser;

namespace {

using tidewell::ItemList;

// The chooser's window as its callback sees it.
LRESULT CALLBACK chooserProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == BFFM_SETSELECTIONA) {
        CHECK(wParam == FALSE);
        char path[tidewell::kPathCapacity] = "?";
        SHGetPathFromIDListA(reinterpret_cast<const ITEMIDLIST*>(lParam), path);
        folderChooser.selected += path;
        folderChooser.selectedSize = ILGetSize(reinterpret_cast<const ITEMIDLIST*>(lParam));
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

ITEMIDLIST* WINAPI browse(BROWSEINFOA* info) {
    ++folderChooser.shown;
    folderChooser.owner = info->hwndOwner;
    folderChooser.title = info->lpszTitle;
    CHECK(info->ulFlags == BIF_RETURNONLYFSDIRS);
    CHECK(info->pidlRoot == nullptr);
    std::memset(info->pszDisplayName, 'x', MAX_PATH);
    const TestWindow window("chooser");
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(chooserProcedure));
    for (const UINT message : {BFFM_SELCHANGED, BFFM_INITIALIZED, BFFM_SELCHANGED})
        CHECK(info->lpfn(window, message, 0, info->lParam) == 0);
    ItemList chosen;
    if (!folderChooser.choice.empty())
        tidewell::PathToItemList(nullptr, folderChooser.choice.c_str(), chosen);
    return chosen.release();
}

}  // namespace

REPLACE_IMPORT(SHBrowseForFolderA, 4, browse);
