// The templates of the dialogs, in the library's language and in the example's: they come up, they have the
// controls that others know by number, no text is cut, and each letter works once.
#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <windows.h>
#include <commctrl.h>

#include <cctype>
#include <set>
#include <string>
#include <vector>

namespace {

// The title, "?" with a button for help, and each control in its order: its number, where it has one, "-"
// where it is disabled, "!" where it is only read, "+" where it has several lines, and its text.
struct Template {
    int id;
    const char* name;
    const char* english;
};

const Template kTemplates[] = {
    {IDD_FORMAT, "FORMAT",
     "Format Mac Disk - %1? [1071] []Format &type: [1017] [1064]&Quick format [1077]Volume &label: "
     "[1021] [1004] [1018] [1000]&Start [2]&Close [1056]&Help"},
    {IDD_COPY, "COPY",
     "Tidewell 98 Copy Disk? [1057] []Copy f&rom: [1001] []Copy &to: [1003] "
     "[1022]&Format destination disk before copying [1004] [1018] [1000]&Start [2]&Close [1055]&Help"},
    {IDD_VIEWER, "VIEWER",
     "Tidewell 98 Resource Viewer? [1000] [1003-]&View... [1001]&Save As... [1]&Close [1054]&Help [1071] "
     "[1045-]Type: [1039] [1046-]Size: [1038] [1047-]Attributes: "
     "[1041-]System Heap [1040-]Purgeable [1042-]Locked [1043-]Protected [1044-]Preload"},
    {IDD_CONTENTS, "CONTENTS", "Resource Contents [1010] [1011] [1049!+] [1]&Close"},
    {IDD_FILE_PAGE, "FILE_PAGE",
     " [1000] [1001!] [] []Mac name: [1005!] []Data size: [1004] []Resource size: [1003] [] "
     "[]File &type: [1013] []File c&reator: [1014] []Attributes [1008]Name &locked "
     "[1007-]Has bundle [1009-]Stationery [1010-]Custom icon [1011-]Inited [1012-]Shared"},
    {IDD_FOLDER_PAGE, "FOLDER_PAGE",
     " [1000] [1001!] [] []Mac name: [1005!] []Items in folder: [1016] "
     "[]Attributes [1008]Name &locked [1010-]Custom icon [1011-]Inited"},
    {IDD_VOLUME_PAGE, "VOLUME_PAGE",
     " [1000] [1001!] [] []Mac name: [1005!] []Files on disk: [1072] []Folders on disk: [1073] "
     "[]Items in folder: [1016] []Attributes [1008-]Name &locked [1010-]Custom icon [1011-]Inited"},
    {IDD_NTFS_FOLDER_PAGE, "NTFS_PAGE",
     " [1000] [1001!] [] []Mac name: [1005!] "
     "[]Attributes [1008]Name &locked [1010-]Custom icon [1011-]Inited"},
};

// A dialog made from a template; a property page in a window as a property sheet is one for it.
class Dialog : public TestWindow {
  public:
    Dialog(HMODULE module, int id)
        : TestWindow(CreateWindowExA(WS_EX_CONTROLPARENT, "STATIC", "sheet", WS_POPUP | WS_CAPTION, 20, 20,
                                     600, 500, nullptr, nullptr, nullptr, nullptr)) {
        InitCommonControls();
        // The system's combo box cannot be made without a display: an empty control stands in for it.
        WNDCLASSA empty = {};
        empty.lpfnWndProc = DefWindowProcA;
        empty.hInstance = module;
        empty.lpszClassName = "COMBOBOX";
        if (!kHasDisplay) RegisterClassA(&empty);
        window = CreateDialogParamA(module, MAKEINTRESOURCEA(id), *this, nullptr, 0);
        REQUIRE_MESSAGE(window != nullptr, "dialog " << id << ": error " << GetLastError());
        if (GetWindowLongA(window, GWL_STYLE) & WS_CHILD) ShowWindow(*this, SW_SHOW);
        ShowWindow(window, SW_SHOW);
        for (HWND control = GetWindow(window, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
            controls.push_back(control);
    }
    std::string describe(bool withTexts) const {
        std::string text = withTexts ? windowText(window) : "";
        if (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_CONTEXTHELP) text += "?";
        for (HWND const control : controls) {
            const LONG style = GetWindowLongA(control, GWL_STYLE);
            const auto id = static_cast<short>(GetDlgCtrlID(control));
            text += " [" + (id == IDC_STATIC ? "" : std::to_string(id));
            if (style & WS_DISABLED) text += "-";
            if (classOf(control) == "Edit" && (style & ES_READONLY)) text += "!";
            if (classOf(control) == "Edit" && (style & ES_MULTILINE)) text += "+";
            text += "]" + (withTexts ? windowText(control) : "");
        }
        return text;
    }

    HWND window;
    std::vector<HWND> controls;
};

// The letter that works with Alt, 0 for none.
char accessLetter(HWND control) {
    if (classOf(control) == "Static" && (GetWindowLongA(control, GWL_STYLE) & SS_NOPREFIX)) return 0;
    const std::string text = windowText(control);
    const size_t mark = text.find('&');
    return mark == std::string::npos ? '\0' : static_cast<char>(std::tolower(text[mark + 1]));
}

void checkTextFits(HWND control) {
    // Beside the text there are the box of a check box, the borders of a button.
    const LONG kind = GetWindowLongA(control, GWL_STYLE) & BS_TYPEMASK;
    const int box = kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX ? 18 : 8;
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
    CHECK(needs.right > 0);
    CHECK_MESSAGE(needs.right + (name == "Button" ? box : 0) <= has.right, text);
    CHECK_MESSAGE(needs.bottom <= has.bottom, text);
}

void checkLayout(const Dialog& dialog) {
    std::set<char> letters;
    RECT inside = {};
    GetClientRect(dialog.window, &inside);
    for (HWND const control : dialog.controls) {
        const std::string text = windowText(control);
        CAPTURE(text);
        const char letter = accessLetter(control);
        if (letter) CHECK(letters.insert(letter).second);

        RECT place = {};
        GetWindowRect(control, &place);
        MapWindowPoints(nullptr, dialog.window, reinterpret_cast<POINT*>(&place), 2);
        // The height of a combo box is that of its list.
        if (classOf(control) == "ComboBox") place.bottom = place.top;
        RECT united = {};
        UnionRect(&united, &place, &inside);
        CHECK(EqualRect(&united, &inside));
        checkTextFits(control);
    }
}

}  // namespace

TEST_CASE("Every dialog comes up with its controls and with room for its texts, in two languages") {
    const LoadedLibrary library;
    const LoadedLibrary germanLibrary("TIDEWELL_DE.DLL");
    for (const Template& expected : kTemplates) {
        CAPTURE(expected.name);
        const Dialog english(library, expected.id);
        CHECK(english.describe(true) == expected.english);
        checkLayout(english);
        takeScreenshot(english.window, expected.name);
        const Dialog german(germanLibrary, expected.id);
        CHECK(german.describe(false) == english.describe(false));
        checkLayout(german);
        takeScreenshot(german.window, (std::string(expected.name) + "_DE").c_str());
    }
    CHECK(FindResourceA(library, MAKEINTRESOURCEA(IDD_FORMAT), MAKEINTRESOURCEA(240)) != nullptr);
}

TEST_CASE("The viewer's menus hold the commands that its buttons have") {
    const LoadedLibrary library;
    struct {
        int menu;
        const char* items;
    } const rows[] = {
        {IDR_FORK_MENU, "[1001]&Save As...[0][40002]&What's This?"},
        {IDR_RESOURCE_MENU, "[1003]&View...[1001]&Save As...[0][40002]&What's This?"},
        {IDR_HELP_MENU, "[40002]&What's This?"},
    };
    for (const auto& row : rows) {
        HMENU const menu = LoadMenuA(library, MAKEINTRESOURCEA(row.menu));
        HMENU const popup = GetSubMenu(menu, 0);
        std::string items;
        for (int i = 0; i < GetMenuItemCount(popup); ++i) {
            char text[64] = "";
            GetMenuStringA(popup, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
            items += "[" + std::to_string(GetMenuItemID(popup, i)) + "]" + text;
        }
        CHECK(items == row.items);
        DestroyMenu(menu);
    }
}
