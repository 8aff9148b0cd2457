#include "pc/apple_double/apple_double.h"

#include "base/byte_order.h"
#include "pc/names/mac_host_name.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace pc {

namespace {

constexpr size_t kCopyBlock = 0x40000;
constexpr uint64_t kLargestFork = UINT32_MAX;
constexpr uint64_t kLongestSlack = 4096;
constexpr unsigned kTemporaryAttempts = 100;
constexpr uint32_t kMacAttributesOffset = 34;  // within the Finder information, behind two bytes of padding

Error readExactly(HostFile& file, uint64_t offset, void* buffer, size_t count) {
    size_t got = 0;
    const Error error = file.read(offset, buffer, count, got);
    return error == 0 && got != count ? ERROR_FILE_CORRUPT : error;
}

Error copyBytes(HostFile& from, HostFile& to, const AppleDoubleLayout::Copy& copy) {
    std::vector<uint8_t> block(static_cast<size_t>(std::min<uint64_t>(copy.length, kCopyBlock)));
    for (uint64_t done = 0; done < copy.length;) {
        const size_t count = static_cast<size_t>(std::min<uint64_t>(copy.length - done, block.size()));
        Error error = readExactly(from, copy.from + done, block.data(), count);
        if (error == 0) error = to.write(copy.to + done, block.data(), count);
        if (error != 0) return error;
        done += count;
    }
    return 0;
}

}  // namespace

AppleDouble::AppleDouble(std::string path, VolumeHost host)
    : path_(std::move(path)), host_(std::move(host)) {}

Error AppleDouble::load() {
    forget();
    Error error = open(false);
    // A name too long for the host to keep this file has none.
    if (error == ERROR_FILE_NOT_FOUND || error == ERROR_FILENAME_EXCED_RANGE) return 0;
    AppleDoubleSource source;
    if (error == 0) error = readHeader(source);
    if (error != 0) {
        forget();
        return error;
    }
    source_ = std::move(source);
    return 0;
}

Error AppleDouble::open(bool write) {
    const Error error = host_.open(path_, {true, write, false}, file_);
    writable_ = error == 0 && write;
    return error;
}

Error AppleDouble::openForWriting() {
    return writable_ ? 0 : open(true);
}

void AppleDouble::forget() {
    file_.reset();
    writable_ = false;
    source_ = AppleDoubleSource();
}

Error AppleDouble::readHeader(AppleDoubleSource& source) const {
    Error error = file_->size(source.fileSize);
    if (error != 0) return error;
    std::array<uint8_t, AppleDoubleHeader::kFixedSize> fixed;
    error = readExactly(*file_, 0, fixed.data(), fixed.size());
    size_t count = 0;
    if (error == 0) error = readAppleDoubleCount(fixed, count);
    if (error != 0) return error;
    const size_t size = fixed.size() + count * AppleDoubleHeader::kEntrySize;
    if (size > source.fileSize) return ERROR_FILE_CORRUPT;
    std::vector<uint8_t> bytes(size);
    error = readExactly(*file_, 0, bytes.data(), bytes.size());
    if (error == 0) error = parseAppleDouble(bytes, source.fileSize, source.header);
    return error == 0 ? findBodyStart(source) : error;
}

Error AppleDouble::findBodyStart(AppleDoubleSource& source) const {
    uint64_t first = source.fileSize;
    for (const AppleDoubleEntry& entry : source.header.entries) {
        if (entry.length != 0) first = std::min<uint64_t>(first, entry.offset);
    }
    const uint64_t headerEnd = source.header.size();
    source.bodyStart = headerEnd;
    if (first - headerEnd > kLongestSlack) return 0;
    std::vector<uint8_t> slack(static_cast<size_t>(first - headerEnd));
    const Error error = readExactly(*file_, headerEnd, slack.data(), slack.size());
    const bool empty = std::all_of(slack.begin(), slack.end(), [](uint8_t byte) { return byte == 0; });
    if (error == 0 && empty) source.bodyStart = first;
    return error;
}

uint32_t AppleDouble::length(uint32_t id) const {
    const AppleDoubleEntry* const entry = source_.header.find(id);
    return entry != nullptr ? entry->length : 0;
}

Error AppleDouble::read(uint32_t id, uint64_t offset, void* buffer, size_t count, size_t& got) const {
    got = 0;
    const AppleDoubleEntry* const entry = source_.header.find(id);
    if (entry == nullptr || offset >= entry->length) return 0;
    const size_t available = static_cast<size_t>(std::min<uint64_t>(count, entry->length - offset));
    return file_->read(entry->offset + offset, buffer, available, got);
}

bool AppleDouble::hasMacAttributes() const {
    char magic[4] = {};
    size_t got = 0;
    const Error error = read(kFinderInfo, kMacAttributesOffset, magic, sizeof magic, got);
    return error == 0 && got == sizeof magic && std::memcmp(magic, "ATTR", sizeof magic) == 0;
}

// In the same folder, and among the driver's own names: it is never seen, even if it had to stay.
Error AppleDouble::createTemporary(std::string& path, std::unique_ptr<HostFile>& file) const {
    const std::string prefix = path_.substr(0, path_.rfind('/') + 1) + std::string(kDriverPrefix) +
                               "tidewell-" + std::to_string(host_->process()) + "-";
    Error error = ERROR_FILE_EXISTS;
    for (unsigned attempt = 0; error == ERROR_FILE_EXISTS && attempt < kTemporaryAttempts; ++attempt) {
        path = prefix + std::to_string(attempt);
        error = host_.open(path, {true, true, true}, file);
    }
    return error;
}

