// The tree of a resource fork: the fork, its types, and the resources of each type that was opened once.
#ifndef TIDEWELL_RESOURCES_RESOURCE_TREE_H
#define TIDEWELL_RESOURCES_RESOURCE_TREE_H

#include "resources/resource_fork.h"

#include <windows.h>
#include <commctrl.h>

namespace tidewell {

enum class ResourceNodeKind { fork, type, resource };

// Bytes of a resource's name that are kept, with the NUL.
constexpr uint8_t kNodeNameCapacity = 44;
// Bytes of a tree item's label that are looked at, with the NUL.
constexpr int kNodeLabelCapacity = 300;

// What a tree item stands for; it is the item's parameter, and freed with it.
struct ResourceTreeNode {
    ResourceNodeKind kind;
    union {
        ResourceForkReader* reader;      // of the fork
        const ResourceTreeNode* parent;  // of a type and a resource
    };
    TypeEntry type;            // of a type
    ReferenceEntry reference;  // of a resource
    char name[kNodeNameCapacity];
};

// Fills the tree with the fork and its types, in alphabetical order, and opens the fork. A type that cannot
// be read is left out.
void FillResourceTree(HWND tree, ResourceForkReader& reader);

// Fills a type's item with its resources when it has none yet: those without a name first, by their numbers,
// then the others by their names. A resource that cannot be read is left out.
void FillTypeItem(HWND tree, HTREEITEM item);

// What the item stands for; null for no item.
const ResourceTreeNode* NodeOf(HWND tree, HTREEITEM item);

// The label of the item; empty when there is none. `label` holds kNodeLabelCapacity bytes.
void GetNodeLabel(HWND tree, HTREEITEM item, char* label);

// Answers TVN_DELETEITEM.
void FreeNode(LPARAM node);

}  // namespace tidewell

#endif
