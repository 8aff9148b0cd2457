// The templates of the dialogs, in the library's language and in the example's: they come up, they have the
// controls that others know by number, no text is cut, and each letter works once.
#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/module_resources_windows.h"

#include <doctest/doctest.h>

#include <windows.h>
#include <commctrl.h>

#include <cctype>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

struct Template {
    int id;
    const char* name;
    std::set<int> controls;
};

const Template kTemplates[] = {
#ifdef _WIN64
    // No 32-bit program makes a combination box where Wine runs it without its display.
    {IDD_FORMAT, "FORMAT", {1017, 1064, 1077, 1021, 1000, 2, 1056, 1004, 1018, 1071}},
#endif
    {IDD_COPY, "COPY", {1001, 1003, 1000, 2, 1055, 1022, 1018, 1004, 1057}},
    {IDD_VIEWER,
     "VIEWER",
     {1000, 1003, 1001, 1, 1054, 1046, 1038, 1045, 1039, 1047, 1041, 1040, 1042, 1043, 1044, 1071}},
    {IDD_CONTENTS, "CONTENTS", {1049, 1011, 1010, 1}},
    {IDD_FILE_PAGE,
     "FILE_PAGE",
     {1000, 1001, 1005, 1004, 1003, 1013, 1014, 1008, 1007, 1009, 1010, 1011, 1012}},
    {IDD_FOLDER_PAGE, "FOLDER_PAGE", {1000, 1001, 1005, 1016, 1008, 1010, 1011}},
    {IDD_VOLUME_PAGE, "VOLUME_PAGE", {1000, 1001, 1005, 1072, 1073, 1016, 1008, 1010, 1011}},
    {IDD_NTFS_FOLDER_PAGE, "NTFS_PAGE", {1000, 1001, 1005, 1008, 1010, 1011}},
};

class LoadedLibrary {
  public:
    explicit LoadedLibrary(const std::string& name) {
        char path[MAX_PATH];
        GetModuleFileNameA(nullptr, path, sizeof path);
        const std::string program = path;
        module_ = LoadLibraryA((program.substr(0, program.rfind('\\') + 1) + name).c_str());
        REQUIRE(module_ != nullptr);
    }
    ~LoadedLibrary() { FreeLibrary(module_); }
    LoadedLibrary(const LoadedLibrary&) = delete;
    LoadedLibrary& operator=(const LoadedLibrary&) = delete;
    operator HMODULE() const { return module_; }

  private:
    HMODULE module_;
};

INT_PTR CALLBACK doNothing(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG;
}

// A dialog made from a template; a property page in a window as a property sheet is one for it.
class Dialog {
  public:
    Dialog(HMODULE module, int id) {
        InitCommonControls();
        HWND const sheet = CreateWindowExA(WS_EX_CONTROLPARENT, "STATIC", "sheet", WS_POPUP | WS_CAPTION, 20,
                                           20, 600, 500, nullptr, nullptr, nullptr, nullptr);
        window_ = CreateDialogParamA(module, MAKEINTRESOURCEA(id), sheet, doNothing, 0);
        REQUIRE_MESSAGE(window_ != nullptr, "dialog " << id << ": error " << GetLastError());
        sheet_ = sheet;
        if (GetWindowLongA(window_, GWL_STYLE) & WS_CHILD) ShowWindow(sheet, SW_SHOW);
        ShowWindow(window_, SW_SHOW);
        UpdateWindow(window_);
    }
    ~Dialog() { DestroyWindow(sheet_); }
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    operator HWND() const { return window_; }

