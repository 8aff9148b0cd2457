#include "resources/resource_tree.h"

#include "base/heap.h"
#include "module/module_state.h"
#include "res/resource.h"
#include "resources/resource_type.h"
#include "ui/strings.h"

#include <windowsx.h>

namespace tidewell {

namespace {

ResourceTreeNode* newNode(ResourceNodeKind kind) {
    auto* const node = NewRecord<ResourceTreeNode>();
    if (node) node->kind = kind;
    return node;
}

// Where an item goes. Its neighbour is named because the first trees look through all items for the last one.
struct ItemPlace {
    HTREEITEM parent;
    const ResourceTreeNode* parentNode;
    HTREEITEM after;
};

// The tree owns the node from now on. The next item is placed behind this one.
HTREEITEM insert(HWND tree, ItemPlace& place, char* label, ResourceTreeNode* node) {
    TVINSERTSTRUCTA insertion = {};
    insertion.hParent = place.parent;
    insertion.hInsertAfter = place.after;
    insertion.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_CHILDREN;
    insertion.item.pszText = label;
    insertion.item.lParam = reinterpret_cast<LPARAM>(node);
    insertion.item.cChildren = node->kind != ResourceNodeKind::resource ? 1 : 0;
    const auto item = reinterpret_cast<HTREEITEM>(
        SendMessageA(tree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insertion)));
    if (item)
        place.after = item;
    else
        FreeNode(reinterpret_cast<LPARAM>(node));
    return item;
}

void insertType(HWND tree, ItemPlace& place, const TypeEntry& type) {
    ResourceTreeNode* const node = newNode(ResourceNodeKind::type);
    if (!node) return;
    node->parent = place.parentNode;
    node->type = type;
    char label[kTypeCodeCapacity];
    FormatTypeCode(type.type, label);
    insert(tree, place, label, node);
}

void insertResource(HWND tree, ItemPlace& place, ResourceForkReader& reader,
                    const ReferenceEntry& reference) {
    ResourceTreeNode* const node = newNode(ResourceNodeKind::resource);
    if (!node) return;
    node->parent = place.parentNode;
    node->reference = reference;
    // The node is zero-filled: a name that cannot be read is empty.
    reader.ReadName(reference, node->name, kNodeNameCapacity);
    char label[kPrintedCapacity];
    wsprintfA(label, *node->name != '\0' ? "%s (%d)" : "%s(%d)", node->name, reference.id());
    insert(tree, place, label, node);
}

int CALLBACK compareNodes(LPARAM a, LPARAM b, LPARAM /*unused*/) {
    const auto& first = *reinterpret_cast<const ResourceTreeNode*>(a);
    const auto& second = *reinterpret_cast<const ResourceTreeNode*>(b);
    const bool firstNamed = *first.name != '\0';
    const bool secondNamed = *second.name != '\0';
    if (firstNamed != secondNamed) return firstNamed ? 1 : -1;
    const int names = firstNamed ? lstrcmpiA(first.name, second.name) : 0;
    return names != 0 ? names : first.reference.id() - second.reference.id();
}

}  // namespace

void FillResourceTree(HWND tree, ResourceForkReader& reader) {
    ResourceTreeNode* const node = newNode(ResourceNodeKind::fork);
    const LocalText label(LoadStringAlloc(ResourceModule, IDS_RESOURCE_FORK));
    if (!node || !label) return FreeNode(reinterpret_cast<LPARAM>(node));
    node->reader = &reader;
    ItemPlace root = {TVI_ROOT, nullptr, TVI_FIRST};
    HTREEITEM const fork = insert(tree, root, label.get(), node);
    if (!fork) return;
    ItemPlace place = {fork, node, TVI_FIRST};
    for (unsigned i = 0; i < reader.TypeCount(); ++i) {
        TypeEntry type;
        if (reader.ReadTypeEntry(static_cast<uint16_t>(i), type)) insertType(tree, place, type);
    }
    // At once: to look for each one's place takes long where a fork claims many.
    TreeView_SortChildren(tree, fork, FALSE);
    TreeView_Expand(tree, fork, TVE_EXPAND);
}

void FillTypeItem(HWND tree, HTREEITEM item) {
    const ResourceTreeNode* const type = NodeOf(tree, item);
    if (!type || type->kind != ResourceNodeKind::type || TreeView_GetChild(tree, item)) return;
    ResourceForkReader& reader = *type->parent->reader;
    ItemPlace place = {item, type, TVI_FIRST};
    SetWindowRedraw(tree, FALSE);
    for (unsigned i = 0; i <= type->type.lastIndex; ++i) {
        ReferenceEntry reference;
        if (reader.ReadReferenceEntry(type->type, static_cast<uint16_t>(i), reference))
            insertResource(tree, place, reader, reference);
    }
    TVSORTCB sorting = {item, compareNodes, {}};
    TreeView_SortChildrenCB(tree, &sorting, FALSE);
    SetWindowRedraw(tree, TRUE);
}

const ResourceTreeNode* NodeOf(HWND tree, HTREEITEM item) {
    TVITEMA wanted = {};
    wanted.mask = TVIF_PARAM;
    wanted.hItem = item;
    if (!item || !SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&wanted))) return nullptr;
    return reinterpret_cast<const ResourceTreeNode*>(wanted.lParam);
}

void GetNodeLabel(HWND tree, HTREEITEM item, char* label) {
    *label = '\0';
    TVITEMA wanted = {};
    wanted.mask = TVIF_TEXT;
    wanted.hItem = item;
    wanted.pszText = label;
    wanted.cchTextMax = kNodeLabelCapacity;
    SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&wanted));
}

void FreeNode(LPARAM node) {
    DeleteRecord(reinterpret_cast<void*>(node));
}

}  // namespace tidewell
