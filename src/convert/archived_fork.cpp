#include "convert/archived_fork.h"

#include "base/file.h"
#include "convert/archive_kind.h"
#include "convert/binhex_source.h"
#include "convert/macbinary_header.h"

#include <utility>

namespace tidewell {

namespace {

ErrorCode openMacBinaryFork(const char* path, ForkBytes& fork) {
    OwnedFile file;
    uint64_t size = 0;
    ErrorCode error = OpenForReading(path, file);
    if (error == 0) error = GetSizeOf(file.get(), size);
    if (error != 0) return error;
    MacBinaryHeader header;
    if (!ReadMacBinaryHeader(file.get(), &header)) return lastError();
    const MacBinaryLayout layout(header);
    // A secondary header, too, takes its place.
    const uint32_t length = header.resourceLength;
    if (size < layout.resourceOffset || size - layout.resourceOffset < length) return ERROR_HANDLE_EOF;
    fork = ForkBytes(std::move(file), layout.resourceOffset, length);
    return 0;
}

// The next fork of the stream, into memory.
ErrorCode expandFork(BinHexStream& stream, DWORD length, ForkBytes& fork) {
    if (!CouldExpandTo(stream, length)) return ERROR_HANDLE_EOF;
    PageBuffer memory = PageBuffer::allocate(length != 0 ? length : 1);
    if (!memory) return ERROR_NOT_ENOUGH_MEMORY;
    uint16_t crc = 0;
    ErrorCode error = ReadRunLength(stream, memory.data(), length, &crc);
    if (error == 0) error = CheckBinHexCrc(stream, crc);
    if (error == 0) fork = ForkBytes(std::move(memory), length);
    return error;
}

ErrorCode openBinHexFork(const char* path, ForkBytes& fork) {
    BinHexSource source;
    BinHexExtent extent;
    ErrorCode error = OpenBinHexSource(path, source);
    if (error == 0) error = ScanBinHexFile(source.file.get(), source.size, source.blocks(), extent);
    BinHexStream stream;
    BinHexHeader header;
    if (error == 0) error = OpenBinHexForks(source, extent, stream, header);
    if (error != 0) return error;
    const DWORD dataLength = header.fields.dataLength;
    if (!CouldExpandTo(stream, dataLength)) return ERROR_HANDLE_EOF;
    const auto pass = [](DWORD, bool) { return ErrorCode{0}; };
    error = ReadBinHexFork(stream, source.blocks().fork, dataLength, pass);
    return error != 0 ? error : expandFork(stream, header.fields.resourceLength, fork);
}

}  // namespace

bool IsArchivePath(const char* path) {
    return ArchiveKindOf(path) != ArchiveKind::none;
}

ErrorCode OpenArchivedFork(const char* path, ForkBytes& fork) {
    switch (ArchiveKindOf(path)) {
    case ArchiveKind::macBinary: return openMacBinaryFork(path, fork);
    case ArchiveKind::binHex: return openBinHexFork(path, fork);
    case ArchiveKind::none: break;
    }
    return ERROR_INVALID_DATA;
}

}  // namespace tidewell
