#include "resources/contents_dialog.h"

#include "messages.h"
#include "res/resource.h"
#include "resources/draw_picture.h"
#include "resources/resource_type.h"
#include "resources/viewer_dialog.h"
#include "ui/context_help.h"
#include "ui/number_format.h"
#include "ui/place_window.h"
#include "ui/window_text.h"

#include <windowsx.h>

namespace tidewell {

namespace {

constexpr DWORD kSizeCapacity = 16;

// What is between two controls, in dialog units.
constexpr LONG kGap = 4;

const ContentsRequest& requestOf(HWND dialog) {
    return *reinterpret_cast<const ContentsRequest*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

void addHelpButton(HWND dialog) {
    const LONG style = GetWindowLongA(dialog, GWL_EXSTYLE);
    SetWindowLongA(dialog, GWL_EXSTYLE, style | static_cast<LONG>(WS_EX_CONTEXTHELP));
}

// The stock font, by the height of its characters: so it has the same size in every resolution.
HFONT dumpFont() {
    LOGFONTA font = {};
    GetObjectA(GetStockObject(ANSI_FIXED_FONT), sizeof font, &font);
    font.lfHeight = -font.lfHeight;
    font.lfWidth = 0;
    font.lfCharSet = ANSI_CHARSET;
    return CreateFontIndirectA(&font);
}

void setSizes(HWND dialog, const ContentsRequest& request) {
    char shown[kSizeCapacity] = "";
    char full[kSizeCapacity] = "";
    FormatSize(request.shownLength, shown, sizeof shown, TRUE);
    FormatSize(request.fullLength, full, sizeof full, TRUE);
    HWND const control = GetDlgItem(dialog, IDC_CONTENTS_SIZE);
    if (lstrcmpA(shown, full) == 0)
        SetWindowTextA(control, shown);
    else
        SetWindowTextFromMessage(control, MSG_SHOWN_OF, shown, full);
}

void setTitle(HWND dialog, const ContentsRequest& request) {
    char title[kTypeCodeCapacity + 1 + kNodeLabelCapacity];
    FormatTypeCode(request.type.type, title);
    lstrcatA(title, " ");
    lstrcatA(title, request.label);
    SetWindowTextA(dialog, title);
}

LONG heightOf(HWND control) {
    RECT frame = {};
    GetWindowRect(control, &frame);
    return frame.bottom - frame.top;
}

// Shows a control that is hidden in the template above the dump.
void showAboveDump(HWND dialog, HWND control) {
    RECT gap = {};
    gap.bottom = kGap;
    MapDialogRect(dialog, &gap);
    const LONG room = heightOf(control) + gap.bottom;
    HWND const dump = GetDlgItem(dialog, IDC_CONTENTS_DUMP);
    const RECT place = PlaceOfControl(dump);
    MoveControl(dump, place.left, place.top + room);
    GrowWindow(dump, -room);
    ShowWindow(control, SW_SHOW);
}

void setPicture(HWND dialog, const Picture& picture) {
    if (!picture) return;
    HWND const control = GetDlgItem(dialog, IDC_CONTENTS_PICTURE);
    const LONG most = heightOf(GetDlgItem(dialog, IDC_CONTENTS_DUMP)) / 2;
    const LONG wanted = static_cast<LONG>(picture.height);
    GrowWindow(control, (wanted < most ? wanted : most) - heightOf(control));
    showAboveDump(dialog, control);
}

void setText(HWND dialog, const char* text) {
    if (!text) return;
    HWND const control = GetDlgItem(dialog, IDC_CONTENTS_TEXT);
    SetWindowTextA(control, text);
    showAboveDump(dialog, control);
}

void onInit(HWND dialog, const ContentsRequest& request) {
    SetWindowLongPtrA(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&request));
    addHelpButton(dialog);
    HWND const dump = GetDlgItem(dialog, IDC_CONTENTS_DUMP);
    SetWindowFont(dump, dumpFont(), FALSE);
    setSizes(dialog, request);
    char description[kTypeDescriptionCapacity] = "";
    GetTypeDescription(request.type.type, description, sizeof description);
    SetDlgItemTextA(dialog, IDC_CONTENTS_TYPE, description);
    SetWindowTextA(dump, request.hexText);
    setTitle(dialog, request);
    setPicture(dialog, *request.picture);
    setText(dialog, request.text);
    PlaceWindow(dialog, 0);
}

// The dialog manager selects all of the text when it gives a control the focus; a selection of the user's is
// kept.
void onTextFocus(HWND text) {
    if (SetWindowLongPtrA(text, GWLP_USERDATA, TRUE) == 0) SendMessageA(text, EM_SETSEL, 0, 0);
}

INT_PTR onCommand(HWND dialog, int command, int notification) {
    switch (command) {
    case IDOK:
    case IDCANCEL: EndDialog(dialog, command); return TRUE;
    case IDC_CONTENTS_TEXT:
    case IDC_CONTENTS_DUMP:
        if (notification == EN_SETFOCUS) onTextFocus(GetDlgItem(dialog, command));
        return TRUE;
    }
    return FALSE;
}

void onDestroy(HWND dialog) {
    DeleteFont(GetWindowFont(GetDlgItem(dialog, IDC_CONTENTS_DUMP)));
}

}  // namespace

INT_PTR CALLBACK ContentsProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: onInit(dialog, *reinterpret_cast<const ContentsRequest*>(lParam)); break;
    case WM_COMMAND: return onCommand(dialog, LOWORD(wParam), HIWORD(wParam));
    case WM_DRAWITEM:
        DrawPicture(*requestOf(dialog).picture, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        break;
    case WM_CONTEXTMENU:
        // Beside the controls it is the system's.
        if (reinterpret_cast<HWND>(wParam) == dialog) return FALSE;
        ShowContextMenuHelp(reinterpret_cast<HWND>(wParam), ViewerHelpTopics);
        break;
    case WM_HELP: ShowControlHelp(*reinterpret_cast<const HELPINFO*>(lParam), ViewerHelpTopics); break;
    case WM_DESTROY: onDestroy(dialog); break;
    default: return FALSE;
    }
    return TRUE;
}

}  // namespace tidewell
