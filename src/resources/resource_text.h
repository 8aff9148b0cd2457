// Text in resources.
#ifndef TIDEWELL_RESOURCES_RESOURCE_TEXT_H
#define TIDEWELL_RESOURCES_RESOURCE_TEXT_H

#include "base/local_memory.h"
#include "resources/resource_fork.h"

namespace tidewell {

// The text of a 'TEXT', 'STR ' or 'STR#' resource (each string of the list a line), from the Mac character
// set into the ANSI code page, with Windows line ends and a NUL. Empty for other types, for an empty or
// damaged resource, and without memory.
LocalText ReadResourceText(const ResourceType& type, const uint8_t* data, uint32_t length);

}  // namespace tidewell

#endif
