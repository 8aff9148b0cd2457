// What the viewer tells of the selected item.
#include "messages.h"
#include "res/resource.h"
#include "resources/resource_type.h"
#include "resources/viewer_dialog.h"
#include "ui/number_format.h"
#include "ui/window_text.h"

namespace tidewell {

namespace {

constexpr UINT_PTR kDetailsTimer = 1138;
constexpr UINT kDetailsDelay = 300;  // ms

constexpr struct {
    int control;
    uint8_t bit;
} kAttributeBoxes[] = {
    {IDC_VIEWER_SYSTEM_HEAP, kResourceSystemHeap}, {IDC_VIEWER_PURGEABLE, kResourcePurgeable},
    {IDC_VIEWER_LOCKED, kResourceLocked},          {IDC_VIEWER_PROTECTED, kResourceProtected},
    {IDC_VIEWER_PRELOAD, kResourcePreload},
};

void enable(HWND dialog, int control, bool enabled) {
    EnableWindow(GetDlgItem(dialog, control), enabled);
}

void showAttributes(HWND dialog, uint8_t attributes) {
    for (const auto& box : kAttributeBoxes)
        CheckDlgButton(dialog, box.control, (attributes & box.bit) != 0 ? BST_CHECKED : BST_UNCHECKED);
}

void showType(HWND dialog, const char* text) {
    SetDlgItemTextA(dialog, IDC_VIEWER_TYPE, text);
    enable(dialog, IDC_VIEWER_TYPE_CAPTION, *text != '\0');
}

void showTypeDescription(HWND dialog, const TypeEntry& type) {
    char text[kTypeDescriptionCapacity] = "";
    GetTypeDescription(type.type, text, sizeof text);
    showType(dialog, text);
}

void showFork(HWND dialog) {
    char label[kNodeLabelCapacity];
    HWND const tree = TreeOf(dialog);
    GetNodeLabel(tree, TreeView_GetSelection(tree), label);
    showType(dialog, label);
    const DWORD size = ViewerOf(dialog).reader.ForkSize();
    const bool known = size != INVALID_FILE_SIZE;
    enable(dialog, IDC_VIEWER_SIZE_CAPTION, known && SetDlgItemSize(dialog, IDC_VIEWER_SIZE, size));
}

void showTypeNode(HWND dialog, const TypeEntry& type) {
    showTypeDescription(dialog, type);
    enable(dialog, IDC_VIEWER_SIZE_CAPTION,
           SetWindowTextFromMessage(GetDlgItem(dialog, IDC_VIEWER_SIZE), MSG_RESOURCE_COUNT,
                                    type.lastIndex + 1));
}

void showResource(HWND dialog, const ResourceTreeNode& node) {
    showTypeDescription(dialog, node.parent->type);
    uint32_t length = 0;
    const bool known = ViewerOf(dialog).reader.ReadDataLength(node.reference, length) != 0;
    enable(dialog, IDC_VIEWER_SIZE_CAPTION, known && SetDlgItemSize(dialog, IDC_VIEWER_SIZE, length));
    showAttributes(dialog, node.reference.attributes);
}

}  // namespace

void ExpectDetails(HWND dialog, const ResourceTreeNode* node) {
    const bool resource = node && node->kind == ResourceNodeKind::resource;
    enable(dialog, IDC_VIEWER_SAVE, resource || (node && node->kind == ResourceNodeKind::fork));
    enable(dialog, IDC_VIEWER_VIEW, resource);
    enable(dialog, IDC_VIEWER_ATTRIBUTES_CAPTION, resource);
    SetDlgItemTextA(dialog, IDC_VIEWER_SIZE, "");
    enable(dialog, IDC_VIEWER_SIZE_CAPTION, false);
    showType(dialog, "");
    SetTimer(dialog, kDetailsTimer, kDetailsDelay, nullptr);
}

void ShowDetails(HWND dialog, UINT_PTR timer) {
    if (timer != kDetailsTimer) return;
    KillTimer(dialog, kDetailsTimer);
    HWND const tree = TreeOf(dialog);
    const ResourceTreeNode* const node = NodeOf(tree, TreeView_GetSelection(tree));
    if (!node) return;
    showAttributes(dialog, 0);
    switch (node->kind) {
    case ResourceNodeKind::fork: showFork(dialog); break;
    case ResourceNodeKind::type: showTypeNode(dialog, node->type); break;
    case ResourceNodeKind::resource: showResource(dialog, *node); break;
    }
}

}  // namespace tidewell
