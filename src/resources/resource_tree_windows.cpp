#include "resources/resource_tree.h"

#include "module/module_state.h"
#include "res/resource.h"
#include "resources/resource_type.h"
#include "ui/strings.h"

#include <windowsx.h>

namespace tidewell {

namespace {

ResourceTreeNode* newNode(ResourceNodeKind kind, uint16_t index) {
    auto* const node = static_cast<ResourceTreeNode*>(
        HeapAlloc(GetProcessHeap(), HEAP_ZERO_MEMORY, sizeof(ResourceTreeNode)));
    if (!node) return nullptr;
    node->kind = kind;
    node->index = index;
    return node;
}

// Behind the other items. The tree owns the node from now on.
HTREEITEM insert(HWND tree, HTREEITEM parent, char* label, ResourceTreeNode* node) {
    TVINSERTSTRUCTA insertion = {};
    insertion.hParent = parent;
    insertion.hInsertAfter = TVI_LAST;
    insertion.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_CHILDREN;
    insertion.item.pszText = label;
    insertion.item.lParam = reinterpret_cast<LPARAM>(node);
    insertion.item.cChildren = node->kind != ResourceNodeKind::resource ? 1 : 0;
    const auto item = reinterpret_cast<HTREEITEM>(
        SendMessageA(tree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insertion)));
    if (!item) FreeNode(reinterpret_cast<LPARAM>(node));
    return item;
}

void insertType(HWND tree, HTREEITEM fork, uint16_t index, const TypeEntry& type) {
    ResourceTreeNode* const node = newNode(ResourceNodeKind::type, index);
    if (!node) return;
    node->parent = NodeOf(tree, fork);
    node->type = type;
    char label[kTypeCodeCapacity];
    FormatTypeCode(type.type, label);
    insert(tree, fork, label, node);
}

void insertResource(HWND tree, HTREEITEM typeItem, const ResourceTreeNode& type, ResourceForkReader& reader,
                    uint16_t index, const ReferenceEntry& reference) {
    ResourceTreeNode* const node = newNode(ResourceNodeKind::resource, index);
    if (!node) return;
    node->parent = &type;
    node->reference = reference;
    // The node is zero-filled: a name that cannot be read is empty.
    reader.ReadName(reference, node->name, kNodeNameCapacity);
    char label[kPrintedCapacity];
    wsprintfA(label, *node->name != '\0' ? "%s (%d)" : "%s(%d)", node->name, reference.id());
    insert(tree, typeItem, label, node);
}

int compareNumbers(int a, int b) {
    return a < b ? -1 : a > b ? 1 : 0;
}

int CALLBACK compareNodes(LPARAM a, LPARAM b, LPARAM /*unused*/) {
    const auto& first = *reinterpret_cast<const ResourceTreeNode*>(a);
    const auto& second = *reinterpret_cast<const ResourceTreeNode*>(b);
    const bool firstNamed = *first.name != '\0';
    const bool secondNamed = *second.name != '\0';
    if (firstNamed != secondNamed) return firstNamed ? 1 : -1;
    const int names = firstNamed ? lstrcmpiA(first.name, second.name) : 0;
    return names != 0 ? names : compareNumbers(first.reference.id(), second.reference.id());
}

}  // namespace

void FillResourceTree(HWND tree, ResourceForkReader& reader) {
    ResourceTreeNode* const node = newNode(ResourceNodeKind::fork, 0);
    const LocalText label(LoadStringAlloc(ResourceModule, IDS_RESOURCE_FORK));
    if (!node || !label) return FreeNode(reinterpret_cast<LPARAM>(node));
    node->reader = &reader;
    HTREEITEM const fork = insert(tree, TVI_ROOT, label.get(), node);
    if (!fork) return;
    for (unsigned i = 0; i < reader.TypeCount(); ++i) {
        TypeEntry type;
        if (reader.ReadTypeEntry(static_cast<uint16_t>(i), type))
            insertType(tree, fork, static_cast<uint16_t>(i), type);
    }
    // At once: to look for each one's place takes long where a fork claims many.
    TreeView_SortChildren(tree, fork, FALSE);
    TreeView_Expand(tree, fork, TVE_EXPAND);
}

void FillTypeItem(HWND tree, HTREEITEM item) {
    const ResourceTreeNode* const type = NodeOf(tree, item);
    if (!type || type->kind != ResourceNodeKind::type || TreeView_GetChild(tree, item)) return;
    ResourceForkReader& reader = *type->parent->reader;
    SetWindowRedraw(tree, FALSE);
    for (unsigned i = 0; i <= type->type.lastIndex; ++i) {
        ReferenceEntry reference;
        if (reader.ReadReferenceEntry(type->type, static_cast<uint16_t>(i), reference))
            insertResource(tree, item, *type, reader, static_cast<uint16_t>(i), reference);
    }
    TVSORTCB sorting = {item, compareNodes, 0};
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
    HeapFree(GetProcessHeap(), 0, reinterpret_cast<void*>(node));
}

}  // namespace tidewell
