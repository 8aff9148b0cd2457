#include "resources/save_dialog.h"

#include "base/path.h"
#include "module/module_state.h"
#include "res/resource.h"
#include "ui/strings.h"

#include <commdlg.h>

#include <cderr.h>

namespace tidewell {

bool AskWhereToSave(SaveQuestion& question) {
    const LocalText filter(LoadStringList(question.filterId));
    const LocalText title(LoadStringAlloc(ResourceModule, IDS_SAVE_RESOURCE));
    question.error = filter && title ? 0 : lastError();
    if (question.error != 0) return false;

    OPENFILENAMEA dialog = {};
    dialog.lStructSize = OPENFILENAME_SIZE_VERSION_400A;
    dialog.hwndOwner = question.owner;
    dialog.lpstrFilter = filter.get();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = question.path;
    dialog.nMaxFile = kPathCapacity;
    dialog.lpstrTitle = title.get();
    dialog.Flags = OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT;
    dialog.lpstrDefExt = question.extension;
    bool chosen = GetSaveFileNameA(&dialog) != 0;
    if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
        // Not every system takes every name that is proposed.
        *question.path = '\0';
        chosen = GetSaveFileNameA(&dialog) != 0;
    }
    question.filter = dialog.nFilterIndex;
    if (!chosen && CommDlgExtendedError() != 0) question.error = ERROR_GEN_FAILURE;
    return chosen;
}

}  // namespace tidewell
