#include "convert/extract_binhex.h"

#include "base/file.h"
#include "convert/binhex_source.h"
#include "convert/restore_finder_info.h"

#include <cstdint>
#include <cstring>

namespace tidewell {

namespace {

// The stream and the memory for what is made of it.
struct Decoder {
    BinHexStream& stream;
    uint8_t* block;  // kBinHexBlock bytes
};

ErrorCode writeExpanded(HANDLE fork, const Decoder& decoder, DWORD length, ProgressDialog* progress) {
    const auto write = [&](DWORD count, bool last) {
        if (last) ProgressPump(progress);
        return WriteWhole(fork, decoder.block, count);
    };
    return ReadBinHexFork(decoder.stream, decoder.block, length, write);
}

// The next `length` expanded bytes become the fork at `path`.
ErrorCode WriteBinHexFork(const char* path, const Decoder& decoder, DWORD length, ExtractedFile& file,
                          ProgressDialog* progress) {
    if (!CouldExpandTo(decoder.stream, length)) return ERROR_HANDLE_EOF;
    OwnedFile fork;
    ErrorCode error = OpenExtractedFork(path, file, fork);
    if (error != 0) return error;
    error = writeExpanded(fork.get(), decoder, length, progress);
    const ErrorCode closed = CloseWritten(fork);
    return error != 0 ? error : closed;
}

ErrorCode writeFinderInfo(const BinHexHeader& header, const ExtractedFile& file) {
    MacBinaryHeader merged;
    std::memset(static_cast<void*>(&merged), 0, sizeof merged);
    merged.type = header.fields.type;
    merged.creator = header.fields.creator;
    if (WriteFinderInfoFromHeader(file.paths, file.finderInfo, merged)) return 0;
    return lastError();
}

ErrorCode writeFile(const Decoder& decoder, const BinHexHeader& header, ExtractedFile& file,
                    ProgressDialog* progress) {
    const ForkPaths& paths = file.paths;
    ErrorCode error = WriteBinHexFork(paths.dataPath, decoder, header.fields.dataLength, file, progress);
    if (error == 0 && paths.resourceLength != 0)
        error = WriteBinHexFork(paths.resourcePath, decoder, header.fields.resourceLength, file, progress);
    if (error == 0 && paths.finderInfoLength != 0) error = writeFinderInfo(header, file);
    return error;
}

ErrorCode extract(const Extraction& extraction, const BinHexSource& source, const BinHexExtent& extent) {
    BinHexStream stream;
    BinHexHeader header;
    ErrorCode error = OpenBinHexForks(source, extent, stream, header);
    if (error != 0) return error;

    ExtractedFile file;
    error = PlaceExtractedFile(extraction, header.name, file);
    if (error == 0 && file.skip) return 0;
    if (error == 0) error = writeFile({stream, source.blocks().fork}, header, file, extraction.progress);
    return FinishExtractedFile(extraction, file, error);
}

}  // namespace

ErrorCode ExtractBinHex(const Extraction& extraction) {
    BinHexSource source;
    ErrorCode error = OpenBinHexSource(extraction.sourcePath, source);
    BinHexExtent extent;
    if (error == 0) error = ScanBinHexFile(source.file.get(), source.size, source.blocks(), extent);
    if (error != 0) return error;
    uint64_t before = 0;
    ProgressGetDone(extraction.progress, &before);
    const uint64_t half = before + source.size / 2;
    ProgressSetDone(extraction.progress, &half);
    // What the scan has found is told only to a user who still wants to know.
    error = ProgressPump(extraction.progress) ? extract(extraction, source, extent) : ERROR_CANCELLED;
    const uint64_t whole = before + source.size;
    ProgressSetDone(extraction.progress, &whole);
    return error;
}

}  // namespace tidewell
