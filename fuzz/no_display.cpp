// Fuzzers show nothing, and every file may be replaced.
#include "ui/confirm_replace.h"
#include "ui/progress_display.h"

namespace tidewell {

int ConfirmFileReplace(HWND, const char*, BOOL) {
    return IDYES;
}

namespace progress_display {

BOOL create(ProgressDialog&, const char*, HWND) {
    return TRUE;
}
void destroy(ProgressDialog&) {}
LRESULT setIcon(ProgressDialog&, HICON) {
    return 0;
}
void setText(ProgressDialog&, const char*, const char*) {}
void setRange(ProgressDialog&, uint16_t) {}
void setPosition(ProgressDialog&, uint16_t) {}
void showNow(ProgressDialog&) {}
void serve(ProgressDialog&) {}

}  // namespace progress_display
}  // namespace tidewell
