// The files that a user has selected.
#ifndef TIDEWELL_BASE_PATH_LIST_H
#define TIDEWELL_BASE_PATH_LIST_H

#include <windows.h>

#include <cstdint>

namespace tidewell {

// Paths, the one added last first. Each is a copy of its own, which lives as long as it is in the list.
class PathList {
  public:
    PathList() noexcept = default;
    PathList(const PathList&) = delete;
    PathList& operator=(const PathList&) = delete;
    ~PathList() { Clear(); }

    // Puts a copy of `path` before all others and returns it; null, with ERROR_NOT_ENOUGH_MEMORY as the last
    // error and nothing changed, without memory.
    const char* Add(const char* path);

    // The path after `path`, which is one of the list's own; of null, the first. Null at the end.
    const char* Next(const char* path) const;

    uint32_t Count() const { return count_; }

    // Puts the paths of another list before these, from its last to its first; that list is empty then.
    void TakeReversed(PathList& other);

    void Clear();

  private:
    struct Node;
    static const Node* nodeOf(const char* path);

    Node* head_ = nullptr;
    uint32_t count_ = 0;
};

}  // namespace tidewell

#endif
