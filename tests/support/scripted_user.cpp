#include "support/scripted_user.h"

#include "base/file.h"

#include <cstdio>

ScriptedUser scriptedUser;

namespace {

using tidewell::ProgressDialog;

BOOL create(ProgressDialog& progress, const char*, HWND) {
    if (scriptedUser.createError != 0) {
        SetLastError(scriptedUser.createError);
        return FALSE;
    }
    ++scriptedUser.created;
    scriptedUser.progress = &progress;
    return TRUE;
}

void destroy(ProgressDialog&) {
    ++scriptedUser.destroyed;
    scriptedUser.progress = nullptr;
}

LRESULT setIcon(ProgressDialog&, HICON icon) {
    return reinterpret_cast<LRESULT>(icon);
}

void setText(ProgressDialog&, const char* line1, const char* line2) {
    if (line1) scriptedUser.line1 = line1;
    if (line2) scriptedUser.line2 = line2;
}

void setRange(ProgressDialog&, uint16_t range) {
    scriptedUser.ranges.push_back(range);
}

void setPosition(ProgressDialog&, uint16_t position) {
    scriptedUser.positions.push_back(position);
}

void showNow(ProgressDialog&) {
    ++scriptedUser.shows;
}

void serve(ProgressDialog& progress) {
    scriptedUser.done.push_back(progress.done);
    scriptedUser.onServe();
    if (++scriptedUser.serves == scriptedUser.cancelAtServe) progress.cancelled = 1;
}

constexpr tidewell::ProgressDisplay kDisplay = {create,   destroy,     setIcon, setText,
                                                setRange, setPosition, showNow, serve};

int confirmReplace(HWND, const char* filePath, BOOL moreFollow) {
    if (!tidewell::MayExist(filePath)) return IDYES;
    ++scriptedUser.asked;
    scriptedUser.several = moreFollow != FALSE;
    if (scriptedUser.progress != nullptr) scriptedUser.pausesAtQuestion = scriptedUser.progress->pauses;
    if (scriptedUser.answerError != 0) SetLastError(scriptedUser.answerError);
    return scriptedUser.answer;
}

int askAfterFailure(const tidewell::FileFailure& failure) {
    char numbers[64];
    std::snprintf(numbers, sizeof numbers, "%u %08X %02X ", unsigned(failure.error),
                  unsigned(failure.message), failure.style);
    const uint32_t pauses = scriptedUser.progress != nullptr ? scriptedUser.progress->pauses : 0;
    scriptedUser.failures.push_back(numbers + std::string(failure.file) + ' ' + failure.folder + ' ' +
                                    std::to_string(pauses));
    scriptedUser.onFailure();
    const size_t told = scriptedUser.failures.size();
    return told <= scriptedUser.afterFailures.size() ? scriptedUser.afterFailures[told - 1] : IDCANCEL;
}

void pumpMessages(HWND) {
    ++scriptedUser.pumps;
}

}  // namespace

const tidewell::User kScriptedUser = {&kDisplay, confirmReplace, askAfterFailure, pumpMessages};
