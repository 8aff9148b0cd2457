// A host in memory, for tests: thousands are made in a second, and its power can be cut.
#ifndef TIDEWELL_PLATFORM_PC_HOST_MEMORY_HOST_H
#define TIDEWELL_PLATFORM_PC_HOST_MEMORY_HOST_H

#include "pc/host/host.h"

#include <map>

namespace pc {

// Beside the bytes that programs see, every file has those that it was last flushed with. A file that was
// made has a name on the disk once it is flushed; a name that was moved or deleted is either way until then.
class MemoryHost final : public Host {
  public:
    MemoryHost();
    ~MemoryHost() override;

    Error status(const std::string& path, HostStatus& status) override;
    Error list(const std::string& folder, std::vector<HostItem>& items) override;
    Error remove(const std::string& path) override;
    Error replace(const std::string& from, const std::string& to) override;
    Error move(const std::string& from, const std::string& to) override;
    std::string absolute(const std::string& path) override { return path; }
    Error open(const std::string& path, const HostAccess& access, std::shared_ptr<SpaceLimit> space,
               std::unique_ptr<HostFile>& file) override;
    void losePower(PowerCut cut) override;

    // What a test puts there is on the disk at once.
    void makeFolder(const std::string& path);  // with those on the way
    Error link(const std::string& existing, const std::string& path);
    Error setWritable(const std::string& path, bool writable);
    void flushAll();
    // The host tells only when a file that was written to is closed that it could not keep it; 0: no more.
    void failCloses(Error error) { closeError_ = error; }

  private:
    friend class MemoryFile;
    struct Node;
    using NodeRef = std::shared_ptr<Node>;
    using Names = std::map<std::string, NodeRef, std::less<>>;

    // Where a path leads: the folder and the name in it, and what is there.
    struct Place {
        Node* folder;
        std::string_view name;  // of the path
        Node* node;
        NodeRef share() const;
    };
    Error find(std::string_view path, Place& place) const;
    Error findFile(std::string_view path, Place& place) const;
    void flush(const NodeRef& file);
    // From the root on; `action` may change what names the folder has.
    template <typename Action>
    void forEachFolder(Action action);

    NodeRef root_;
    Error closeError_ = 0;
};

}  // namespace pc

#endif
