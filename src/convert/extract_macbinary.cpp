#include "convert/extract_macbinary.h"

#include "base/file.h"
#include "convert/fork_copy.h"
#include "convert/macbinary_header.h"
#include "convert/restore_finder_info.h"

namespace tidewell {

namespace {

ErrorCode advance(ProgressDialog* progress, uint64_t amount) {
    constexpr uint64_t kMost = 0xFFFFFFFF;
    ProgressAdvance(progress, static_cast<uint32_t>(amount < kMost ? amount : kMost));
    return ProgressPump(progress) ? 0 : ERROR_CANCELLED;
}

// Copies `length` bytes at `offset` of the source into the file or fork at `path`, which it creates.
ErrorCode CopyForkFromFile(HANDLE source, uint64_t offset, const char* path, DWORD length,
                           ExtractedFile& file, ProgressDialog* progress) {
    ErrorCode error = SeekTo(source, offset);
    OwnedFile fork;
    if (error == 0) error = OpenExtractedFork(path, file, fork);
    if (error != 0) return error;
    error = CopyForkToFile(source, fork.get(), length, progress);
    const ErrorCode closed = CloseWritten(fork);
    return error != 0 ? error : closed;
}

ErrorCode writeForks(HANDLE source, const MacBinaryHeader& header, const MacBinaryLayout& layout,
                     ExtractedFile& file, ProgressDialog* progress) {
    ErrorCode error =
        CopyForkFromFile(source, layout.dataOffset, file.paths.dataPath, header.dataLength, file, progress);
    if (error == 0) error = advance(progress, MacBinaryPadding(header.dataLength));
    if (error != 0) return error;
    if (file.paths.resourceLength != 0) {
        error = CopyForkFromFile(source, layout.resourceOffset, file.paths.resourcePath,
                                 header.resourceLength, file, progress);
        if (error != 0) return error;
    }
    return advance(progress, MacBinaryPadding(header.resourceLength));
}

ErrorCode writeFile(HANDLE source, const MacBinaryHeader& header, const MacBinaryLayout& layout,
                    ExtractedFile& file, ProgressDialog* progress) {
    const ErrorCode error = writeForks(source, header, layout, file, progress);
    if (error != 0 || file.paths.finderInfoLength == 0) return error;
    SetLastError(NO_ERROR);
    if (WriteFinderInfoFromHeader(file.paths, file.finderInfo, header)) return 0;
    return GetLastError();  // a failure that leaves no error costs no file
}

ErrorCode extract(const Extraction& extraction, HANDLE source) {
    MacBinaryHeader header;
    if (!ReadMacBinaryHeader(source, &header)) return lastError();
    const MacBinaryLayout layout(header);
    ErrorCode error = advance(extraction.progress, layout.dataOffset);
    if (error != 0) return error;

    ExtractedFile file;
    error = PlaceExtractedFile(extraction, &header.nameLength, file);
    if (error == 0 && file.skip) return 0;
    if (error == 0) error = writeFile(source, header, layout, file, extraction.progress);
    return FinishExtractedFile(extraction, file, error);
}

}  // namespace

ErrorCode ExtractMacBinary(const Extraction& extraction) {
    OwnedFile source;
    uint64_t size = 0;
    ErrorCode error = OpenForReading(extraction.sourcePath, source);
    if (error == 0) error = GetSizeOf(source.get(), size);
    if (error != 0) return error;
    uint64_t done = 0;
    ProgressGetDone(extraction.progress, &done);
    error = extract(extraction, source.get());
    // Whatever the forks did not count of the file.
    done += size;
    if (error == 0) ProgressSetDone(extraction.progress, &done);
    return error;
}

}  // namespace tidewell
