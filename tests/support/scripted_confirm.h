// The replace question in tests: answered by script, and counted.
#ifndef TIDEWELL_TESTS_SUPPORT_SCRIPTED_CONFIRM_H
#define TIDEWELL_TESTS_SUPPORT_SCRIPTED_CONFIRM_H

#include <string>

namespace scripted_confirm {

// The answer to every question from now on, IDYES at first; none has been asked yet.
void answer(int button);
int asked();
// What the last question was about.
const std::string& lastPath();
bool lastSeveral();

}  // namespace scripted_confirm

#endif