Error AppleDouble::fill(HostFile& file, const AppleDoubleLayout& layout,
                        const std::vector<AppleDoubleEdit>& edits) const {
    const std::vector<uint8_t> header = layout.header.bytes();
    Error error = file.write(0, header.data(), header.size());
    for (const AppleDoubleLayout::Copy& copy : layout.copies) {
        if (error == 0) error = copyBytes(*file_, file, copy);
    }
    for (const AppleDoubleEdit& edit : edits) {
        const uint64_t offset = uint64_t{layout.header.find(edit.id)->offset} + edit.offset;
        if (error == 0) error = file.write(offset, edit.bytes.data(), edit.bytes.size());
    }
    return error == 0 ? file.setSize(layout.fileSize) : error;
}

Error AppleDouble::edit(const std::vector<AppleDoubleEdit>& edits, const std::string& owner) {
    const AppleDoubleEntry* const entry = edits.size() == 1 ? source_.header.find(edits[0].id) : nullptr;
    const size_t end = entry != nullptr ? edits[0].offset + edits[0].bytes.size() : 0;
    if (entry == nullptr || end > entry->length || edits[0].leastLength > entry->length)
        return rewrite(edits, {}, owner);
    const Error error = openForWriting();
    return error == 0 ? file_->write(uint64_t{entry->offset} + edits[0].offset, edits[0].bytes.data(),
                                     edits[0].bytes.size())
                      : error;
}

Error AppleDouble::rewrite(const std::vector<AppleDoubleEdit>& edits, const ResourcePlan& resource,
                           const std::string& owner) {
    AppleDoubleLayout layout;
    Error error = planAppleDouble(source_, edits, resource, layout);
    if (error != 0) return error;
    std::string temporary;
    std::unique_ptr<HostFile> file;
    error = createTemporary(temporary, file);
    if (error != 0) return error;
    if (exists()) {
        file->takePermissions(path_, false);
    } else {
        file->takePermissions(owner, true);
    }
    error = fill(*file, layout, edits);
    // The old file must not go before the host's disk has the new one.
    if (error == 0 && exists()) error = file->flush();
    const Error closed = file->close();
    if (error == 0) error = closed;
    if (error == 0) error = putInPlace(temporary);
    if (error != 0) host_.discard(temporary);
    return error;
}

Error AppleDouble::putInPlace(const std::string& temporary) {
    const uint64_t freed = source_.fileSize;
    const bool existed = exists();
    const bool wasWritable = writable_;
    file_.reset();
    const Error error = host_->replace(temporary, path_);
    if (error != 0) {
        if (existed) open(wasWritable);
        return error;
    }
    host_.giveBack(freed);
    const Error loaded = load();
    return loaded == 0 && wasWritable ? openForWriting() : loaded;
}

Error AppleDouble::makeResourceLast(uint32_t longest) {
    const AppleDoubleEntry* const entry = source_.header.find(kResourceFork);
    const bool last = entry->end() == source_.fileSize;
    return last ? 0 : rewrite({}, {ResourcePlan::makeLast, longest}, path_);
}

// The entry is the last: its end is the file's.
Error AppleDouble::setResourceLength(uint64_t bytes) {
    AppleDoubleEntry& entry = *source_.header.find(kResourceFork);
    const size_t index = static_cast<size_t>(&entry - source_.header.entries.data());
    const tidewell::Be<uint32_t> field = static_cast<uint32_t>(bytes);
    const Error error = file_->write(AppleDoubleHeader::lengthField(index), &field, sizeof field);
    if (error == 0) entry.length = static_cast<uint32_t>(bytes);
    return error;
}

Error AppleDouble::writeResource(uint64_t offset, const void* buffer, size_t count) {
    if (!has(kResourceFork)) return ERROR_FILE_NOT_FOUND;
    if (offset > kLargestFork || count > kLargestFork - offset) return ERROR_FILE_TOO_LARGE;
    const uint64_t end = offset + count;
    const bool grows = end > length(kResourceFork);
    if (count == 0) return 0;
    Error error = grows ? makeResourceLast(UINT32_MAX) : 0;
    if (error != 0) return error;
    const uint64_t start = source_.header.find(kResourceFork)->offset;
    error = file_->write(start + offset, buffer, count);
    if (!grows) return error;
    // The bytes go first: a length without them would make the file a damaged one.
    if (error == 0) error = setResourceLength(end);
    if (error != 0) {
        file_->setSize(source_.fileSize);
        return error;
    }
    source_.fileSize = start + end;
    return 0;
}

Error AppleDouble::truncateResource() {
    if (!has(kResourceFork)) return ERROR_FILE_NOT_FOUND;
    Error error = makeResourceLast(0);
    const uint64_t start = source_.header.find(kResourceFork)->offset;
    if (error == 0) error = setResourceLength(0);
    if (error == 0) error = file_->setSize(start);
    if (error == 0) source_.fileSize = start;
    return error;
}

Error AppleDouble::flush() {
    if (!exists()) return 0;
    const Error error = openForWriting();
    return error == 0 ? file_->flush() : error;
}

Error AppleDouble::close() {
    return writable_ ? file_->close() : 0;
}

}  // namespace pc
