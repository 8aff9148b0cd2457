// Text in resources.
#ifndef TIDEWELL_RESOURCES_RESOURCE_TEXT_H
#define TIDEWELL_RESOURCES_RESOURCE_TEXT_H

#include "resources/resource_fork.h"

namespace tidewell {

// Whether resources of the type are text: 'TEXT', 'STR ', 'STR#'.
bool IsTextType(const ResourceType& type);

// As much as an edit control of Windows 95 holds, in bytes with the NUL.
constexpr uint32_t kMostText = 0x7FFF;

// What follows in a longer resource does not come into the text.
constexpr uint32_t kMostTextData = 33 * 1024;

// The text of a resource (each string of a list a line), from the Mac character set into the ANSI code page,
// with Windows line ends and a NUL, in kMostText bytes; what does not fit is cut off. Empty for other types,
// for a resource without any text or a damaged one, and without memory.
PageBuffer ReadResourceText(const ResourceType& type, const uint8_t* data, uint32_t length);

}  // namespace tidewell

#endif