    // Until everything is painted.
    void settle() const {
        constexpr DWORD kSettleTime = 50;  // ms
        const DWORD start = GetTickCount();
        MSG message;
        do {
            while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
                DispatchMessageA(&message);
            Sleep(5);
        } while (GetTickCount() - start < kSettleTime);
    }
    std::vector<HWND> controls() const {
        std::vector<HWND> all;
        for (HWND control = GetWindow(window_, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
            all.push_back(control);
        return all;
    }

  private:
    HWND window_;
    HWND sheet_;
};

std::string classOf(HWND window) {
    char name[64] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

// The letter that works with Alt, 0 for none.
char accessLetter(HWND control) {
    if (classOf(control) == "Static" && (GetWindowLongA(control, GWL_STYLE) & SS_NOPREFIX)) return 0;
    const std::string text = windowText(control);
    const size_t mark = text.find('&');
    return mark == std::string::npos ? '\0' : static_cast<char>(std::tolower(text[mark + 1]));
}

#ifdef _WIN64
// What a text needs beside itself: the box of a check box, the borders of a button.
int roomBeside(HWND control) {
    if (classOf(control) != "Button") return 0;
    const LONG kind = GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK;
    return kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX ? 18 : 8;
}

void checkTextFits(HWND control) {
    const std::string text = windowText(control);
    const std::string name = classOf(control);
    if (text.empty() || (name != "Static" && name != "Button")) return;
    RECT has = {};
    GetClientRect(control, &has);
    RECT needs = {};
    HDC const dc = GetDC(control);
    HGDIOBJ const previous =
        SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0)));
    DrawTextA(dc, text.c_str(), -1, &needs, DT_CALCRECT | DT_SINGLELINE);
    SelectObject(dc, previous);
    ReleaseDC(control, dc);
    CHECK_MESSAGE(needs.right + roomBeside(control) <= has.right, text);
    CHECK_MESSAGE(needs.bottom <= has.bottom, text);
}
#endif

void checkDialog(HMODULE module, const Template& expected, const std::string& screenshot) {
    const Dialog dialog(module, expected.id);
    std::set<int> controls;
    std::map<char, std::string> letters;
    RECT inside = {};
    GetClientRect(dialog, &inside);
    for (HWND const control : dialog.controls()) {
        const std::string text = windowText(control);
        CAPTURE(text);
        const int id = GetDlgCtrlID(control);
        if (id != 0xFFFF && id != -1) CHECK(controls.insert(id).second);
        const char letter = accessLetter(control);
        if (letter) CHECK(letters.emplace(letter, text).second);

        RECT place = {};
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        CHECK(place.left >= 0);
        CHECK(place.top >= 0);
        CHECK(place.right <= inside.right);
        if (classOf(control) != "ComboBox") CHECK(place.bottom <= inside.bottom);
#ifdef _WIN64
        // Fonts are measured only where there is a display.
        checkTextFits(control);
#endif
    }
    CHECK(controls == expected.controls);
    dialog.settle();
    takeScreenshot(dialog, screenshot.c_str());
}

}  // namespace

TEST_CASE("Every dialog comes up with its controls and with room for its texts, in two languages") {
    struct {
        const char* library;
        const char* suffix;
    } const languages[] = {{"TIDEWELL.DLL", ""}, {"TIDEWELL_DE.DLL", "_DE"}};
    for (const auto& language : languages) {
        const LoadedLibrary library(language.library);
        for (const Template& expected : kTemplates) {
            CAPTURE(language.library);
            CAPTURE(expected.name);
            checkDialog(library, expected, std::string(expected.name) + language.suffix);
        }
    }
}

