#include "support/scripted_confirm.h"

#include "base/file.h"
#include "ui/confirm_replace.h"

namespace {

int answerNow = IDYES;
int askedSoFar = 0;
std::string path;
bool several = false;

}  // namespace

namespace scripted_confirm {

void answer(int button) {
    answerNow = button;
    askedSoFar = 0;
}

int asked() {
    return askedSoFar;
}

const std::string& lastPath() {
    return path;
}

bool lastSeveral() {
    return several;
}

}  // namespace scripted_confirm

namespace tidewell {

int ConfirmFileReplace(HWND, const char* filePath, BOOL moreFollow) {
    if (!MayExist(filePath)) return IDYES;
    ++askedSoFar;
    path = filePath;
    several = moreFollow != FALSE;
    return answerNow;
}

}  // namespace tidewell
