// Which format an archive of a Mac file has.
#ifndef TIDEWELL_CONVERT_ARCHIVE_KIND_H
#define TIDEWELL_CONVERT_ARCHIVE_KIND_H

#include "base/path.h"
#include "base/text.h"

namespace tidewell {

enum class ArchiveKind { none, macBinary, binHex };

// By the extension of its path.
inline ArchiveKind ArchiveKindOf(const char* path) {
    const char* const extension = FileExtension(path);
    if (equalsIgnoringCase(extension, ".bin")) return ArchiveKind::macBinary;
    return equalsIgnoringCase(extension, ".hqx") ? ArchiveKind::binHex : ArchiveKind::none;
}

}  // namespace tidewell

#endif
