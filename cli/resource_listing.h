// The resources of a fork as text for people, and as JSON for programs.
#ifndef TIDEWELL_CLI_RESOURCE_LISTING_H
#define TIDEWELL_CLI_RESOURCE_LISTING_H

#include "buffered_output.h"
#include "report.h"
#include "resources/resource_fork.h"

namespace cli {

// As walkResources; what there is, is listed all the same. An output that takes no more ends the listing.
Failure listAsText(tidewell::ResourceForkReader& reader, BufferedOutput& output);
Failure listAsJson(tidewell::ResourceForkReader& reader, BufferedOutput& output);

}  // namespace cli

#endif
