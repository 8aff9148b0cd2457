#include "resources/viewer.h"

#include "macfile/fork_paths.h"
#include "messages.h"
#include "module/module_state.h"
#include "res/resource.h"
#include "resources/viewer_dialog.h"
#include "ui/display_title.h"
#include "ui/message_box.h"

namespace tidewell {

volatile LONG OpenViewerCount = 0;

BOOL ViewMacResources(HWND owner, const char* path) {
    char title[kPathCapacity];
    GetDisplayTitle(path, title);
    ForkPathBuffers paths;
    GetForkPaths(path, paths);
    if (GetFileSizeByPath(paths.resourcePath) == 0) {
        MessageBoxFromTable(owner, MSG_NO_RESOURCES, IDS_ERROR_TITLE, MB_OK | MB_ICONHAND, title);
        return 0;
    }
    OpenViewer viewer;
    if (!viewer.reader.Open(paths.resourcePath)) {
        ShowErrorMessage(nullptr, lastError(), MSG_OPEN_FAILED, IDS_ERROR_TITLE, MB_OK | MB_ICONHAND, title);
        return 0;
    }
    InitCommonControls();
    InterlockedIncrement(&OpenViewerCount);
    const INT_PTR result = DialogBoxParamA(ResourceModule, MAKEINTRESOURCEA(IDD_VIEWER), owner,
                                           ViewerProcedure, reinterpret_cast<LPARAM>(&viewer));
    const ErrorCode error = lastError();
    InterlockedDecrement(&OpenViewerCount);
    if (result == -1)
        ShowErrorMessage(nullptr, error, MSG_OPEN_FAILED, IDS_ERROR_TITLE, MB_OK | MB_ICONHAND, title);
    return result > 0 ? 1 : 0;
}

}  // namespace tidewell
