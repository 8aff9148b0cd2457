// The file menu's commands, over the files of a PC and over the system's own folders.
#include "convert/conversion_batch.h"
#include "pc/volumes/volume.h"
#include "shellext/dropped_files.h"
#include "shellext/file_context_menu.h"
#include "support/archive_writer.h"
#include "support/data_object_windows.h"
#include "support/modal_windows.h"
#include "support/real_file.h"
#include "support/registry_value_windows.h"
#include "support/test_module_windows.h"
#include "ui/shell_folders.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace tidewell;

namespace {

using Paths = std::vector<std::string>;

constexpr UINT kFirst = 0x7000;

std::string real(const char* name) {
    char path[MAX_PATH];
    GetFullPathNameA(name, sizeof path, path, nullptr);
    return path;
}

// The object in the hands of the shell, with a menu between two items of the shell's own.
class ShellMenu {
  public:
    // `folder`: where the files were dragged; empty for their own menu.
    template <typename Text = std::string>
    explicit ShellMenu(const std::vector<Text>& files, const std::string& folder = "") : files_(files) {
        for (const char* const item : {"Open", "Properties"})
            AppendMenuA(menu_, MF_STRING, 1, item);
        if (!folder.empty()) REQUIRE(SUCCEEDED(PathToItemList(nullptr, folder.c_str(), folder_)));
        CHECK(extension_->Initialize(folder_.get(), &files_, nullptr) == S_OK);
    }
    ~ShellMenu() {
        DestroyMenu(menu_);
        CHECK(extension_->Release() == 0);
    }

    FilesObject& files() { return files_; }
    FileContextMenu* operator->() const { return extension_; }

    HRESULT query() const { return extension_->QueryContextMenu(menu_, 1, kFirst, 0x7FFF, CMF_NORMAL); }

