#include "ui/user.h"

#include "base/file.h"

#include <utility>

namespace tidewell {

namespace {

constexpr ProgressDisplay kNoDisplay = {
    [](ProgressDialog&, const char*, HWND) -> BOOL { return TRUE; },
    [](ProgressDialog&) {},
    [](ProgressDialog&, HICON) -> LRESULT { return 0; },
    [](ProgressDialog&, const char*, const char*) {},
    [](ProgressDialog&, uint16_t) {},
    [](ProgressDialog&, uint16_t) {},
    [](ProgressDialog&) {},
    [](ProgressDialog&) {},
};

int refuseToReplace(HWND, const char* path, BOOL) {
    if (!MayExist(path)) return IDYES;
    SetLastError(ERROR_FILE_EXISTS);
    return -1;
}

int tellNobody(const FileFailure&) {
    return -1;
}

constexpr User kNobody = {&kNoDisplay, refuseToReplace, tellNobody, [](HWND) {}};

constinit const User* currentUser = &kNobody;

}  // namespace

const User* SetUser(const User* user) {
    return std::exchange(currentUser, user != nullptr ? user : &kNobody);
}

const User& CurrentUser() {
    return *currentUser;
}

}  // namespace tidewell
