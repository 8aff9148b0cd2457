// The templates of the dialogs, in the library's language and in the example's, in the fonts that the systems
// have for them: no text is cut, and each letter works once, for the control that it is meant for.
#include "res/resource.h"
#include "support/modal_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <windows.h>
#include <commctrl.h>
#include <windowsx.h>

#include <cctype>
#include <cstring>
#include <set>
#include <string>
#include <vector>

namespace {

struct Template {
    LPCSTR resource;
    // Strings that a control shows later, closed by 0.
    struct {
        int control;
        UINT strings[8];
    } later[2] = {};
};

const Template kTemplates[] = {
    {MAKEINTRESOURCEA(IDD_FORMAT),
     {{IDCANCEL, {IDS_CANCEL, IDS_CLOSE}},
      {IDC_FORMAT_STATUS,
       {IDS_PREPARING_FORMAT, IDS_CREATING_VOLUME, IDS_SETTING_LABEL, IDS_UNFORMATTING, IDS_CREATING_WRAPPER,
        IDS_FORMATTING, IDS_VERIFYING}}}},
    {MAKEINTRESOURCEA(IDD_COPY),
     {{IDCANCEL, {IDS_CANCEL, IDS_CLOSE}},
      {IDC_COPY_STATUS,
       {IDS_READING_SOURCE, IDS_WAITING_DESTINATION, IDS_PREPARING_COPY, IDS_FORMATTING,
        IDS_WRITING_DESTINATION}}}},
    {MAKEINTRESOURCEA(IDD_VIEWER)},
    {MAKEINTRESOURCEA(IDD_CONTENTS)},
    {MAKEINTRESOURCEA(IDD_FILE_PAGE)},
    {MAKEINTRESOURCEA(IDD_FOLDER_PAGE)},
    {MAKEINTRESOURCEA(IDD_VOLUME_PAGE)},
    {MAKEINTRESOURCEA(IDD_NTFS_FOLDER_PAGE)},
    {"FILEPROGRESS", {{IDC_PROGRESS_TIME, {IDS_MINUTES_REMAINING, IDS_SECONDS_REMAINING}}}},
    {MAKEINTRESOURCEA(IDD_CONFIRM_REPLACE)},
};

// "MS Shell Dlg", which the templates name, is the first on newer systems, the second on older ones.
const char* const kFaces[] = {"Tahoma", "MS Sans Serif"};

// A copy of a template that names another font.
std::vector<WORD> templateInFace(HMODULE module, LPCSTR resource, const char* face) {
    HRSRC const found = FindResourceA(module, resource, RT_DIALOG);
    REQUIRE(found != nullptr);
    const auto* const words = static_cast<const WORD*>(LockResource(LoadResource(module, found)));
    const bool extended = words[1] == 0xFFFF;
    // Neither a menu nor a class stand before the title.
    size_t at = (extended ? 13 : 9) + 2;
    while (words[at++] != 0) {
    }
    at += extended ? 3 : 1;  // the font's size; weight, slant and character set
    std::vector<WORD> copy(words, words + at);
    while (words[at++] != 0) {
    }
    copy.insert(copy.end(), face, face + std::strlen(face) + 1);
    // Controls begin at a multiple of four bytes.
    copy.resize((copy.size() + 1) / 2 * 2);
    at = (at + 1) / 2 * 2;
    copy.insert(copy.end(), words + at, words + SizeofResource(module, found) / sizeof(WORD));
    return copy;
}

// A dialog made from a template; a property page in a window as a property sheet is one for it.
class Dialog : public TestWindow {
  public:
    Dialog(HMODULE module, const Template& wanted, const char* face)
        : TestWindow(CreateWindowExA(WS_EX_CONTROLPARENT, "STATIC", "sheet", WS_POPUP | WS_CAPTION, 20, 20,
                                     600, 500, nullptr, nullptr, nullptr, nullptr)) {
        InitCommonControls();
        const std::vector<WORD> words = templateInFace(module, wanted.resource, face);
        window = CreateDialogIndirectParamA(module, reinterpret_cast<const DLGTEMPLATE*>(words.data()), *this,
                                            nullptr, 0);
        REQUIRE_MESSAGE(window != nullptr, "error " << GetLastError());
        if (GetWindowLongA(window, GWL_STYLE) & WS_CHILD) ShowWindow(*this, SW_SHOW);
        ShowWindow(window, SW_SHOW);
        for (HWND control = GetWindow(window, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT))
            controls.push_back(control);
        REQUIRE_FALSE(controls.empty());
    }