TEST_CASE("The dialogs say what they are, and begin as they should") {
    const LoadedLibrary library("TIDEWELL.DLL");
    CHECK(FindResourceA(library, MAKEINTRESOURCEA(IDD_FORMAT), MAKEINTRESOURCEA(240)) != nullptr);
#ifdef _WIN64
    const Dialog format(library, IDD_FORMAT);
    CHECK(windowText(format) == "Format Mac Disk - %1");
    CHECK(childWithText(format, "Format &type:") != nullptr);
    CHECK(windowText(GetDlgItem(format, 1064)) == "&Quick format");
    CHECK(windowText(GetDlgItem(format, 1077)) == "Volume &label:");
    CHECK(windowText(GetDlgItem(format, 1000)) == "&Start");
    CHECK(windowText(GetDlgItem(format, 2)) == "&Close");
    CHECK(windowText(GetDlgItem(format, 1056)) == "&Help");
    CHECK((GetWindowLongA(format, GWL_EXSTYLE) & WS_EX_CONTEXTHELP) != 0);
#endif

    const Dialog copy(library, IDD_COPY);
    CHECK(windowText(copy) == "Tidewell 98 Copy Disk");
    CHECK(windowText(GetDlgItem(copy, 1022)) == "&Format destination disk before copying");
    CHECK(IsDlgButtonChecked(copy, 1022) == BST_UNCHECKED);

    const Dialog viewer(library, IDD_VIEWER);
    CHECK(windowText(viewer) == "Tidewell 98 Resource Viewer");
    CHECK_FALSE(IsWindowEnabled(GetDlgItem(viewer, 1003)));
    CHECK_FALSE(IsWindowEnabled(GetDlgItem(viewer, 1046)));
    for (int box = 1040; box <= 1044; ++box)
        CHECK_FALSE(IsWindowEnabled(GetDlgItem(viewer, box)));
    for (const HWND dialog : {static_cast<HWND>(copy), static_cast<HWND>(viewer)})
        CHECK((GetWindowLongA(dialog, GWL_EXSTYLE) & WS_EX_CONTEXTHELP) != 0);

    const Dialog contents(library, IDD_CONTENTS);
    CHECK(windowText(contents) == "Resource Contents");
    const LONG dump = GetWindowLongA(GetDlgItem(contents, 1049), GWL_STYLE);
    CHECK((dump & (ES_READONLY | ES_MULTILINE | WS_VSCROLL)) == (ES_READONLY | ES_MULTILINE | WS_VSCROLL));
}

TEST_CASE("On the property pages only what can be changed is enabled") {
    const LoadedLibrary library("TIDEWELL.DLL");
    for (const int page : {IDD_FILE_PAGE, IDD_FOLDER_PAGE, IDD_VOLUME_PAGE, IDD_NTFS_FOLDER_PAGE}) {
        CAPTURE(page);
        const Dialog dialog(library, page);
        EnableWindow(dialog, TRUE);
        CHECK(IsWindowEnabled(GetDlgItem(dialog, IDC_PAGE_NAME_LOCKED)) == (page != IDD_VOLUME_PAGE));
        for (const int box : {IDC_PAGE_HAS_BUNDLE, IDC_PAGE_STATIONERY, IDC_PAGE_CUSTOM_ICON, IDC_PAGE_INITED,
                              IDC_PAGE_SHARED}) {
            HWND const control = GetDlgItem(dialog, box);
            if (control) CHECK_FALSE(IsWindowEnabled(control));
        }
        for (const int shown : {IDC_PAGE_DISPLAY_NAME, IDC_PAGE_MAC_NAME})
            CHECK((GetWindowLongA(GetDlgItem(dialog, shown), GWL_STYLE) & ES_READONLY) != 0);
    }
}

TEST_CASE("The viewer's menus hold the commands that its buttons have") {
    const LoadedLibrary library("TIDEWELL.DLL");
    struct {
        int menu;
        std::vector<UINT> commands;  // 0: a separator
    } const rows[] = {
        {IDR_FORK_MENU, {1001, 0, 40002}},
        {IDR_RESOURCE_MENU, {1003, 1001, 0, 40002}},
        {IDR_HELP_MENU, {40002}},
    };
    for (const auto& row : rows) {
        CAPTURE(row.menu);
        HMENU const menu = LoadMenuA(library, MAKEINTRESOURCEA(row.menu));
        REQUIRE(menu != nullptr);
        HMENU const popup = GetSubMenu(menu, 0);
        std::vector<UINT> commands;
        for (int i = 0; i < GetMenuItemCount(popup); ++i)
            commands.push_back(GetMenuItemID(popup, i));
        CHECK(commands == row.commands);
        char text[64] = "";
        GetMenuStringA(popup, 40002, text, sizeof text, MF_BYCOMMAND);
        CHECK(std::string(text) == "&What's This?");
        DestroyMenu(menu);
    }
}
