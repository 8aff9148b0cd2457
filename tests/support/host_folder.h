// A folder of a host, and what a test puts into it behind the volume's back.
#ifndef TIDEWELL_TESTS_SUPPORT_HOST_FOLDER_H
#define TIDEWELL_TESTS_SUPPORT_HOST_FOLDER_H

#include "pc/host/memory_host.h"

#include <string>
#include <string_view>
#include <vector>

// Names are UTF-8, relative to the folder, with "/" between components. What goes wrong fails the program:
// no test can go on without its files.
class HostFolder {
  public:
    HostFolder(std::shared_ptr<pc::Host> host, std::string path)
        : host_(std::move(host)), path_(std::move(path)) {}

    const std::shared_ptr<pc::Host>& host() const { return host_; }
    const std::string& path() const { return path_; }
    std::string path(std::string_view name) const { return path_ + "/" + std::string(name); }

    void write(std::string_view name, std::string_view bytes) const;
    std::string read(std::string_view name) const;
    bool has(std::string_view name) const;
    void remove(std::string_view name) const;
    // What it grows by is a hole.
    void resize(std::string_view name, uint64_t bytes) const;
    // Sorted.
    std::vector<std::string> names(std::string_view folder = "") const;

  private:
    std::shared_ptr<pc::Host> host_;
    std::string path_;
};

// Of a host of its own.
class MemoryFolder : public HostFolder {
  public:
    explicit MemoryFolder(const std::string& path = "")
        : HostFolder(std::make_shared<pc::MemoryHost>(), path) {
        memory().makeFolder(path);
    }
    pc::MemoryHost& memory() const { return static_cast<pc::MemoryHost&>(*host()); }

    void makeFolder(std::string_view name) const { memory().makeFolder(path(name)); }
    void link(std::string_view existing, std::string_view name) const;
    void setWritable(std::string_view name, bool writable) const;
};

#endif