    HWND window;
    std::vector<HWND> controls;
};

bool isLabel(HWND control) {
    return classOf(control) == "Static";
}

// The letter that works with Alt, 0 for none.
char accessLetter(HWND control) {
    if (isLabel(control) && (GetWindowLongA(control, GWL_STYLE) & SS_NOPREFIX)) return 0;
    const std::string text = windowText(control);
    const size_t mark = text.find('&');
    return mark == std::string::npos ? '\0' : static_cast<char>(std::tolower(text[mark + 1]));
}

void checkTextFits(HWND control, const char* face) {
    const std::string text = windowText(control);
    const std::string name = classOf(control);
    if (text.empty() || (name != "Static" && name != "Button") || isIcon(control)) return;
    // Beside the text there are the box of a check box, the borders of a button.
    const LONG style = GetWindowLongA(control, GWL_STYLE);
    const LONG kind = style & BS_TYPEMASK;
    const int beside = name == "Static" ? 0 : kind == BS_CHECKBOX || kind == BS_AUTOCHECKBOX ? 18 : 8;
    RECT has = {};
    GetClientRect(control, &has);
    RECT needs = {0, 0, has.right, 0};
    HDC const dc = GetDC(control);
    HGDIOBJ const previous = SelectObject(dc, GetWindowFont(control));
    char actual[LF_FACESIZE] = "";
    GetTextFaceA(dc, sizeof actual, actual);
    CHECK(std::string(actual) == face);
    const bool breaks = name == "Static" && (style & SS_EDITCONTROL) == SS_EDITCONTROL;
    DrawTextA(dc, text.c_str(), -1, &needs, DT_CALCRECT | (breaks ? DT_WORDBREAK : DT_SINGLELINE));
    SelectObject(dc, previous);
    ReleaseDC(control, dc);
    CHECK(needs.right > 0);
    CHECK_MESSAGE(needs.right + beside <= has.right, text);
    CHECK_MESSAGE(needs.bottom <= has.bottom, text);
}

// A label's letter leads to the next control, which has to take the focus.
bool leadsToControl(HWND label) {
    HWND const next = GetWindow(label, GW_HWNDNEXT);
    return next && !isLabel(next) && (GetWindowLongA(next, GWL_STYLE) & WS_TABSTOP);
}

void checkLayout(const Dialog& dialog, const char* face) {
    std::set<char> letters;
    RECT inside = {};
    GetClientRect(dialog.window, &inside);
    for (HWND const control : dialog.controls) {
        const std::string text = windowText(control);
        CAPTURE(text);
        if (const char letter = accessLetter(control)) {
            CHECK(letters.insert(letter).second);
            if (isLabel(control)) CHECK(leadsToControl(control));
        }
        RECT place = frameOf(control);
        MapWindowPoints(nullptr, dialog.window, reinterpret_cast<POINT*>(&place), 2);
        // The height of a combo box is that of its list.
        if (classOf(control) == "ComboBox") place.bottom = place.top;
        RECT united = {};
        UnionRect(&united, &place, &inside);
        CHECK(EqualRect(&united, &inside));
        checkTextFits(control, face);
        // One column needs no header.
        if (classOf(control) == WC_LISTVIEWA)
            CHECK((GetWindowLongA(control, GWL_STYLE) & LVS_NOCOLUMNHEADER) != 0);
    }
}

void checkLaterTexts(const Dialog& dialog, const Template& wanted, HMODULE module, const char* face) {
    for (const auto& later : wanted.later) {
        for (const UINT* id = later.strings; *id != 0; ++id) {
            char text[200] = "";
            CHECK(LoadStringA(module, *id, text, sizeof text) != 0);
            SetDlgItemTextA(dialog.window, later.control, text);
            checkTextFits(GetDlgItem(dialog.window, later.control), face);
        }
    }
}

}  // namespace

TEST_CASE("Every dialog comes up with room for its texts, in two languages and two fonts") {
    // The resources of a 32-bit library are the same.
    if (!kHasDisplay) return;
    const LoadedLibrary english;
    const LoadedLibrary german("TIDEWELL_DE.DLL");
    for (const Template& wanted : kTemplates) {
        for (HMODULE const module : {HMODULE(english), HMODULE(german)}) {
            const bool translated = module == german;
            // The progress window and the question are always the library's own.
            if (translated && !FindResourceA(german, wanted.resource, RT_DIALOG)) continue;
            for (const char* const face : kFaces) {
                CAPTURE(&wanted - kTemplates);
                CAPTURE(translated);
                CAPTURE(face);
                const Dialog dialog(module, wanted, face);
                checkLayout(dialog, face);
                checkLaterTexts(dialog, wanted, module, face);
            }
        }
    }
}
