#include "support/volume_files.h"

#include "pc/volumes/finder_record.h"
#include "support/archive_writer.h"

pc::Error openFile(pc::Volume& volume, const std::string& path, uint32_t disposition, pc::Opened& opened) {
    pc::OpenMode mode;
    mode.read = mode.write = true;
    mode.disposition = disposition;
    const pc::Error error = volume.open(path, mode, opened);
    return error == 0 && !opened.created ? volume.truncate(path, disposition, *opened.file) : error;
}

pc::Error openError(pc::Volume& volume, const std::string& path, uint32_t disposition) {
    pc::Opened opened;
    return openFile(volume, path, disposition, opened);
}

pc::Error writeFile(pc::Volume& volume, const std::string& path, const std::string& bytes) {
    pc::Opened opened;
    const pc::Error error = openFile(volume, path, createAlways, opened);
    return error == 0 ? opened.file->write(0, bytes.data(), bytes.size()) : error;
}

std::string contentsOf(pc::Volume& volume, const std::string& path) {
    pc::Opened opened;
    pc::OpenMode mode;
    mode.read = true;
    uint64_t size = 0;
    size_t got = 0;
    pc::Error error = volume.open(path, mode, opened);
    if (error == 0) error = opened.file->size(size);
    std::string bytes(static_cast<size_t>(size), '\0');
    if (error == 0) error = opened.file->read(0, bytes.data(), bytes.size(), got);
    if (error == 0 && got != bytes.size()) return "short";
    return error == 0 ? bytes : "error " + std::to_string(error);
}

bool existsOn(pc::Volume& volume, const std::string& path) {
    pc::Opened opened;
    return volume.openForQuery(path, opened) == 0;
}

std::string shortPathOf(pc::Volume& volume, const std::string& path) {
    std::string shortForm;
    const pc::Error error = volume.shortPath(path, shortForm);
    return error == 0 ? shortForm : "error " + std::to_string(error);
}

std::string identityOf(pc::Volume& volume, const std::string& path) {
    pc::Opened opened;
    const pc::Error error = volume.openForQuery(path, opened);
    return error == 0 ? opened.identity : "error " + std::to_string(error);
}

pc::Error changeFinderInfo(pc::Volume& volume, const std::string& item, const std::string& info,
                           uint8_t attributes) {
    pc::Opened opened;
    pc::Error error = openFile(volume, item + kFinderFile, openExisting, opened);
    if (error != 0) return error;
    std::string record(sizeof(pc::FinderRecord), '\0');
    size_t got = 0;
    error = opened.file->read(0, record.data(), record.size(), got);
    record.replace(523, info.size(), info);
    record[521] = static_cast<char>(attributes);
    return error == 0 ? opened.file->write(0, record.data(), record.size()) : error;
}

std::string appleDoubleHeader(const std::vector<RawEntry>& entries) {
    std::string header = big32(0x00051607) + big32(0x00020000) + std::string(16, '\0');
    header += big16(static_cast<uint32_t>(entries.size()));
    for (const RawEntry& entry : entries)
        header += big32(entry.id) + big32(entry.offset) + big32(entry.length);
    return header;
}

std::string entryOf(const std::string& file, uint32_t id) {
    const size_t count = loadBig(file.data(), 24, 2);
    for (size_t i = 0; i < count; ++i) {
        const size_t at = 26 + 12 * i;
        if (loadBig(file.data(), at, 4) != id) continue;
        const size_t offset = loadBig(file.data(), at + 4, 4), length = loadBig(file.data(), at + 8, 4);
        return offset + length <= file.size() ? file.substr(offset, length) : "outside";
    }
    return "none";
}

std::string big16(uint32_t value) {
    return {static_cast<char>(value >> 8), static_cast<char>(value)};
}

std::string big32(uint32_t value) {
    return big16(value >> 16) + big16(value);
}

std::string patternText(size_t size) {
    const Bytes bytes = patternOf(size);
    return std::string(bytes.begin(), bytes.end());
}
