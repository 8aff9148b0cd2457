#include "ui/shell_folders.h"

#include "base/error_code.h"
#include "base/path.h"

namespace tidewell {

namespace {

ItemList specialFolder(int number) {
    ITEMIDLIST* list = nullptr;
    return FAILED(SHGetSpecialFolderLocation(nullptr, number, &list)) ? ItemList() : ItemList(list);
}

bool hasShortPath(const char* path, char* shortPath) {
    const DWORD length = GetShortPath(path, shortPath, kPathCapacity);
    return length != 0 && length < kPathCapacity;
}

// The folder chooser takes its selection once it has been initialised.
int CALLBACK browseProcedure(HWND window, UINT message, LPARAM, LPARAM initialItem) {
    if (message == BFFM_INITIALIZED) SendMessageA(window, BFFM_SETSELECTIONA, FALSE, initialItem);
    return 0;
}

ItemList initialItem(HWND owner, const char* path) {
    if (IsDesktopDirectory(path)) return specialFolder(CSIDL_DESKTOP);
    ItemList list;
    PathToItemList(owner, path, list);
    return list;
}

}  // namespace

bool GetDesktopDirectoryPath(char* buffer) {
    const ItemList desktop = specialFolder(CSIDL_DESKTOPDIRECTORY);
    return desktop && SHGetPathFromIDListA(desktop.get(), buffer);
}

bool IsDesktopDirectory(const char* path) {
    char desktop[kPathCapacity];
    char shortDesktop[kPathCapacity];
    char shortPath[kPathCapacity];
    return GetDesktopDirectoryPath(desktop) && hasShortPath(desktop, shortDesktop) &&
           hasShortPath(path, shortPath) && lstrcmpiA(shortPath, shortDesktop) == 0;
}

HRESULT PathToItemList(HWND owner, const char* path, ItemList& itemList) {
    WCHAR wide[kPathCapacity];
    if (MultiByteToWideChar(CP_ACP, 0, path, -1, wide, kPathCapacity) == 0)
        return HRESULT_FROM_WIN32(lastError());
    IShellFolder* desktopFolder = nullptr;
    HRESULT result = SHGetDesktopFolder(&desktopFolder);
    if (FAILED(result)) return result;
    const Reference<IShellFolder> desktop(desktopFolder);

    ULONG eaten = 0;
    ITEMIDLIST* list = nullptr;
    result = desktopFolder->ParseDisplayName(owner, nullptr, wide, &eaten, &list, nullptr);
    if (SUCCEEDED(result)) itemList = ItemList(list);
    return result;
}

bool BrowseForFolder(HWND owner, const char* title, char* path) {
    const ItemList initial = initialItem(owner, path);
    if (!initial) return false;

    char displayName[kPathCapacity];
    BROWSEINFOA browse = {};
    browse.hwndOwner = owner;
    browse.pszDisplayName = displayName;
    browse.lpszTitle = title;
    browse.ulFlags = BIF_RETURNONLYFSDIRS;
    browse.lpfn = browseProcedure;
    browse.lParam = reinterpret_cast<LPARAM>(initial.get());
    const ItemList chosen(SHBrowseForFolderA(&browse));

    char chosenPath[kPathCapacity];
    if (!chosen || !SHGetPathFromIDListA(chosen.get(), chosenPath)) return false;
    lstrcpynA(path, chosenPath, static_cast<int>(kPathCapacity));
    return true;
}

}  // namespace tidewell
