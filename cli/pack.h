// tidewell pack: Mac files into MacBinary files.
#ifndef TIDEWELL_CLI_PACK_H
#define TIDEWELL_CLI_PACK_H

#include "options.h"

namespace cli {

// Returns the exit status.
int pack(const Options& options);

}  // namespace cli

#endif
