// The shell's folders, and the system's folder chooser as the user sees it.
#include "ui/shell_folders.h"

#include "base/path.h"
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

// Lets the user choose with a button, from `path` on.
bool choose(std::string& path, int button, int windows) {
    char buffer[kPathCapacity];
    std::strcpy(buffer, path.c_str());
    const ModalDriver driver([&](HWND window) {
        CHECK(labelTexts(window).find("Select the folder.") == 0);
        takeScreenshot(window, "BROWSE");
        press(window, button);
    });
    const bool chosen = BrowseForFolder(nullptr, "Select the folder.", buffer);
    CHECK(driver.shown() == windows);
    path = buffer;
    return chosen;
}

}  // namespace

TEST_CASE("The desktop's folder is known by every name") {
    const std::string desktop = desktopPath();
    CHECK(GetFileAttributesA(desktop.c_str()) != INVALID_FILE_ATTRIBUTES);
    CHECK(IsDesktopDirectory(desktop.c_str()));
    CHECK(IsDesktopDirectory(upperCaseOf(desktop).c_str()));
    char shortPath[kPathCapacity];
    GetShortPathNameA(desktop.c_str(), shortPath, sizeof shortPath);
    CHECK(IsDesktopDirectory(shortPath));
    CHECK_FALSE(IsDesktopDirectory(windowsPath().c_str()));
    CHECK_FALSE(IsDesktopDirectory("C:\\missing"));
    CHECK_FALSE(IsDesktopDirectory(""));
}

TEST_CASE("A path becomes an item list and back") {
    ItemList list;
    CHECK(SUCCEEDED(PathToItemList(nullptr, windowsPath().c_str(), list)));
    REQUIRE(list);
    char path[kPathCapacity] = "";
    CHECK(SHGetPathFromIDListA(list.get(), path));
    CHECK(upperCaseOf(path) == upperCaseOf(windowsPath()));

    ItemList none;
    CHECK(FAILED(PathToItemList(nullptr, "C:\\missing", none)));
    CHECK_FALSE(none);
    CHECK(FAILED(PathToItemList(nullptr, std::string(kPathCapacity, 'a').c_str(), none)));
    CHECK_FALSE(none);
}

TEST_CASE("The folder chooser starts at the folder and gives the chosen one") {
    std::string path = "C:\\missing";
    CHECK_FALSE(choose(path, IDCANCEL, 0));
    CHECK(path == "C:\\missing");
    // The system's chooser shows a tree of icons, without a display it breaks down.
    if (!kHasDisplay) return;

    path = windowsPath();
    CHECK(choose(path, IDOK, 1));
    CHECK(upperCaseOf(path) == upperCaseOf(windowsPath()));
    for (const std::string& start : {windowsPath(), desktopPath()}) {
        path = start;
        CHECK_FALSE(choose(path, IDCANCEL, 1));
        CHECK(path == start);
    }
}
