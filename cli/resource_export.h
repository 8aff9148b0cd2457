// A resource, or the whole fork, as a file or on the standard output.
#ifndef TIDEWELL_CLI_RESOURCE_EXPORT_H
#define TIDEWELL_CLI_RESOURCE_EXPORT_H

#include "fork_source.h"
#include "options.h"
#include "output_file.h"

namespace cli {

// Begins to write into the folder as typed, where nothing replaces the source.
Failure beginOutputs(const ForkSource& source, const Options& options, const std::string& typedFolder,
                     OutputFolder& folder);

// These return the exit status, and have told what went wrong.
int exportResource(const ForkSource& source, const Options& options);
int exportFork(const ForkSource& source, const Options& options);

}  // namespace cli

#endif
