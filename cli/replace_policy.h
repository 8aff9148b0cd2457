// What a run does with outputs that are there already, without asking or by what the user has answered.
#ifndef TIDEWELL_CLI_REPLACE_POLICY_H
#define TIDEWELL_CLI_REPLACE_POLICY_H

#include "options.h"

#include <string>

namespace cli {

// Begins a run: nothing is protected yet.
void beginReplacing(Replace replace, const std::string& typedFolder);

// A file of this run that no output replaces, whatever was answered: one of its sources, or an output, since
// two files whose outputs have one name would silently become one.
void protect(const std::string& windowsPath, const std::string& typedPath, const std::string& reason);

// Why the last question was refused an answer; empty when it was not. Asked once.
std::string takeRefusal();

}  // namespace cli

#endif
