#include "convert/extract_binhex.h"

#include "base/file.h"
#include "convert/binhex_header.h"
#include "convert/binhex_text.h"
#include "convert/restore_finder_info.h"

#include <cstdint>
#include <cstring>

namespace tidewell {

namespace {

// A BinHex file, whole in memory. It stays open, so that nothing can be written over it.
struct Text {
    OwnedFile file;
    PageBuffer buffer;
    DWORD size = 0;  // bytes
};

ErrorCode readSource(const char* path, Text& text) {
    uint64_t size = 0;
    ErrorCode error = OpenForReading(path, text.file);
    if (error == 0) error = GetSizeOf(text.file.get(), size);
    if (error != 0 || size == 0) return error;
    if (size > UINT32_MAX) return ERROR_NOT_ENOUGH_MEMORY;
    text.size = static_cast<DWORD>(size);
    text.buffer = PageBuffer::allocate(text.size);
    if (!text.buffer) return ERROR_NOT_ENOUGH_MEMORY;
    return ReadWhole(text.file.get(), text.buffer.data(), text.size);
}

// The next `length` expanded bytes become the fork at `path`.
ErrorCode WriteBinHexFork(const char* path, BinHexStream& stream, DWORD length, ExtractedFile& file,
                          ProgressDialog* progress) {
    if (!CouldExpandTo(stream, length)) return ERROR_HANDLE_EOF;
    PageBuffer buffer;
    if (length != 0) {
        buffer = PageBuffer::allocate(length);
        if (!buffer) return ERROR_NOT_ENOUGH_MEMORY;
    }
    OwnedFile fork;
    ErrorCode error = OpenExtractedFork(path, file, fork);
    if (error != 0) return error;
    uint16_t crc = 0;
    error = ReadRunLength(stream, buffer.data(), length, &crc);
    if (error != 0) return error;
    ProgressPump(progress);
    error = WriteWhole(fork.get(), buffer.data(), length);
    if (error == 0) error = CheckBinHexCrc(stream, crc);
    const ErrorCode closed = CloseWritten(fork);
    return error != 0 ? error : closed;
}

ErrorCode writeFinderInfo(const BinHexHeader& header, const ExtractedFile& file) {
    MacBinaryHeader merged;
    std::memset(static_cast<void*>(&merged), 0, sizeof merged);
    merged.type = header.fields.type;
    merged.creator = header.fields.creator;
    if (WriteFinderInfoFromHeader(file.paths, file.finderInfo, merged)) return 0;
    return lastErrorOr(ERROR_INVALID_DATA);
}

ErrorCode writeFile(BinHexStream& stream, const BinHexHeader& header, ExtractedFile& file,
                    ProgressDialog* progress) {
    const ForkPaths& paths = file.paths;
    ErrorCode error = WriteBinHexFork(paths.dataPath, stream, header.fields.dataLength, file, progress);
    if (error == 0 && paths.resourceLength != 0)
        error = WriteBinHexFork(paths.resourcePath, stream, header.fields.resourceLength, file, progress);
    if (error == 0 && paths.finderInfoLength != 0) error = writeFinderInfo(header, file);
    return error;
}

ErrorCode extract(const Extraction& extraction, Text& text) {
    const uint8_t* const start = FindBinHexStart(text.buffer.data(), text.size);
    if (start == nullptr) return ERROR_INVALID_DATA;
    const auto before = static_cast<size_t>(start - text.buffer.data());
    uint8_t* const encoded = text.buffer.data() + before;
    size_t produced = 0;
    ErrorCode error = DecodeBinHexText(encoded, text.size - before, produced);
    if (error != 0) return error;
    BinHexStream stream = {encoded, encoded + produced};
    BinHexHeader header;
    error = ReadBinHexHeader(stream, header);
    if (error != 0) return error;

    ExtractedFile file;
    error = PlaceExtractedFile(extraction, header.name, file);
    if (error == 0 && file.skip) return 0;
    if (error == 0) error = writeFile(stream, header, file, extraction.progress);
    return FinishExtractedFile(extraction, file, error);
}

}  // namespace

ErrorCode ExtractBinHex(const Extraction& extraction) {
    Text text;
    ErrorCode error = readSource(extraction.sourcePath, text);
    if (error != 0) return error;
    uint64_t done = 0;
    ProgressGetDone(extraction.progress, &done);
    ProgressAdvance(extraction.progress, text.size / 2);
    if (ProgressPump(extraction.progress)) {
        error = extract(extraction, text);
    } else {
        error = ERROR_CANCELLED;
    }
    done += text.size;
    ProgressSetDone(extraction.progress, &done);
    return error;
}

}  // namespace tidewell
