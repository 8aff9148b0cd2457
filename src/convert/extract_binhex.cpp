#include "convert/extract_binhex.h"

#include "base/file.h"
#include "convert/binhex_header.h"
#include "convert/restore_finder_info.h"

#include <cstdint>
#include <cstring>

namespace tidewell {

namespace {

// An open BinHex file. It stays open, so that nothing can be written over it, and nothing in it changes
// between the two times that it is read.
struct Source {
    OwnedFile file;
    uint64_t size = 0;  // bytes
    PageBuffer memory;

    BinHexMemory& blocks() const { return *reinterpret_cast<BinHexMemory*>(memory.data()); }
};

ErrorCode openSource(const char* path, Source& source) {
    ErrorCode error = OpenForReading(path, source.file);
    if (error == 0) error = GetSizeOf(source.file.get(), source.size);
    if (error != 0) return error;
    source.memory = PageBuffer::allocate(sizeof(BinHexMemory));
    return source.memory ? 0 : ERROR_NOT_ENOUGH_MEMORY;
}

// The stream and the memory for what is made of it.
struct Decoder {
    BinHexStream& stream;
    uint8_t* block;  // kBinHexBlock bytes
};

ErrorCode writeExpanded(HANDLE fork, const Decoder& decoder, DWORD length, ProgressDialog* progress) {
    uint16_t crc = 0;
    DWORD block = 0;
    do {
        block = length < kBinHexBlock ? length : kBinHexBlock;
        ErrorCode error = ReadRunLength(decoder.stream, decoder.block, block, &crc);
        if (error != 0) return error;
        length -= block;
        if (length == 0) ProgressPump(progress);
        error = WriteWhole(fork, decoder.block, block);
        if (error != 0) return error;
    } while (length != 0);
    return CheckBinHexCrc(decoder.stream, crc);
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

ErrorCode extract(const Extraction& extraction, const Source& source, const BinHexExtent& extent) {
    if (extent.error != 0) return extent.error;
    BinHexStream stream;
    ErrorCode error = OpenBinHexText(source.file.get(), source.size, extent, source.blocks(), stream.text);
    BinHexHeader header;
    if (error == 0) error = ReadBinHexHeader(stream, header);
    if (error != 0) return error;

    ExtractedFile file;
    error = PlaceExtractedFile(extraction, header.name, file);
    if (error == 0 && file.skip) return 0;
    if (error == 0) error = writeFile({stream, source.blocks().fork}, header, file, extraction.progress);
    return FinishExtractedFile(extraction, file, error);
}

}  // namespace

ErrorCode ExtractBinHex(const Extraction& extraction) {
    Source source;
    ErrorCode error = openSource(extraction.sourcePath, source);
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
