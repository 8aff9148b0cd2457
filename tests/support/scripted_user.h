// A user who does what a test has told beforehand, and remembers what was shown. A TestPc begins a new
// script.
#ifndef TIDEWELL_TESTS_SUPPORT_SCRIPTED_USER_H
#define TIDEWELL_TESTS_SUPPORT_SCRIPTED_USER_H

#include "support/user_in_charge.h"

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

struct ScriptedUser {
    // The script.
    int answer = IDYES;              // to every replace question
    DWORD answerError = 0;           // that comes with it
    int cancelAtServe = 0;           // the n-th time that the display is served
    DWORD createError = 0;           // the display cannot be made
    std::vector<int> afterFailures;  // the button for each file that fails; Cancel after the last
    std::function<void()> onFailure = [] {};
    std::function<void()> onServe = [] {};

    // The record.
    int asked = 0;
    bool several = false;           // files follow, said the last question
    uint32_t pausesAtQuestion = 0;  // of the progress that was shown during the last question
    std::string line1, line2;
    std::vector<std::string> failures;  // what was told of each: "error message style file folder pauses"
    std::vector<uint16_t> ranges;
    std::vector<uint16_t> positions;
    int shows = 0;
    int serves = 0;
    std::vector<uint64_t> done;  // at each serve
    int pumps = 0;
    int created = 0;
    int destroyed = 0;
    const tidewell::ProgressDialog* progress = nullptr;  // the one that is shown
};

extern ScriptedUser scriptedUser;
extern const tidewell::User kScriptedUser;

#endif
