// tidewell extract: Mac files out of MacBinary and BinHex files.
#ifndef TIDEWELL_CLI_EXTRACT_H
#define TIDEWELL_CLI_EXTRACT_H

#include "options.h"

namespace cli {

// Returns the exit status.
int extract(const Options& options);

}  // namespace cli

#endif
