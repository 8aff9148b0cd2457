#include "base/path_list.h"

#include "base/heap.h"

#include <cstddef>
#include <cstring>

namespace tidewell {

// One block of the heap: the text stands right behind the link, so that a path leads to the next.
struct PathList::Node {
    Node* next;
    char text[1];
};

const PathList::Node* PathList::nodeOf(const char* path) {
    return reinterpret_cast<const Node*>(path - offsetof(Node, text));
}

const char* PathList::Add(const char* path) {
    const size_t size = std::strlen(path) + 1;
    auto* const node =
        static_cast<Node*>(HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, offsetof(Node, text) + size));
    if (!node) {
        SetLastError(ERROR_NOT_ENOUGH_MEMORY);
        return nullptr;
    }
    char* const text = reinterpret_cast<char*>(node) + offsetof(Node, text);
    std::memcpy(text, path, size);
    node->next = head_;
    head_ = node;
    ++count_;
    return text;
}

const char* PathList::Next(const char* path) const {
    const Node* const node = path ? nodeOf(path)->next : head_;
    return node ? node->text : nullptr;
}

void PathList::TakeReversed(PathList& other) {
    while (Node* const node = other.head_) {
        other.head_ = node->next;
        node->next = head_;
        head_ = node;
    }
    count_ += other.count_;
    other.count_ = 0;
}

void PathList::Clear() {
    while (head_) {
        Node* const next = head_->next;
        DeleteRecord(head_);
        head_ = next;
    }
    count_ = 0;
}

}  // namespace tidewell
