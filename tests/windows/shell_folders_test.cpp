// The shell's folders, and what the system's folder chooser is asked for.
#include "ui/shell_folders.h"

#include "base/path.h"
#include "support/folder_chooser_windows.h"
#include "support/modal_windows.h"

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

// Lets the user choose, from `path` on.
std::string chosenFrom(const std::string& path, const std::string& choice, bool chosen) {
    char buffer[kPathCapacity] = "";
    std::strcpy(buffer, path.c_str());
    const TestWindow owner("owner");
    folderChooser = {choice};
    CHECK(BrowseForFolder(owner, kTitle, buffer) == chosen);
    if (folderChooser.shown != 0) CHECK(folderChooser.owner == owner);
    if (folderChooser.shown != 0) CHECK(folderChooser.title == kTitle);
    return buffer;
}

}  // namespace

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
    CHECK(folderChooser.shown == 0);

    CHECK(chosenFrom(windowsPath(), "", false) == windowsPath());
    CHECK(folderChooser.shown == 1);
    CHECK(upperCaseOf(folderChooser.selected) == upperCaseOf(windowsPath()));

    // The desktop's own item, which stands above all others.
    CHECK(upperCaseOf(chosenFrom(desktopPath(), "C:\\", true)) == "C:\\");
    CHECK(upperCaseOf(folderChooser.selected) == upperCaseOf(desktopPath()));
    CHECK(folderChooser.selectedSize == sizeof(USHORT));
}
