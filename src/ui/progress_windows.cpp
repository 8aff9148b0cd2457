// The display of a ProgressDialog on Windows: the modeless dialog "FILEPROGRESS".
#include "ui/user_windows.h"

#include "res/resource.h"
#include "ui/place_window.h"
#include "ui/strings.h"

#include <windows.h>
#include <commctrl.h>

namespace tidewell {

namespace {

constexpr UINT_PTR kShowTimer = 0;
constexpr UINT kShowDelay = 1000;  // ms
constexpr UINT_PTR kEstimateTimer = 1;
constexpr UINT kEstimateInterval = 2000;  // ms
constexpr WPARAM kBarStep = 10;
// The template ends with its last line; below it is as much room as beside it.
constexpr LONG kFootMargin = 7;  // dialog units

// What the dialog's initialisation is given.
struct Creation {
    ProgressDialog& progress;
    const char* title;
};

ProgressDialog& progressOf(HWND window) {
    return *reinterpret_cast<ProgressDialog*>(GetWindowLongPtrA(window, DWLP_USER));
}

void showWindow(HWND window) {
    KillTimer(window, kShowTimer);
    ShowWindow(window, SW_SHOW);
    UpdateWindow(window);
}

void showControl(HWND window, int id) {
    const HWND control = GetDlgItem(window, id);
    if (!IsWindowVisible(control)) ShowWindow(control, SW_SHOW);
}

void addFootMargin(HWND window) {
    RECT margin = {};
    margin.bottom = kFootMargin;
    MapDialogRect(window, &margin);
    GrowWindow(window, margin.bottom);
}

void onInit(HWND window, const Creation& creation) {
    SetWindowLongPtrA(window, DWLP_USER, reinterpret_cast<LONG_PTR>(&creation.progress));
    SetWindowTextA(window, creation.title);
    SendDlgItemMessageA(window, IDC_PROGRESS_BAR, PBM_SETSTEP, kBarStep, 0);
    addFootMargin(window);
    SetTimer(window, kShowTimer, kShowDelay, nullptr);
    SetTimer(window, kEstimateTimer, kEstimateInterval, nullptr);
}

void showTimeRemaining(HWND window, const ProgressDialog& progress) {
    const TimeRemaining estimate = ProgressTimeRemaining(progress);
    // No string has the number 0.
    char textTemplate[kShortTextCapacity];
    if (LoadStringA(progress.instance, estimate.stringId, textTemplate, sizeof textTemplate) == 0) return;
    char text[kPrintedCapacity];
    wsprintfA(text, textTemplate, static_cast<int>(estimate.number));
    SetDlgItemTextA(window, IDC_PROGRESS_TIME, text);
    showControl(window, IDC_PROGRESS_BAR);
}

void onTimer(HWND window, WPARAM timer) {
    if (timer == kShowTimer)
        showWindow(window);
    else if (timer == kEstimateTimer)
        showTimeRemaining(window, progressOf(window));
}

INT_PTR CALLBACK progressProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        onInit(window, *reinterpret_cast<const Creation*>(lParam));
        // Not TRUE: that would move the focus to a window that may never be shown.
        return FALSE;
    case WM_COMMAND:
        if (LOWORD(wParam) != IDCANCEL) return FALSE;
        progressOf(window).cancelled = 1;
        break;
    case WM_TIMER: onTimer(window, wParam); break;
    default: return FALSE;
    }
    return TRUE;
}

BOOL create(ProgressDialog& progress, const char* title, HWND owner) {
    InitCommonControls();
    Creation creation{progress, title};
    progress.window = CreateDialogParamA(progress.instance, "FILEPROGRESS", owner, progressProcedure,
                                         reinterpret_cast<LPARAM>(&creation));
    return progress.window != nullptr;
}

void destroy(ProgressDialog& progress) {
    DestroyWindow(progress.window);
}

LRESULT setIcon(ProgressDialog& progress, HICON icon) {
    const HWND animation = GetDlgItem(progress.window, IDC_PROGRESS_ANIMATION);
    EnableWindow(animation, FALSE);
    ShowWindow(animation, SW_HIDE);
    const HWND control = GetDlgItem(progress.window, IDC_PROGRESS_ICON);
    ShowWindow(control, SW_SHOW);
    EnableWindow(control, TRUE);
    return SendMessageA(control, STM_SETICON, reinterpret_cast<WPARAM>(icon), 0);
}

void setText(ProgressDialog& progress, const char* line1, const char* line2) {
    if (line1) SetDlgItemTextA(progress.window, IDC_PROGRESS_LINE1, line1);
    if (line2) SetDlgItemTextA(progress.window, IDC_PROGRESS_LINE2, line2);
}

void setRange(ProgressDialog& progress, uint16_t range) {
    SendDlgItemMessageA(progress.window, IDC_PROGRESS_BAR, PBM_SETRANGE, 0, MAKELPARAM(0, range));
}

void setPosition(ProgressDialog& progress, uint16_t position) {
    SendDlgItemMessageA(progress.window, IDC_PROGRESS_BAR, PBM_SETPOS, position, 0);
}

void showNow(ProgressDialog& progress) {
    if (!IsWindowVisible(progress.window)) showWindow(progress.window);
}

void serve(ProgressDialog& progress) {
    PumpMessagesOf(progress.window, progress.window);
}

}  // namespace

constinit const ProgressDisplay ProgressWindowDisplay = {create,   destroy,     setIcon, setText,
                                                         setRange, setPosition, showNow, serve};

}  // namespace tidewell
