// Pictures of windows, for the documents and for whoever wants to see what a test saw.
#ifndef TIDEWELL_TESTS_SUPPORT_SCREENSHOT_H
#define TIDEWELL_TESTS_SUPPORT_SCREENSHOT_H

#include <windows.h>

// Writes what the screen shows of a window to NAME.BMP in the folder that the environment variable
// TIDEWELL_SCREENSHOTS names, by default in the current one. False when it cannot.
bool saveScreenshot(HWND window, const char* name);

#endif
