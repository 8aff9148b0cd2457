// Resources and forks into Windows files. A file that is there is replaced when the new one is whole, and
// kept when it cannot be; nothing partial stays.
#ifndef TIDEWELL_RESOURCES_SAVE_RESOURCE_H
#define TIDEWELL_RESOURCES_SAVE_RESOURCE_H

#include "resources/resource_fork.h"

namespace tidewell {

enum class ResourceForm { binary, hexText };

// Saves all of the resource's data, or its hex dump. The system's error; ERROR_HANDLE_EOF for a resource
// whose data the fork does not have whole, ERROR_NOT_ENOUGH_MEMORY.
ErrorCode SaveResource(ResourceForkReader& reader, const ReferenceEntry& reference, ResourceForm form,
                       const char* path);

// Saves the fork at `forkPath`, and tells the shell of the new file. Pumps the messages of `dialog`, which
// may be null, after each block. The system's error, or ERROR_NOT_ENOUGH_MEMORY.
ErrorCode SaveFork(const char* forkPath, HWND dialog, const char* path);

}  // namespace tidewell

#endif
