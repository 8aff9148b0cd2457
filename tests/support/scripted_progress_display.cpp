#include "scripted_progress_display.h"

#include "ui/progress_display.h"

#include <utility>

namespace {

struct Script {
    int cancelAtServe = 0;
    DWORD createError = 0;
};

scripted_display::Record current;
Script script;

}  // namespace

namespace scripted_display {

void reset() {
    current = {};
    script = {};
}

const Record& record() {
    return current;
}

void cancelAtServe(int n) {
    script.cancelAtServe = n;
}

void failCreate(DWORD error) {
    script.createError = error;
}

}  // namespace scripted_display

namespace tidewell::progress_display {

BOOL create(ProgressDialog&, const char* title, HWND) {
    if (script.createError != 0) {
        SetLastError(script.createError);
        return FALSE;
    }
    ++current.created;
    current.title = title;
    return TRUE;
}

void destroy(ProgressDialog&) {
    ++current.destroyed;
}

LRESULT setIcon(ProgressDialog&, HICON icon) {
    return reinterpret_cast<LRESULT>(std::exchange(current.icon, icon));
}

void setText(ProgressDialog&, const char* line1, const char* line2) {
    if (line1) current.line1 = line1;
    if (line2) current.line2 = line2;
}

void setRange(ProgressDialog&, uint16_t range) {
    current.ranges.push_back(range);
}

void setPosition(ProgressDialog&, uint16_t position) {
    current.positions.push_back(position);
}

void showNow(ProgressDialog&) {
    ++current.shows;
}

void serve(ProgressDialog& progress) {
    if (++current.serves == script.cancelAtServe) progress.cancelled = 1;
}

}  // namespace tidewell::progress_display
