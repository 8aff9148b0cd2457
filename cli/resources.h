// tidewell resources: what is in a resource fork.
#ifndef TIDEWELL_CLI_RESOURCES_H
#define TIDEWELL_CLI_RESOURCES_H

#include "options.h"

namespace cli {

// Returns the exit status.
int resources(const Options& options);

}  // namespace cli

#endif
