// The classes of the library, under which the setup program registers them with the shell.
#include "module/class_factory.h"
#include "shellext/drive_context_menu.h"
#include "shellext/file_context_menu.h"
#include "shellext/property_sheet_ext.h"
#include "tidewell.h"

namespace tidewell {

namespace {

template <typename Object>
RefCountedObject* make() {
    return new Object;
}

struct ShellClass {
    CLSID id;
    ObjectMaker make;
};

constexpr ShellClass kClasses[] = {
    {{0x4DD19180, 0xACE2, 0x11CF, {0xBB, 0xF2, 0x44, 0x45, 0x53, 0x54, 0, 0}}, make<PropertySheetExt>},
    {{0x4DD19181, 0xACE2, 0x11CF, {0xBB, 0xF2, 0x44, 0x45, 0x53, 0x54, 0, 0}}, make<DriveContextMenu>},
    {{0x4DD19182, 0xACE2, 0x11CF, {0xBB, 0xF2, 0x44, 0x45, 0x53, 0x54, 0, 0}}, make<FileContextMenu>},
};

}  // namespace

}  // namespace tidewell

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    for (const tidewell::ShellClass& shellClass : tidewell::kClasses) {
        if (shellClass.id == classId)
            return tidewell::HandOut(new tidewell::ClassFactory(shellClass.make), iid, object);
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}
