#include "shellext/dropped_files.h"

#include <shellapi.h>

namespace tidewell {

namespace {

HDROP dropOf(const STGMEDIUM& medium) {
    return medium.tymed == TYMED_HGLOBAL ? static_cast<HDROP>(medium.hGlobal) : nullptr;
}

}  // namespace

DroppedFiles::DroppedFiles(IDataObject* object) {
    FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    // What a failure leaves there is nobody's.
    if (object && FAILED(object->GetData(&format, &medium_))) medium_ = {};
}

DroppedFiles::~DroppedFiles() {
    if (medium_.tymed != TYMED_NULL) ReleaseStgMedium(&medium_);
}

UINT DroppedFiles::Count() const {
    const HDROP drop = dropOf(medium_);
    return drop ? DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0) : 0;
}

// The system cuts a path that does not fit, which then names another file.
bool DroppedFiles::GetPath(UINT index, char* path) const {
    const UINT length = DragQueryFileA(dropOf(medium_), index, nullptr, 0);
    return length != 0 && length < kPathCapacity &&
           DragQueryFileA(dropOf(medium_), index, path, kPathCapacity) != 0;
}

}  // namespace tidewell
