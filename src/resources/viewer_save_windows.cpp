// Save As: the selected resource, or the whole fork.
#include "messages.h"
#include "res/resource.h"
#include "resources/fork_file.h"
#include "resources/proposed_name.h"
#include "resources/save_dialog.h"
#include "resources/save_resource.h"
#include "resources/viewer_dialog.h"
#include "ui/busy_cursor.h"
#include "ui/message_box.h"

namespace tidewell {

namespace {

constexpr DWORD kHexTextFilter = 2;

// Holds the file that is looked at, so that nothing takes its place, by whatever name it is chosen.
OwnedFile holdViewedFile(const OpenViewer& viewer) {
    char path[kPathCapacity];
    GetFileOfFork(viewer.reader.Path(), path);
    OwnedFile file;
    OpenForReading(path, file);
    return file;
}

ErrorCode saveResource(HWND dialog, const ResourceTreeNode& node) {
    OpenViewer& viewer = ViewerOf(dialog);
    char file[kPathCapacity];
    GetLongFileOfFork(viewer.reader.Path(), file);
    char name[UINT8_MAX];
    const bool named = viewer.reader.ReadName(node.reference, name, sizeof name) && *name != '\0';
    char path[kPathCapacity];
    ProposeResourceName(FileNamePart(file), node.parent->type.type, named ? name : nullptr,
                        node.reference.id(), path);
    SaveQuestion question = {dialog, IDS_RESOURCE_FILTER, "", 0, path, 0};
    if (!AskWhereToSave(question)) return question.error;
    const BusyCursor busy(dialog);
    const OwnedFile held = holdViewedFile(viewer);
    const ResourceForm form =
        question.filter == kHexTextFilter ? ResourceForm::hexText : ResourceForm::binary;
    return SaveResource(viewer.reader, node.reference, form, path);
}

ErrorCode saveFork(HWND dialog) {
    const OpenViewer& viewer = ViewerOf(dialog);
    char file[kPathCapacity];
    GetLongFileOfFork(viewer.reader.Path(), file);
    char path[kPathCapacity];
    ProposeForkName(FileNamePart(file), path);
    SaveQuestion question = {dialog, IDS_FORK_FILTER, "rsf", 0, path, 0};
    if (!AskWhereToSave(question)) return question.error;
    const BusyCursor busy(dialog);
    const OwnedFile held = holdViewedFile(viewer);
    return SaveFork(viewer.reader.Path(), dialog, path);
}

}  // namespace

void SaveItem(HWND dialog, HTREEITEM item) {
    const ResourceTreeNode* const node = NodeOf(TreeOf(dialog), item);
    if (!node || node->kind == ResourceNodeKind::type) return;
    OpenViewer& viewer = ViewerOf(dialog);
    viewer.saving = true;
    const ErrorCode error =
        node->kind == ResourceNodeKind::resource ? saveResource(dialog, *node) : saveFork(dialog);
    viewer.saving = false;
    if (error != 0) ShowErrorMessage(dialog, error, MSG_SAVE_FAILED, IDS_ERROR_TITLE, MB_OK | MB_ICONHAND);
}

}  // namespace tidewell
