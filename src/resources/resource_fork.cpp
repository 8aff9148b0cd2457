#include "resources/resource_fork.h"

#include "base/file.h"

#include <algorithm>
#include <utility>

namespace tidewell {

namespace {

constexpr uint16_t kNoTypes = 0xFFFF;
constexpr int16_t kNoName = -1;
constexpr DWORD kDataLengthSize = sizeof(uint32_t);  // in front of the data
constexpr uint64_t kSmallestFork = sizeof(ResourceHeader) + sizeof(ResourceMap);

bool isWithin(uint64_t offset, uint64_t length, uint64_t size) {
    return offset + length <= size;
}

ErrorCode checkHeader(ForkBytes& bytes, ResourceHeader& header) {
    uint64_t size = 0;
    if (const ErrorCode error = bytes.GetSize(size)) return error;
    if (size == 0) return ERROR_CAN_NOT_COMPLETE;
    if (size < kSmallestFork) return ERROR_HANDLE_EOF;
    if (const ErrorCode error = bytes.ReadWholeAt(0, &header, sizeof header)) return error;
    const bool whole = isWithin(header.dataOffset, header.dataLength, size) &&
                       isWithin(header.mapOffset, header.mapLength, size);
    return whole ? 0 : ERROR_HANDLE_EOF;
}

ErrorCode readMap(ForkBytes& bytes, ResourceMap& map) {
    ResourceHeader header;
    if (const ErrorCode error = checkHeader(bytes, header)) return error;
    return bytes.ReadWholeAt(header.mapOffset, &map, sizeof map);
}

uint64_t typeListOf(const ResourceMap& map) {
    return uint64_t{map.header.mapOffset} + map.typeList;
}

uint64_t dataOf(const ResourceMap& map, const ReferenceEntry& reference) {
    return uint64_t{map.header.dataOffset} + reference.dataOffset();
}

}  // namespace

void ResourceForkReader::Init() noexcept {
    bytes_ = ForkBytes();
    map_ = {};
    map_.lastType = kNoTypes;
    path_ = nullptr;
}

BOOL ResourceForkReader::Open(const char* path) noexcept {
    Close();
    OwnedFile file;
    if (const ErrorCode error = OpenForReading(path, file)) return failWith(error);
    if (!Open(ForkBytes(std::move(file)))) return 0;
    path_ = path;
    return 1;
}

BOOL ResourceForkReader::Open(ForkBytes bytes) noexcept {
    Close();
    bytes_ = std::move(bytes);
    if (const ErrorCode error = readMap(bytes_, map_)) {
        Close();
        return failWith(error);
    }
    return 1;
}

void ResourceForkReader::Close() noexcept {
    const DWORD error = GetLastError();
    Init();
    SetLastError(error);
}

ForkBytes ResourceForkReader::TakeBytes() noexcept {
    ForkBytes bytes = std::move(bytes_);
    Close();
    return bytes;
}

unsigned ResourceForkReader::TypeCount() const noexcept {
    const int lastType = static_cast<int16_t>(static_cast<uint16_t>(map_.lastType));
    return lastType < 0 ? 0 : static_cast<unsigned>(lastType) + 1;
}

BOOL ResourceForkReader::ReadTypeEntry(uint16_t index, TypeEntry& entry) noexcept {
    const uint64_t first = typeListOf(map_) + sizeof map_.lastType;
    return bytes_.ReadWholeAt(first + sizeof entry * uint64_t{index}, &entry, sizeof entry) == 0;
}

BOOL ResourceForkReader::ReadReferenceEntry(const TypeEntry& type, uint16_t index,
                                            ReferenceEntry& entry) noexcept {
    const uint64_t first = typeListOf(map_) + type.referenceList;
    return bytes_.ReadWholeAt(first + sizeof entry * uint64_t{index}, &entry, sizeof entry) == 0;
}

BOOL ResourceForkReader::ReadName(const ReferenceEntry& reference, char* buffer, unsigned size) noexcept {
    if (reference.nameOffset() == kNoName) return failWith(0);
    const int64_t position = int64_t{map_.header.mapOffset} + map_.nameList + reference.nameOffset();
    if (position < 0) return failWith(ERROR_NEGATIVE_SEEK);
    const auto start = static_cast<uint64_t>(position);
    uint8_t length = 0;
    if (const ErrorCode error = bytes_.ReadWholeAt(start, &length, sizeof length)) return failWith(error);
    if (size == 0 || buffer == nullptr) return failWith(ERROR_INVALID_PARAMETER);
    if (length == 0) return failWith(ERROR_INVALID_DATA);

    const DWORD count = std::min<DWORD>(length, size - 1);
    if (const ErrorCode error = bytes_.ReadWholeAt(start + sizeof length, buffer, count)) {
        buffer[0] = '\0';  // no part of a name stands for it
        return failWith(error);
    }
    buffer[count] = '\0';
    return length > size ? failWith(ERROR_BUFFER_OVERFLOW) : 1;
}

BOOL ResourceForkReader::ReadDataLength(const ReferenceEntry& reference, uint32_t& length) noexcept {
    Be<uint32_t> stored;
    if (const ErrorCode error = bytes_.ReadWholeAt(dataOf(map_, reference), &stored, kDataLengthSize))
        return failWith(error);
    length = stored;
    return 1;
}

PageBuffer ResourceForkReader::ReadData(const ReferenceEntry& reference, uint32_t& length) noexcept {
    const uint32_t limit = length;
    uint64_t size = 0;
    uint32_t wanted = 0;
    if (!ReadDataLength(reference, wanted)) return {};
    if (const ErrorCode error = bytes_.GetSize(size)) {
        SetLastError(error);
        return {};
    }
    if (limit != 0) wanted = std::min(wanted, limit);
    // The length is only what the fork claims.
    const uint64_t start = dataOf(map_, reference) + kDataLengthSize;
    wanted = static_cast<uint32_t>(std::min<uint64_t>(wanted, size - std::min(start, size)));
    PageBuffer data = PageBuffer::allocate(std::max(wanted, 1U));
    if (!data) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return {};
    }
    DWORD got = 0;
    if (const ErrorCode error = bytes_.ReadAt(start, data.data(), wanted, got)) {
        data = {};
        SetLastError(error);
        return {};
    }
    length = got;
    return data;
}

DWORD ResourceForkReader::ForkSize() const noexcept {
    uint64_t size = 0;
    if (const ErrorCode error = bytes_.GetSize(size)) {
        SetLastError(error);
        return INVALID_FILE_SIZE;
    }
    return static_cast<DWORD>(size);
}

}  // namespace tidewell