    // What was added, with each item's number: "0 View Mac Resources...", "(...)" when it cannot be chosen.
    std::string items() const {
        std::string texts;
        const int count = GetMenuItemCount(menu_);
        for (int i = 1; i + 1 < count; ++i) {
            char text[100] = "";
            GetMenuStringA(menu_, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
            const UINT state = GetMenuState(menu_, static_cast<UINT>(i), MF_BYPOSITION);
            const std::string item = std::to_string(GetMenuItemID(menu_, i) - kFirst) + ' ' + text;
            CHECK((state == MF_ENABLED || state == MF_GRAYED));
            texts += (texts.empty() ? "" : "|") + (state == 0 ? item : '(' + item + ')');
        }
        return texts;
    }

    HRESULT invoke(UINT_PTR command, HWND owner = nullptr) const {
        CMINVOKECOMMANDINFO invocation = {};
        invocation.cbSize = sizeof invocation;
        invocation.hwnd = owner;
        invocation.lpVerb = reinterpret_cast<const char*>(command);
        return extension_->InvokeCommand(&invocation);
    }

  private:
    FilesObject files_;
    FileContextMenu* const extension_ = new FileContextMenu;
    HMENU const menu_ = CreatePopupMenu();
    ItemList folder_;
};

// What the menu of the files shows.
template <typename Text = std::string>
std::string menuOf(const std::vector<Text>& files, const std::string& folder = "") {
    const ShellMenu menu(files, folder);
    const HRESULT result = menu.query();
    const std::string items = menu.items();
    CHECK(result == (items.empty() ? 0 : 3));
    return items;
}

const MacFile kWithout = {.data = patternOf(10), .hasResource = false};
const MacFile kWith = {.data = patternOf(10), .resource = patternOf(10)};

}  // namespace

TEST_CASE("The menu offers what the selection is good for") {
    TestPc pc;
    pc.addDrive('L', pc::makeMacVolume(pc.folder().host(), "/M"));
    for (const char* const path : {"F:\\Photo.BIN", "F:\\b.txt", "F:\\x.hqx", "N:\\bare", "F:\\a.b.bin"})
        writeFile(path, bytesOf("data"));
    writeMacFile("M:\\with", kWith);
    writeMacFile("M:\\without", kWithout);
    writeMacFile("M:\\with.bin", kWith);
    writeMacFile("N:\\with", kWith);
    writeMacFile("N:\\without", kWithout);
    const std::string view = "0 View Mac Resources...", create = "1 Create MacBinary File...",
                      creates = "1 Create MacBinary Files...", extract = "2 Extract Original Mac File...",
                      extracts = "2 Extract Original Mac Files...";
    struct Row {
        Paths files;
        std::string items;
    };
    const Row rows[] = {
        {{"F:\\Photo.BIN"}, extract},
        {{"F:\\x.hqx", "F:\\Photo.BIN"}, extracts},
        {{"F:\\Photo.BIN", "F:\\b.txt"}, ""},
        {{"F:\\b.txt", "F:\\Photo.BIN"}, ""},
        {{"F:\\missing.bin"}, ""},
        {{"F:\\Photo.BIN", "F:\\missing.bin"}, extracts},
        {{}, ""},
        // Only the first is looked at for its resources.
        {{"M:\\without", "M:\\with"}, '(' + view + ")|" + creates},
        {{"M:\\with"}, view + '|' + create},
        {{"M:\\with.bin"}, view + '|' + extract + '|' + create},
        {{"m:\\with", "L:\\with"}, view + '|' + creates},
        {{"M:\\with", "F:\\b.txt"}, view + '|' + creates},
        {{"F:\\b.txt", "M:\\with"}, ""},
        {{"N:\\with"}, view + '|' + create},
        {{"N:\\without"}, create},
        {{"N:\\bare"}, ""},
        {{"N:\\with", "F:\\b.txt"}, view + '|' + creates},
        {{"\\\\server\\share\\x.bin"}, ""},
        {{"M:\\with", "\\\\server\\share\\x.bin"}, view + '|' + creates},
    };
    for (const Row& row : rows) {
        CAPTURE(row.files);
        CHECK(menuOf(row.files) == row.items);
        std::vector<std::wstring> wide;
        for (const std::string& file : row.files)
            wide.emplace_back(file.begin(), file.end());
        CHECK(menuOf(wide) == row.items);
    }

    // The second byte of the character is a backslash, or a bar.
    pc.setCodePage(932);
    for (const char* const path : {"F:\\\x94\x5C.bin", "F:\\\x83\x7C.HQX"}) {
        writeFile(path, bytesOf("data"));
        CHECK(menuOf(Paths{path}) == extract);
    }
    pc.setCodePage(1252);

    const std::string here = "C:\\windows";
    CHECK(menuOf(Paths{"F:\\x.hqx"}, here) == "2 Extract Original Mac File Here");
    CHECK(menuOf(Paths{"M:\\with.bin", "F:\\x.hqx"}, here) ==
          "2 Extract Original Mac Files Here|1 Create MacBinary Files Here");
    CHECK(menuOf(Paths{"M:\\with"}, here) == "1 Create MacBinary File Here");
}

TEST_CASE("A volume that the selection is on is asked once") {
    TestPc pc;
    writeMacFile("M:\\a", kWithout);
    const ShellMenu menu(Paths{"M:\\a", "m:\\b", "M:\\c", "M:\\d"});
    pc.journal().clear();
    CHECK(menu.query() == 3);
    // For the kind of the first file's volume, and for all.
    CHECK(pc.journal().countOn("CreateFileA", "M:\\{4DD19184-ACE2-11CF-BBF2-444553540000}") == 2);
}

TEST_CASE(
    "Without a list of files, a folder's path, memory or a text, commands are left out and all is given "
    "back") {
    TestPc pc;
    const ModuleState library;
    writeMacFile("M:\\with.bin", kWith);
    {
        ShellMenu menu(Paths{"M:\\with.bin"});
        menu.files().result = DV_E_FORMATETC;
        CHECK(menu.query() == S_OK);
        menu.files().result = S_OK;
        menu.files().medium = TYMED_NULL;
        CHECK(menu.query() == S_OK);
        menu.files().medium = TYMED_HGLOBAL;
        CHECK(menu.query() == 3);
    }
    for (const Paths& paths :
         {Paths{"M:\\with.bin", "M:\\" + std::string(kPathCapacity - 3, 'x'), "M:\\with.bin"},
          Paths{"M:\\with.bin", std::string(9000, 'x')}}) {
        const ShellMenu menu(paths);
        CHECK(menu.query() == S_OK);
        for (const UINT command : {0, 1, 2})
            CHECK(menu.invoke(command) == S_OK);  // of nothing
    }
    for (int n = 1; n <= 2; ++n) {
        const ShellMenu menu(Paths{"M:\\with.bin", "M:\\with.bin"});
        pc.faults().failMemory(n);
        CHECK(menu.query() == S_OK);
        pc.faults().clear();
        CHECK(menu.items().empty());
    }
    {
        // The folder of all drives has no path.
        ITEMIDLIST* drives = nullptr;
        REQUIRE(SUCCEEDED(SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, &drives)));
        const ItemList owner(drives);
        FilesObject files(Paths{"M:\\with.bin"});
        auto* const extension = new FileContextMenu;
        CHECK(extension->Initialize(drives, &files, nullptr) == S_OK);
        HMENU const menu = CreatePopupMenu();
        CHECK(extension->QueryContextMenu(menu, 0, 1, 100, 0) == E_FAIL);
        CHECK(GetMenuItemCount(menu) == 0);
        DestroyMenu(menu);
        extension->Release();
    }
    const HINSTANCE own = ResourceModule;
    ResourceModule = GetModuleHandleA("kernel32.dll");
    CHECK(menuOf(Paths{"M:\\with.bin"}).empty());
    const LoadedLibrary german("TIDEWELL_DE.DLL");
    ResourceModule = german;
    CHECK(menuOf(Paths{"M:\\with.bin"}).find("Mac") != std::string::npos);
    char help[100] = "";
    CHECK(ShellMenu(Paths{})->GetCommandString(1, GCS_HELPTEXTA, nullptr, help, sizeof help) == S_OK);
    CHECK(help != std::string("Creates a MacBinary file containing the selected Mac file."));
    ResourceModule = own;
    CHECK(pc.nothingHeld());
}

