#include "convert/extract_original.h"

#include "base/full_path.h"
#include "convert/archive_kind.h"
#include "convert/extract_binhex.h"
#include "convert/extract_macbinary.h"

namespace tidewell {

ErrorCode ExtractOriginal(const Extraction& extraction) {
    const DWORD attributes = GetFileAttributesA(extraction.destinationFolder);
    if (attributes == INVALID_FILE_ATTRIBUTES) return lastError();
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return ERROR_BAD_PATHNAME;
    switch (ArchiveKindOf(extraction.sourcePath)) {
    case ArchiveKind::macBinary: return ExtractMacBinary(extraction);
    case ArchiveKind::binHex: return ExtractBinHex(extraction);
    case ArchiveKind::none: break;
    }
    return ERROR_INVALID_DATA;
}

}  // namespace tidewell

DWORD WINAPI ExtractOriginalMacFile(HWND owner, const char* sourcePath, const char* destinationFolder,
                                    DWORD* flags, TidewellProgress** progressRef) {
    if (sourcePath == nullptr || destinationFolder == nullptr || flags == nullptr)
        return ERROR_INVALID_PARAMETER;
    char source[tidewell::kPathCapacity];
    char folder[tidewell::kPathCapacity];
    tidewell::ErrorCode error = tidewell::GetFullPath(sourcePath, source);
    if (error == 0) error = tidewell::GetFullOutputPath(destinationFolder, folder);
    if (error != 0) return error;
    return tidewell::ExtractOriginal(
        {owner, source, folder, flags, progressRef != nullptr ? *progressRef : nullptr, nullptr});
}
