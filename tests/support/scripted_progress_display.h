// The display of a ProgressDialog in tests without windows: keeps what it is told, and cancels on command.
#ifndef TIDEWELL_TESTS_SUPPORT_SCRIPTED_PROGRESS_DISPLAY_H
#define TIDEWELL_TESTS_SUPPORT_SCRIPTED_PROGRESS_DISPLAY_H

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace scripted_display {

struct Record {
    std::string title;
    std::string line1;
    std::string line2;
    HICON icon = nullptr;
    std::vector<uint16_t> ranges;
    std::vector<uint16_t> positions;
    int shows = 0;
    int serves = 0;
    int created = 0;
    int destroyed = 0;
};

// Forgets the record and the script.
void reset();
const Record& record();

// The user cancels when the display is served for the n-th time after the reset.
void cancelAtServe(int n);
// The display cannot be made.
void failCreate(DWORD error);

}  // namespace scripted_display

#endif