TEST_CASE("A name that the code page lacks is reached by its short one, and never taken for another file's") {
    const ModuleState library;
    const RealFile other("A.BIN", "of another name");
    const std::wstring name = L"\x100.bin";
    CloseHandle(CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    WCHAR full[MAX_PATH] = L"", shorter[MAX_PATH] = L"";
    GetFullPathNameW(name.c_str(), MAX_PATH, full, nullptr);
    GetShortPathNameW(full, shorter, MAX_PATH);
    for (const bool there : {true, false}) {
        FilesObject files(std::vector<std::wstring>{full});
        PathList paths;
        CHECK(AddDroppedFiles(&files, paths) == there);
        const std::wstring wanted = shorter;
        if (there) CHECK(paths.Next(nullptr) == std::string(wanted.begin(), wanted.end()));
        DeleteFileW(full);
    }
}

TEST_CASE("A list of files that does not end where its memory does is not read past it") {
    for (const size_t size : {size_t{0}, sizeof(DROPFILES) - 1, sizeof(DROPFILES), sizeof(DROPFILES) + 9}) {
        for (const DWORD start : {0u, 20u, 21u, 30u, ~0u}) {
            for (const BOOL wide : {FALSE, TRUE}) {
                FilesObject files(Paths{});
                const DROPFILES header = {start, {}, FALSE, wide};
                files.bytes =
                    std::string(reinterpret_cast<const char*>(&header), sizeof header) + "C:\\xxxxxx";
                files.bytes.resize(size, 'x');
                PathList paths;
                CHECK_FALSE(AddDroppedFiles(&files, paths));
            }
        }
    }
}

TEST_CASE("Each command has its help in both forms, as much as fits, and nothing else") {
    const ModuleState library;
    TestPc pc;
    const ShellMenu menu(Paths{});
    const std::string helps[] = {"Views and extracts the Mac resources from the selected file.",
                                 "Creates a MacBinary file containing the selected Mac file.",
                                 "Extracts the original Mac file from the selected MacBinary file."};
    for (UINT_PTR command = 0; command < 3; ++command) {
        const std::string& help = helps[command];
        char text[200];
        WCHAR wide[200];
        for (const size_t size : {size_t{1}, size_t{10}, help.size(), help.size() + 1, size_t{200}}) {
            std::fill(std::begin(text), std::end(text), '?');
            std::fill(std::begin(wide), std::end(wide), L'?');
            const auto room = static_cast<UINT>(size);
            CHECK(menu->GetCommandString(command, GCS_HELPTEXTA, nullptr, text, room) == S_OK);
            CHECK(menu->GetCommandString(command, GCS_HELPTEXTW, nullptr, reinterpret_cast<char*>(wide),
                                         room) == S_OK);
            const std::string wanted = help.substr(0, size - 1);
            CHECK(text == wanted);
            CHECK(wide == std::wstring(wanted.begin(), wanted.end()));
            if (size < 200) CHECK((text[size] == '?' && wide[size] == L'?'));
        }
    }
    char text[] = "untouched";
    for (const UINT kind : {GCS_VERBA, GCS_VERBW, GCS_VALIDATEA, GCS_VALIDATEW})
        CHECK(menu->GetCommandString(3, kind, nullptr, text, sizeof text) == S_OK);
    CHECK(menu->GetCommandString(3, GCS_HELPTEXTA, nullptr, text, sizeof text) == E_INVALIDARG);
    CHECK(menu->GetCommandString(~UINT_PTR{0}, GCS_HELPTEXTW, nullptr, text, sizeof text) == E_INVALIDARG);
    CHECK(menu->GetCommandString(0, GCS_HELPTEXTA, nullptr, text, 0) == S_OK);
    CHECK(text == std::string("untouched"));
}

TEST_CASE("A command is run by its number only, on the selection and for the menu's window") {
    TestPc pc;
    const ModuleState library;
    const RegistryValue setting(HKEY_CURRENT_USER, "", "MBinExtractPath");
    const RegistryValue createSetting(HKEY_CURRENT_USER, "", "MBinCreatePath");
    const TestWindow owner("Explorer", WS_POPUP | WS_VISIBLE);
    writeMacFile("M:\\with", kWith);
    writeMacFile("M:\\without", kWithout);
    const RealFile first("ONE"), second("TWO"), packed("WITH.BIN");
    writeFile("F:\\1.bin", macBinaryFile({.file = kWith, .name = bytesOf("ONE")}));
    writeFile("F:\\2.bin", macBinaryFile({.file = kWith, .name = bytesOf("TWO")}));
    const std::string here = real(".");
    {
        const ShellMenu menu(Paths{"F:\\1.bin", "F:\\2.bin"}, here);
        CHECK(menu.query() == 3);
        CHECK(menu->InvokeCommand(nullptr) == E_INVALIDARG);
        CHECK(menu.invoke(3) == E_INVALIDARG);
        CHECK(menu.invoke(0xFFFF) == E_INVALIDARG);
        CHECK(menu.invoke(reinterpret_cast<UINT_PTR>("open")) == E_FAIL);
#ifdef _WIN64
        CHECK(menu.invoke(UINT_PTR{0x100000002}) == E_FAIL);
#endif
        CHECK(GetFileAttributesA(first.path()) == INVALID_FILE_ATTRIBUTES);
        CHECK(menu.invoke(2, owner) == S_OK);
        CHECK(first.bytes() == std::string(kWith.data.begin(), kWith.data.end()));
        CHECK(second.bytes() == first.bytes());
        CHECK(setting.text() == here + '\0');
    }
    {
        const ShellMenu menu(Paths{"M:\\with"}, here);
        CHECK(menu.query() == 3);
        CHECK(menu.invoke(1, owner) == S_OK);
        CHECK(packed.bytes().size() == 128 + 128 + 128);
    }
    {
        // The shell may let go of the object while its command runs.
        const ShellMenu menu(Paths{"M:\\without", "F:\\1.bin"});
        CHECK(menu.query() == 3);
        menu->AddRef();
        const ModalDriver driver([&](HWND box) {
            CHECK(GetWindow(box, GW_OWNER) == owner);
            CHECK(windowText(box) == "Tidewell 98 Error");
            CHECK(labelTexts(box).find("'without'") != std::string::npos);
            CHECK(menu->Release() == 2);
            press(box, IDOK);
        });
        CHECK(menu.invoke(0, owner) == S_OK);
        CHECK(driver.shown() == 1);
    }
    CHECK(pc.nothingHeld());
}
