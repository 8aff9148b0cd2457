// Files that are not there yet.
#ifndef TIDEWELL_CLI_NEW_FILE_H
#define TIDEWELL_CLI_NEW_FILE_H

#include "base/error_code.h"
#include "base/owned.h"

#include <functional>
#include <string>

namespace cli {

// The Windows path of a file that is deleted with its owner, also when memory runs out, but not when
// released.
struct UnfinishedFileTraits {
    using Value = const char*;
    static Value none() noexcept { return nullptr; }
    static void close(Value path) noexcept { DeleteFileA(path); }
};
using UnfinishedFile = tidewell::Owned<UnfinishedFileTraits>;

// Makes the file at a Windows path with what `fill` writes, and has it on the disk; after an error there is
// none. The system's error, or that of `fill`.
tidewell::ErrorCode makeNewFile(const char* path, const std::function<tidewell::ErrorCode(HANDLE)>& fill);

// With these bytes.
tidewell::ErrorCode makeNewFile(const char* path, const std::string& bytes);

}  // namespace cli

#endif
