#include "shellext/file_context_menu.h"

#include "convert/conversion_commands.h"
#include "module/module_state.h"
#include "res/resource.h"
#include "resources/viewer.h"
#include "shellext/dropped_files.h"
#include "shellext/file_menu_rules.h"
#include "ui/strings.h"

namespace tidewell {

namespace {

// The numbers of the commands.
constexpr UINT kView = 0;
constexpr UINT kCreate = 1;
constexpr UINT kExtract = 2;
constexpr UINT kCommandCount = 3;

struct Command {
    UINT help;
    void (*run)(HWND owner, const PathList& selection, const char* hereFolder);
};

constexpr Command kCommands[kCommandCount] = {
    {IDS_HELP_VIEW_RESOURCES, [](HWND owner, const PathList& selection,
                                 const char*) { ViewMacResources(owner, selection.Next(nullptr)); }},
    {IDS_HELP_CREATE_MACBINARY, CreateMacBinaryFiles},
    {IDS_HELP_EXTRACT, ExtractOriginalMacFiles},
};

// The wordings of a command: in the menu of files, and in that of files dragged to a folder.
struct MenuTexts {
    UINT one, several;
    UINT oneHere, severalHere;
};

constexpr MenuTexts kCreateTexts = {IDS_CREATE_FILE, IDS_CREATE_FILES, IDS_CREATE_FILE_HERE,
                                    IDS_CREATE_FILES_HERE};
constexpr MenuTexts kExtractTexts = {IDS_EXTRACT_FILE, IDS_EXTRACT_FILES, IDS_EXTRACT_FILE_HERE,
                                     IDS_EXTRACT_FILES_HERE};

UINT textOf(const MenuTexts& texts, bool one, bool here) {
    if (here) return one ? texts.oneHere : texts.severalHere;
    return one ? texts.one : texts.several;
}

bool insert(HMENU menu, UINT index, UINT number, UINT textId, UINT state) {
    const LocalText text(LoadStringAlloc(ResourceModule, textId));
    return text && InsertMenuA(menu, index, MF_BYPOSITION | MF_STRING | state, number, text.get());
}

// As much of a text as fits, in the form that the shell asks for.
void writeText(const char* text, bool wide, char* buffer, UINT size) {
    if (!wide) {
        lstrcpynA(buffer, text, static_cast<int>(size));
        return;
    }
    auto* const out = reinterpret_cast<WCHAR*>(buffer);
    const int room = static_cast<int>(size) - 1;
    int used = 0;
    for (int length = lstrlenA(text); used == 0 && room > 0 && length > 0; --length)
        used = MultiByteToWideChar(CP_ACP, 0, text, length, out, room);
    out[used] = L'\0';
}

}  // namespace

bool FileContextMenu::takeFolder() {
    if (!Folder()) return true;
    // A path that may have been cut, or had to do without some of its characters, is another's.
    if (SHGetPathFromIDListA(Folder(), folder_) && lstrlenA(folder_) < MAX_PATH - 1 && IsFolder(folder_))
        return true;
    *folder_ = '\0';
    return false;
}

// What cannot be taken whole is not taken at all: nothing is done to a part of what the user has selected.
bool FileContextMenu::takeSelection() {
    PathList lastFirst;
    if (!AddDroppedFiles(Selected(), lastFirst)) return false;
    selection_.TakeReversed(lastFirst);
    return selection_.Count() != 0;
}

// All go to the same place, so the last one that is inserted stands first.
HRESULT FileContextMenu::QueryContextMenu(HMENU menu, UINT index, UINT first, UINT, UINT) {
    if (!takeFolder()) return E_FAIL;
    if (!takeSelection()) return S_OK;
    ForkPathBuffers paths;
    GetForkPaths(selection_.Next(nullptr), paths);
    if (paths.dataLength == 0) return S_OK;

    const bool one = selection_.Count() == 1;
    const bool here = hereFolder() != nullptr;
    bool added = false;
    if (OffersPacking(selection_, paths))
        added |= insert(menu, index, first + kCreate, textOf(kCreateTexts, one, here), MF_ENABLED);
    if (OffersExtraction(selection_))
        added |= insert(menu, index, first + kExtract, textOf(kExtractTexts, one, here), MF_ENABLED);
    const Offer viewing = here ? Offer::none : OfferOfViewing(paths);
    if (viewing != Offer::none)
        added |= insert(menu, index, first + kView, IDS_VIEW_RESOURCES,
                        viewing == Offer::enabled ? MF_ENABLED : MF_GRAYED);
    return added ? MAKE_HRESULT(SEVERITY_SUCCESS, 0, kCommandCount) : S_OK;
}

HRESULT FileContextMenu::InvokeCommand(CMINVOKECOMMANDINFO* invocation) {
    if (!invocation) return E_INVALIDARG;
    if (!IS_INTRESOURCE(invocation->lpVerb)) return E_FAIL;
    const auto command = reinterpret_cast<UINT_PTR>(invocation->lpVerb);
    if (command >= kCommandCount) return E_INVALIDARG;
    if (selection_.Count() == 0) return S_OK;
    // A command lets messages through, and with them whoever might give the last reference back.
    AddRef();
    kCommands[command].run(invocation->hwnd, selection_, hereFolder());
    Release();
    return S_OK;
}

HRESULT FileContextMenu::GetCommandString(UINT_PTR command, UINT kind, UINT*, char* buffer, UINT size) {
    if ((kind & GCS_HELPTEXTA) == 0) return S_OK;
    if (command >= kCommandCount) return E_INVALIDARG;
    if (!buffer || size == 0) return S_OK;
    const LocalText text(LoadStringAlloc(ResourceModule, kCommands[command].help));
    writeText(text ? text.get() : "", (kind & GCS_UNICODE) != 0, buffer, size);
    return S_OK;
}

}  // namespace tidewell
