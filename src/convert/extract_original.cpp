#include "convert/extract_original.h"

#include "base/full_path.h"
#include "base/text.h"
#include "convert/extract_binhex.h"
#include "convert/extract_macbinary.h"

namespace tidewell {

ErrorCode ExtractOriginal(const Extraction& extraction) {
    const DWORD attributes = GetFileAttributesA(extraction.destinationFolder);
    if (attributes == INVALID_FILE_ATTRIBUTES) return lastError();
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return ERROR_BAD_PATHNAME;
    const char* const extension = FileExtension(extraction.sourcePath);
    if (equalsIgnoringCase(extension, ".bin")) return ExtractMacBinary(extraction);
    if (equalsIgnoringCase(extension, ".hqx")) return ExtractBinHex(extraction);
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
