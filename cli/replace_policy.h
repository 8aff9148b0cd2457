// What a run does with outputs that are there already, without asking or by what the user has answered.
#ifndef TIDEWELL_CLI_REPLACE_POLICY_H
#define TIDEWELL_CLI_REPLACE_POLICY_H

#include "options.h"

#include <windows.h>

#include <string>

namespace cli {

// Begins a run: nothing is protected yet. With `writesInPlace` a file that the user gives up is set
// aside, so that it is not lost before its successor is whole.
void beginReplacing(Replace replace, const std::string& typedFolder, bool writesInPlace);

// The library's replace question.
int confirmReplace(HWND owner, const char* path, BOOL several);

// A file of this run that no output replaces, whatever was answered: one of its sources, or an output, since
// two files whose outputs have one name would silently become one.
void protect(const std::string& windowsPath, const std::string& typedPath, const std::string& reason);

// Ends the work on one file of the run: one that was set aside for it is deleted, or comes back when its
// successor is not `done`.
void endReplacing(bool done);

// Why the last question was refused an answer; empty when it was not. Asked once.
std::string takeRefusal();

}  // namespace cli

#endif
