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

// Writes the name of a new file for the resource.
void proposeName(OpenViewer& viewer, const ResourceTreeNode& resource, const char* fileName, char* proposal) {
    char name[UINT8_MAX];
    const bool named = viewer.reader.ReadName(resource.reference, name, sizeof name) && *name != '\0';
    ProposeResourceName(fileName, resource.parent->type.type, named ? name : nullptr, resource.reference.id(),
                        proposal);
}

ErrorCode save(HWND dialog, const ResourceTreeNode& node) {
    OpenViewer& viewer = ViewerOf(dialog);
    const bool fork = node.kind == ResourceNodeKind::fork;
    char file[kPathCapacity];
    GetLongFileOfFork(viewer.reader.Path(), file);
    char path[kPathCapacity];
    if (fork)
        ProposeForkName(FileNamePart(file), path);
    else
        proposeName(viewer, node, FileNamePart(file), path);
    SaveQuestion question = {
        dialog, fork ? UINT{IDS_FORK_FILTER} : UINT{IDS_RESOURCE_FILTER}, fork ? "rsf" : "", 0, path, 0};
    if (!AskWhereToSave(question)) return question.error;

    const BusyCursor busy(dialog);
    const OwnedFile held = holdViewedFile(viewer);
    if (fork) return SaveFork(viewer.reader.Path(), dialog, path);
    const bool hexText = question.filter == kHexTextFilter;
    return SaveResource(viewer.reader, node.reference, hexText ? ResourceForm::hexText : ResourceForm::binary,
                        path);
}

}  // namespace

void SaveItem(HWND dialog, HTREEITEM item) {
    const ResourceTreeNode* const node = NodeOf(TreeOf(dialog), item);
    if (!node || node->kind == ResourceNodeKind::type) return;
    OpenViewer& viewer = ViewerOf(dialog);
    viewer.saving = true;
    const ErrorCode error = save(dialog, *node);
    viewer.saving = false;
    if (error != 0) ShowErrorMessage(dialog, error, MSG_SAVE_FAILED, IDS_ERROR_TITLE, MB_OK | MB_ICONHAND);
}

}  // namespace tidewell
