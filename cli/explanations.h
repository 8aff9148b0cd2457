// What would help a user more than the system's text of an error.
#ifndef TIDEWELL_CLI_EXPLANATIONS_H
#define TIDEWELL_CLI_EXPLANATIONS_H

#include "base/error_code.h"

#include <string>

namespace cli {

// Of an error of reading a MacBinary or BinHex file; empty where the system's text will do.
std::string explanationOf(tidewell::ErrorCode error);

}  // namespace cli

#endif
