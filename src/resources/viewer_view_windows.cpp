// View: what a resource contains.
#include "messages.h"
#include "module/module_state.h"
#include "res/resource.h"
#include "resources/contents_dialog.h"
#include "resources/hex_dump.h"
#include "resources/resource_text.h"
#include "resources/viewer_dialog.h"
#include "ui/busy_cursor.h"
#include "ui/message_box.h"

namespace tidewell {

namespace {

// 537 lines, so that the dump stays within what an edit control takes on every system.
constexpr uint32_t kShownBytes = 8592;

// What the window shows, for as long as it is open.
struct Contents {
    PageBuffer dump;
    Picture picture;
    PageBuffer text;
};

// A text is longer than the dump of its first bytes can be.
PageBuffer readText(ResourceForkReader& reader, const ResourceTreeNode& node) {
    const ResourceType& type = node.parent->type.type;
    if (!IsTextType(type)) return {};
    uint32_t length = kMostTextData;
    const PageBuffer data = reader.ReadData(node.reference, length);
    return data ? ReadResourceText(type, data.data(), length) : PageBuffer();
}

// ERROR_HANDLE_EOF for a resource that lies outside the fork.
ErrorCode readContents(HWND dialog, HTREEITEM item, const ResourceTreeNode& node, ContentsRequest& request,
                       Contents& contents) {
    const BusyCursor busy(dialog);
    ResourceForkReader& reader = ViewerOf(dialog).reader;
    GetNodeLabel(TreeOf(dialog), item, request.label);
    request.type = node.parent->type;
    if (!reader.ReadDataLength(node.reference, request.fullLength)) return lastError();
    request.shownLength = kShownBytes;
    const PageBuffer data = reader.ReadData(node.reference, request.shownLength);
    if (!data) return lastError();
    contents.dump = HexDumpAlloc(data.data(), request.shownLength, nullptr);
    if (!contents.dump) return lastError();
    request.hexText = reinterpret_cast<const char*>(contents.dump.data());
    contents.picture = ReadPicture(reader, node.parent->type, node.reference);
    request.picture = &contents.picture;
    contents.text = readText(reader, node);
    if (contents.text) request.text = reinterpret_cast<const char*>(contents.text.data());
    return 0;
}

}  // namespace

void ViewItem(HWND dialog, HTREEITEM item) {
    const ResourceTreeNode* const node = NodeOf(TreeOf(dialog), item);
    if (!node || node->kind != ResourceNodeKind::resource) return;
    ContentsRequest request = {};
    Contents contents;
    ErrorCode error = readContents(dialog, item, *node, request, contents);
    if (error == 0 && DialogBoxParamA(ResourceModule, MAKEINTRESOURCEA(IDD_CONTENTS), dialog,
                                      ContentsProcedure, reinterpret_cast<LPARAM>(&request)) == -1)
        error = lastError();
    if (error != 0) ShowErrorMessage(dialog, error, MSG_VIEW_FAILED, IDS_ERROR_TITLE, MB_OK | MB_ICONHAND);
}

}  // namespace tidewell
