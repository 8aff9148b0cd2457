// What a type of resource is, in words and by its code.
#ifndef TIDEWELL_RESOURCES_RESOURCE_TYPE_H
#define TIDEWELL_RESOURCES_RESOURCE_TYPE_H

#include "resources/resource_fork.h"

namespace tidewell {

// The size of a type code's text with its NUL, in bytes.
constexpr size_t kTypeCodeCapacity = 12;

// Writes what the type is, from ResourceModule ("Color icon"), cut to `size` - 1 characters; a type that is
// not known by its code ("'abcd' resource"). Returns the count of characters written: 0 when the text does
// not fit or cannot be had.
DWORD GetTypeDescription(const ResourceType& type, char* buffer, DWORD size);

// Writes the type's four characters, or a form of their numbers when they are not all ASCII ("($04030201)",
// the last one first). `text` holds kTypeCodeCapacity bytes.
void FormatTypeCode(const ResourceType& type, char* text);

}  // namespace tidewell

#endif
