#include "support/host_folder.h"

#include <windows.h>

#include <algorithm>
#include <stdexcept>

namespace {

void need(pc::Error error, const std::string& path) {
    if (error != 0) throw std::runtime_error(path + ": error " + std::to_string(error));
}

std::unique_ptr<pc::HostFile> open(const HostFolder& folder, std::string_view name,
                                   const pc::HostAccess& access) {
    std::unique_ptr<pc::HostFile> file;
    need(folder.host()->open(folder.path(name), access, std::make_shared<pc::SpaceLimit>(), file),
         folder.path(name));
    return file;
}

}  // namespace

void HostFolder::write(std::string_view name, std::string_view bytes) const {
    const auto file = open(*this, name, {true, true, !has(name)});
    need(file->setSize(0), path(name));
    need(file->write(0, bytes.data(), bytes.size()), path(name));
    need(file->flush(), path(name));
}

std::string HostFolder::read(std::string_view name) const {
    const auto file = open(*this, name, {true, false, false});
    uint64_t size = 0;
    need(file->size(size), path(name));
    std::string bytes(static_cast<size_t>(size), '\0');
    size_t got = 0;
    need(file->read(0, bytes.data(), bytes.size(), got), path(name));
    return bytes;
}

bool HostFolder::has(std::string_view name) const {
    pc::HostStatus status;
    return host_->status(path(name), status) == 0;
}

void HostFolder::remove(std::string_view name) const {
    need(host_->remove(path(name)), path(name));
}

void HostFolder::resize(std::string_view name, uint64_t bytes) const {
    need(open(*this, name, {true, true, false})->setSize(bytes), path(name));
}

std::vector<std::string> HostFolder::names(std::string_view folder) const {
    std::vector<pc::HostItem> items;
    need(host_->list(path(folder), items), path(folder));
    std::vector<std::string> names;
    for (const pc::HostItem& item : items)
        names.push_back(item.name);
    std::sort(names.begin(), names.end());
    return names;
}

void MemoryFolder::link(std::string_view existing, std::string_view name) const {
    need(memory().link(path(existing), path(name)), path(name));
}

void MemoryFolder::setWritable(std::string_view name, bool writable) const {
    need(memory().setWritable(path(name), writable), path(name));
}
