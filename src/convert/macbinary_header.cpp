#include "convert/macbinary_header.h"

#include "base/error_code.h"
#include "base/file.h"
#include "convert/macbinary_crc.h"
#include "convert/swap_fields.h"
#include "macfile/finder_info.h"
#include "base/path.h"
#include "base/text.h"

#include <cstring>

namespace tidewell {

namespace {

// The longest name that an HFS volume holds.
constexpr size_t kMaxNameLength = 31;

void setFinderFields(MacBinaryHeader& header, const FinderFields& finder) {
    header.type = finder.type;
    header.creator = finder.creator;
    header.flagsHigh = static_cast<uint8_t>(finder.flags >> 8);
    header.flagsLow = static_cast<uint8_t>(finder.flags & 0xFF);
    header.vertical = finder.vertical;
    header.horizontal = finder.horizontal;
    header.window = finder.window;
}

void setName(MacBinaryHeader& header, const void* name, size_t length) {
    if (length > kMaxNameLength) length = kMaxNameLength;
    header.nameLength = static_cast<uint8_t>(length);
    std::memcpy(header.name, name, length);
}

ErrorCode getForkLength(HANDLE file, DWORD& length) {
    uint64_t size = 0;
    const ErrorCode error = GetSizeOf(file, size);
    length = static_cast<DWORD>(size);
    // Cutting it to 32 bits would lose the rest.
    return error == 0 && size != length ? ERROR_FILE_TOO_LARGE : error;
}

// In bytes, of as much of a file's name as a Mac name can hold.
size_t lengthOfWholeCharacters(const char* name) {
    const char* end = name;
    while (*end != '\0' && static_cast<size_t>(nextCharacter(end) - name) <= kMaxNameLength)
        end = nextCharacter(end);
    return static_cast<size_t>(end - name);
}

// What tells a MacBinary header from other bytes.
ErrorCode checkHeader(const MacBinaryFileHeader& header) {
    constexpr uint8_t kFirstVersion = 129;
    if (header.crc != 0 && header.crc != MacBinaryCrc(&header, offsetof(MacBinaryFileHeader, crc)))
        return ERROR_CRC;
    if (header.nameLength < 1 || header.nameLength > sizeof header.name) return ERROR_INVALID_DATA;
    if (header.readerVersion != 0 && header.readerVersion < kFirstVersion) return ERROR_INVALID_DATA;
    return 0;
}

ErrorCode checkFileSize(HANDLE file, const MacBinaryFileHeader& header) {
    uint64_t size = 0;
    if (const ErrorCode error = GetSizeOf(file, size)) return error;
    const uint64_t needed =
        kMacBinaryBlock + MacBinaryRoundedUp(header.dataLength) + MacBinaryRoundedUp(header.resourceLength);
    return size >= needed ? 0 : ERROR_HANDLE_EOF;
}

}  // namespace

BOOL BuildMacBinaryHeader(const ForkPaths& paths, HANDLE dataFile, HANDLE resourceFile,
                          MacBinaryHeader* header) {
    std::memset(static_cast<void*>(header), 0, sizeof *header);
    FinderInfoRecord record;
    if (!ReadFinderInfo(paths, &record)) return 0;

    const char* const fileName = FileNamePart(paths.dataPath);
    switch (record.kind) {
    case VolumeKindMac:
        setFinderFields(*header, record.mac.finder);
        header->protectedFlag = record.mac.attributes;
        setName(*header, record.mac.name, record.mac.nameLength);
        break;
    case VolumeKindNtfs: setFinderFields(*header, record.afp.finder); break;
    default: return failWith(ERROR_INVALID_PARAMETER);
    }
    // A header without a name could never be unpacked, so a nameless record of a driver gets one, too.
    if (header->nameLength == 0) setName(*header, fileName, lengthOfWholeCharacters(fileName));

    DWORD dataLength = 0;
    DWORD resourceLength = 0;
    ErrorCode error = getForkLength(dataFile, dataLength);
    if (error == 0 && resourceFile != INVALID_HANDLE_VALUE)
        error = getForkLength(resourceFile, resourceLength);
    if (error != 0) return failWith(error);
    header->dataLength = dataLength;
    header->resourceLength = resourceLength;
    return 1;
}

BOOL WriteMacBinaryHeader(HANDLE file, MacBinaryHeader* header) {
    SwapFields(header, header, kMacBinaryFieldWidths);
    header->crc = MacBinaryCrc(header, offsetof(MacBinaryHeader, crc));
    ErrorCode error = SeekTo(file, 0);
    if (error == 0) error = WriteWhole(file, header, sizeof *header);
    SwapFields(header, header, kMacBinaryFieldWidths);
    return error == 0 ? 1 : failWith(error);
}

BOOL ReadMacBinaryHeader(HANDLE file, MacBinaryHeader* header) {
    MacBinaryFileHeader fileHeader;
    ErrorCode error = SeekTo(file, 0);
    if (error == 0) error = ReadWhole(file, &fileHeader, sizeof fileHeader);
    if (error == 0) error = checkHeader(fileHeader);
    if (error == 0) error = checkFileSize(file, fileHeader);
    if (error != 0) return failWith(error);
    std::memcpy(static_cast<void*>(header), &fileHeader, sizeof *header);
    SwapFields(header, header, kMacBinaryFieldWidths);
    return 1;
}

}  // namespace tidewell
