// The shell's folders, and what the system's folder chooser is asked for.
#include "ui/shell_folders.h"

#include "base/path.h"
#include "support/modal_windows.h"
#include "support/replaced_import_windows.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>

using namespace tidewell;

namespace {

std::string desktopPath() {
    char path[kPathCapacity] = "";
    REQUIRE(GetDesktopDirectoryPath(path));
    return path;
}

std::string windowsPath() {
    char path[kPathCapacity] = "";
    GetWindowsDirectoryA(path, sizeof path);
    return path;
}

std::string upperCaseOf(std::string text) {
    CharUpperA(text.data());
    return text;
}

constexpr char kTitle[] = "Select the folder.";

// What is chosen in the folder chooser, and what it was shown with.
struct Chooser {
    HWND owner = nullptr;
    std::string choice;  // empty: Cancel
    std::string selected = {};
    UINT selectedSize = 0;
    int shown = 0;
} chooser;

// The chooser's window as its callback sees it.
LRESULT CALLBACK chooserProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == BFFM_SETSELECTIONA) {
        CHECK(wParam == FALSE);
        char path[kPathCapacity] = "?";
        SHGetPathFromIDListA(reinterpret_cast<const ITEMIDLIST*>(lParam), path);
        chooser.selected += path;
        chooser.selectedSize = ILGetSize(reinterpret_cast<const ITEMIDLIST*>(lParam));
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

ITEMIDLIST* WINAPI browse(BROWSEINFOA* info) {
    ++chooser.shown;
    CHECK(info->hwndOwner == chooser.owner);
    CHECK(info->lpszTitle == std::string(kTitle));
    CHECK(info->ulFlags == BIF_RETURNONLYFSDIRS);
    CHECK(info->pidlRoot == nullptr);
    std::memset(info->pszDisplayName, 'x', MAX_PATH);
    const TestWindow window("chooser");
    SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(chooserProcedure));
    for (const UINT message : {BFFM_SELCHANGED, BFFM_INITIALIZED, BFFM_SELCHANGED})
        CHECK(info->lpfn(window, message, 0, info->lParam) == 0);
    ItemList chosen;
    if (!chooser.choice.empty()) PathToItemList(nullptr, chooser.choice.c_str(), chosen);
    return chosen.release();
}

// Lets the user choose, from `path` on.
std::string chosenFrom(const std::string& path, const std::string& choice, bool chosen) {
    char buffer[kPathCapacity] = "";
    std::strcpy(buffer, path.c_str());
    const TestWindow owner("owner");
    chooser = {owner, choice};
    CHECK(BrowseForFolder(owner, kTitle, buffer) == chosen);
    return buffer;
}

}  // namespace

REPLACE_IMPORT(SHBrowseForFolderA, 4, browse);

TEST_CASE("The desktop's folder is known by every name") {
    const std::string desktop = desktopPath();
    CHECK(GetFileAttributesA(desktop.c_str()) != INVALID_FILE_ATTRIBUTES);
    CHECK(IsDesktopDirectory(upperCaseOf(desktop).c_str()));
    char shortPath[kPathCapacity];
    GetShortPathNameA(desktop.c_str(), shortPath, sizeof shortPath);
    CHECK(IsDesktopDirectory(shortPath));
    // The desktop's path, which was asked for before, is in no buffer any more.
    std::string tooLong = desktop;
    while (tooLong.size() < kPathCapacity)
        tooLong += "\\.";
    for (const std::string& other : {windowsPath(), std::string("C:\\missing"), std::string(), tooLong}) {
        CHECK(IsDesktopDirectory(desktop.c_str()));
        CHECK_FALSE(IsDesktopDirectory(other.c_str()));
    }
}

TEST_CASE("What is no path becomes no item list") {
    for (const std::string& path : {std::string("C:\\missing"), std::string(kPathCapacity, 'a')}) {
        ItemList none;
        CHECK(FAILED(PathToItemList(nullptr, path.c_str(), none)));
        CHECK_FALSE(none);
    }
}

TEST_CASE("The folder chooser starts at the folder and gives the chosen one") {
    CHECK(chosenFrom("C:\\missing", windowsPath(), false) == "C:\\missing");
    CHECK(chooser.shown == 0);

    CHECK(chosenFrom(windowsPath(), "", false) == windowsPath());
    CHECK(chooser.shown == 1);
    CHECK(upperCaseOf(chooser.selected) == upperCaseOf(windowsPath()));

    // The desktop's own item, which stands above all others.
    CHECK(upperCaseOf(chosenFrom(desktopPath(), "C:\\", true)) == "C:\\");
    CHECK(upperCaseOf(chooser.selected) == upperCaseOf(desktopPath()));
    CHECK(chooser.selectedSize == sizeof(USHORT));
}
