// All resources of a fork, type by type.
#ifndef TIDEWELL_CLI_RESOURCE_WALK_H
#define TIDEWELL_CLI_RESOURCE_WALK_H

#include "report.h"
#include "resources/resource_fork.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace cli {

// The resources of one type. Returns whether to go on.
using VisitType =
    std::function<bool(const tidewell::TypeEntry& type, const std::vector<tidewell::ReferenceEntry>& all)>;

// Visits each type that can be read with its resources that can, in the fork's order. ERROR_FILE_CORRUPT when
// not all can be, or when they take more room than the fork has; ERROR_CANCELLED after the interrupt key.
Failure walkResources(tidewell::ResourceForkReader& reader, const VisitType& visit);

// In the Mac character set; nothing for a resource without a name, and for one that cannot be read.
std::optional<std::string> nameOf(tidewell::ResourceForkReader& reader,
                                  const tidewell::ReferenceEntry& reference);

// The description of a type, in the ANSI code page.
std::string descriptionOf(const tidewell::ResourceType& type);

}  // namespace cli

#endif
