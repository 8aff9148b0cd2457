// The file names that a save dialog proposes.
#ifndef TIDEWELL_RESOURCES_PROPOSED_NAME_H
#define TIDEWELL_RESOURCES_PROPOSED_NAME_H

#include "base/path.h"
#include "resources/resource_fork.h"

namespace tidewell {

// The longest file name that any volume takes, in bytes.
constexpr size_t kMostProposed = 255;

// For a resource of the file: "Letter.txt - resource STR Greeting", or " 00128" with its number in place of
// the name when `name` is null. What Windows forbids in file names is replaced. `proposal` holds
// kPathCapacity bytes, of which kMostProposed are used at most.
void ProposeResourceName(const char* fileName, const ResourceType& type, const char* name, int16_t id,
                         char* proposal);

// For the whole fork of the file, without an extension.
void ProposeForkName(const char* fileName, char* proposal);

}  // namespace tidewell

#endif
