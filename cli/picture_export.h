// The pictures of a fork as files.
#ifndef TIDEWELL_CLI_PICTURE_EXPORT_H
#define TIDEWELL_CLI_PICTURE_EXPORT_H

#include "fork_source.h"
#include "options.h"

namespace cli {

// Writes each picture as "TYPE_ID.png", and goes on after one that fails. Returns the exit status, and has
// told what went wrong.
int exportPictures(const ForkSource& source, const Options& options);

}  // namespace cli

#endif
