// The question before a file is replaced, as a dialog.
#include "ui/user_windows.h"

#include "base/file.h"
#include "module/module_state.h"
#include "res/resource.h"
#include "ui/display_title.h"
#include "ui/place_window.h"
#include "ui/pump_messages.h"
#include "ui/stored_name.h"
#include "ui/strings.h"
#include "ui/window_text.h"

#include <windows.h>
#include <windowsx.h>

namespace tidewell {

namespace {

struct Question {
    const char* title;  // of the file
    BOOL several;
};

RECT placeOf(HWND dialog, int controlId) {
    return PlaceOfControl(GetDlgItem(dialog, controlId));
}

void moveTo(HWND dialog, int controlId, const RECT& place) {
    MoveControl(GetDlgItem(dialog, controlId), place.left, place.top);
}

void takeAway(HWND dialog, int controlId) {
    HWND const control = GetDlgItem(dialog, controlId);
    EnableWindow(control, FALSE);
    ShowWindow(control, SW_HIDE);
}

// By how much a label is too low for its text, in pixels.
LONG missingHeight(HWND label, const char* text) {
    RECT has = {};
    GetClientRect(label, &has);
    RECT needs = has;
    HDC const dc = GetDC(label);
    // A common one: it forgets the font when it is released.
    SelectObject(dc, GetWindowFont(label));
    DrawTextA(dc, text, -1, &needs, DT_CALCRECT | DT_WORDBREAK | DT_EDITCONTROL | DT_NOPREFIX);
    ReleaseDC(label, dc);
    return needs.bottom - has.bottom;
}

// Makes room for a long name: what is below it moves down.
void growToName(HWND dialog) {
    HWND const label = GetDlgItem(dialog, IDC_REPLACE_NAME);
    const LocalText text = TextOfWindow(label);
    const LONG missing = text ? missingHeight(label, text.get()) : 0;
    if (missing <= 0) return;

    const RECT labelPlace = placeOf(dialog, IDC_REPLACE_NAME);
    for (HWND control = GetWindow(dialog, GW_CHILD); control; control = GetWindow(control, GW_HWNDNEXT)) {
        const RECT place = PlaceOfControl(control);
        if (place.top >= labelPlace.bottom) MoveControl(control, place.left, place.top + missing);
    }
    GrowWindow(label, missing);
    GrowWindow(dialog, missing);
}

constexpr char kButtonProcedure[] = "TidewellButtonProcedure";

// A system that finds the Cancel button disabled only beeps at Escape, so the buttons take the key
// themselves.
LRESULT CALLBACK escapingProcedure(HWND button, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto previous = reinterpret_cast<WNDPROC>(GetPropA(button, kButtonProcedure));
    if (message == WM_KEYDOWN && wParam == VK_ESCAPE) {
        PostMessageA(GetParent(button), WM_COMMAND, IDCANCEL, 0);
        return 0;
    }
    const LRESULT result = CallWindowProcA(previous, button, message, wParam, lParam);
    if (message == WM_GETDLGCODE && wParam == VK_ESCAPE) return result | DLGC_WANTMESSAGE;
    if (message == WM_NCDESTROY) RemovePropA(button, kButtonProcedure);
    return result;
}

void letEscape(HWND dialog, int controlId) {
    HWND const button = GetDlgItem(dialog, controlId);
    const LONG_PTR previous = GetWindowLongPtrA(button, GWLP_WNDPROC);
    if (SetPropA(button, kButtonProcedure, reinterpret_cast<HANDLE>(previous)))
        SetWindowLongPtrA(button, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(escapingProcedure));
}

// One file is replaced or not: there is nothing to cancel, and nothing to answer for.
void leaveTwoButtons(HWND dialog) {
    const RECT noPlace = placeOf(dialog, IDNO);
    moveTo(dialog, IDNO, placeOf(dialog, IDCANCEL));
    moveTo(dialog, IDYES, noPlace);
    takeAway(dialog, IDCANCEL);
    takeAway(dialog, IDYESTOALL);
    letEscape(dialog, IDYES);
    letEscape(dialog, IDNO);
}

void onInit(HWND dialog, const Question& question) {
    FormatWindowText(dialog, IDC_REPLACE_NAME, question.title);
    growToName(dialog);
    if (!question.several) leaveTwoButtons(dialog);
    // Beside its owner the dialog manager has put it, else in the screen's corner.
    if (!GetWindow(dialog, GW_OWNER)) CentreWindow(dialog);
}

INT_PTR CALLBACK confirmProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG: onInit(dialog, *reinterpret_cast<const Question*>(lParam)); break;
    case WM_COMMAND: EndDialog(dialog, LOWORD(wParam)); break;
    case WM_CLOSE: EndDialog(dialog, IDCANCEL); break;
    default: return FALSE;
    }
    return TRUE;
}

}  // namespace

int ConfirmReplaceInWindow(HWND owner, const char* path, BOOL several) {
    if (!MayExist(path)) return IDYES;

    char shown[kPathCapacity];
    lstrcpynA(shown, path, sizeof shown);
    RestoreStoredName(shown);
    char title[kPathCapacity];
    GetDisplayTitle(shown, title);
    const Question question = {title, several};
    const INT_PTR answer = DialogBoxParamA(ModuleInstance, MAKEINTRESOURCEA(IDD_CONFIRM_REPLACE), owner,
                                           confirmProcedure, reinterpret_cast<LPARAM>(&question));
    // 0: the owner is no window.
    return answer > 0 && !IsAskedToQuit() ? static_cast<int>(answer) : -1;
}

}  // namespace tidewell
