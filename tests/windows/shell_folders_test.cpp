// The shell's folders, and the system's folder chooser as the user sees it.
#include "ui/shell_folders.h"

#include "macfile/path.h"
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

struct Choice {
    bool chosen;
    int shown;
    std::string path;
    std::string labels;
};

Choice choose(const std::string& initial, int button, const char* screenshot = nullptr) {
    char path[kPathCapacity];
    std::strcpy(path, initial.c_str());
    Choice choice = {};
    const ModalDriver driver([&](HWND window) {
        choice.labels = labelText(window);
        if (screenshot) takeScreenshot(window, screenshot);
        press(window, button);
    });
    choice.chosen = BrowseForFolder(nullptr, "Select the folder.", path);
    choice.shown = driver.shown();
    choice.path = path;
    return choice;
}

}  // namespace

TEST_CASE("The desktop's folder is known by every name") {
    const std::string desktop = desktopPath();
    const DWORD attributes = GetFileAttributesA(desktop.c_str());
    CHECK(attributes != INVALID_FILE_ATTRIBUTES);
    CHECK((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0);
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
    const Choice ok = choose(windowsPath(), IDOK, "BROWSE");
    CHECK(ok.shown == 1);
    CHECK(ok.labels.find("Select the folder.") != std::string::npos);
    CHECK(ok.chosen);
    CHECK(upperCaseOf(ok.path) == upperCaseOf(windowsPath()));

    const Choice cancelled = choose(windowsPath(), IDCANCEL);
    CHECK(cancelled.shown == 1);
    CHECK_FALSE(cancelled.chosen);
    CHECK(cancelled.path == windowsPath());
}

TEST_CASE("For the desktop's folder the chooser comes up too") {
    const Choice choice = choose(desktopPath(), IDCANCEL);
    CHECK(choice.shown == 1);
    CHECK_FALSE(choice.chosen);
    CHECK(choice.path == desktopPath());
}

TEST_CASE("Without a folder to start with nothing is asked") {
    const Choice choice = choose("C:\\missing", IDCANCEL);
    CHECK(choice.shown == 0);
    CHECK_FALSE(choice.chosen);
    CHECK(choice.path == "C:\\missing");
}
