// What the command tells its user.
#ifndef TIDEWELL_CLI_REPORT_H
#define TIDEWELL_CLI_REPORT_H

#include "host.h"

#include "base/error_code.h"

#include <string>

namespace cli {

// The exit status.
constexpr int kAllDone = 0;
constexpr int kSomethingFailed = 1;
constexpr int kWrongUse = 2;

// An error of a file, with a text where the system's own would mislead.
struct Failure {
    tidewell::ErrorCode error = 0;
    std::string text;
};

// "?" for each control character.
std::string withoutControls(const std::string& text);

// A name as the stream may show it: to a terminal go no control characters, which could take it over.
std::string shownOn(Stream stream, const std::string& name);

// "tidewell: FILE: error N: TEXT", or "tidewell: cancelled". Returns kSomethingFailed.
int reportFailure(const std::string& file, const Failure& failure);

// "tidewell: TEXT"
void reportNote(const std::string& text);

// Prints to the standard output. Returns whether it took all of the text; the first time it does not, the
// user is told why.
bool printOutput(const std::string& text);

}  // namespace cli

#endif
