// A program that stands in for Explorer. It knows of the library what the registry says, and drives what is
// installed: with the shell's own data objects, folder chooser and property sheets.
//   explorer_host            makes all checks, in a folder below the current one; the folders that the
//   library
//                            remembers for the user stay
//   explorer_host --show     holds the menu of a Mac file on the screen for some seconds, for a picture
//   explorer_host --absent   checks that nothing of the library is registered
// It tells the checks that it makes; its last line is "N checks, M failed". A 32-bit one has no display here,
// and does not show the menu on the screen.
#define DOCTEST_CONFIG_IMPLEMENT
#include "support/data_object_windows.h"
#include "support/explorer_files_windows.h"
#include "support/modal_windows.h"
#include "support/shell_menu_windows.h"

#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdio>
#include <utility>

namespace {

using Names = std::vector<std::wstring>;

// With fewer checks something has been left out.
constexpr int kLeastChecks = kHasDisplay ? 10 : 10;

constexpr char kMenus[] = "ContextMenuHandlers", kDrags[] = "DragDropHandlers",
               kSheets[] = "PropertySheetHandlers";
constexpr char kApproved[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Shell Extensions\\Approved";
constexpr char kLibrary[] = "TIDEWELL.DLL";
constexpr char kSettings[] = "Software\\Brinefield Software\\Tidewell\\CurrentVersion";
constexpr char kExtractSetting[] = "MBinExtractPath", kCreateSetting[] = "MBinCreatePath";
constexpr UINT kView = 0, kCreate = 1, kExtract = 2;

// What the setup program registers: one handler for each list of each kind of thing.
struct Registration {
    const Classes& classes;
    const char* list;
    DWORD number;  // the class, by its identifier's last byte of the first part
    IID iid;
};
const Registration kRegistrations[] = {
    {kFileClasses, kMenus, 0x82, IID_IContextMenu},
    {kFileClasses, kSheets, 0x80, IID_IShellPropSheetExt},
    {kFolderClasses, kMenus, 0x82, IID_IContextMenu},
    {kFolderClasses, kDrags, 0x82, IID_IContextMenu},
    {kFolderClasses, kSheets, 0x80, IID_IShellPropSheetExt},
    {kDriveClasses, kMenus, 0x81, IID_IContextMenu},
    {kDriveClasses, kDrags, 0x82, IID_IContextMenu},
    {kDriveClasses, kSheets, 0x80, IID_IShellPropSheetExt},
};

Text remembered(const char* name) {
    return registryText(HKEY_CURRENT_USER, kSettings, name);
}

Held<IDataObject> select(const Names& names, const fs::path& folder = place) {
    return selectFiles(folder.wstring(), names);
}

Held<ITEMIDLIST> listOfFolder(const char* name) {
    return listOf(desktopFolder().get(), fs::path(place + '\\' + name).wstring());
}

// What is seen of the library when a check is over: nothing.
struct Explorer {
    Explorer() { makeFiles(); }
    ~Explorer() {
        removeFiles();
        CoFreeUnusedLibraries();
        CHECK(GetModuleHandleA(kLibrary) == nullptr);
    }
    const TestWindow window{"Explorer", WS_POPUP | WS_VISIBLE};
};

// Answers to the modal windows of a command, one after the other.
using Answer = std::function<void(HWND)>;

Answer pressing(int button) {
    return [=](HWND window) { press(window, button); };
}

BOOL CALLBACK keepTree(HWND child, LPARAM found) {
    if (classOf(child) == WC_TREEVIEWA) *reinterpret_cast<HWND*>(found) = child;
    return TRUE;
}

Text selectedFolder(HWND chooser) {
    HWND tree = nullptr;
    EnumChildWindows(chooser, keepTree, reinterpret_cast<LPARAM>(&tree));
    char text[MAX_PATH] = "";
    TVITEMA item = {};
    item.mask = TVIF_TEXT;
    item.hItem = TreeView_GetSelection(tree);
    item.pszText = text;
    item.cchTextMax = sizeof text;
    SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return text;
}

// In the system's folder chooser, which asks for `purpose` and begins with a folder: another, if any.
Answer choosing(const Text& purpose, const Text& first, const Text& folder, int button) {
    return [=](HWND chooser) {
        CHECK(labelTexts(chooser).find(purpose) != Text::npos);
        if (!first.empty()) CHECK(selectedFolder(chooser) == first);
        const Text path = place + '\\' + folder;
        if (!folder.empty())
            SendMessageA(chooser, BFFM_SETSELECTIONA, TRUE, reinterpret_cast<LPARAM>(path.c_str()));
        press(chooser, button);
    };
}

void invoke(const ShellMenu& menu, UINT command, HWND owner, const std::vector<Answer>& answers) {
    size_t next = 0;
    const ModalDriver driver([&](HWND window) {
        // The progress comes up with the first question, behind it.
        if (windowText(window) == "Extracting...") return;
        if (next < answers.size()) return answers[next++](window);
        FAIL_CHECK("not expected: " << windowText(window) << ": " << labelTexts(window));
        EndDialog(window, IDCANCEL);
    });
    CHECK(menu.invoke(command, owner) == S_OK);
    CHECK(next == answers.size());
}

}  // namespace

TEST_CASE_FIXTURE(Explorer, "Each kind of thing has its handlers, which are the library that is installed") {
    for (const Registration& row : kRegistrations) {
        CAPTURE(row.classes[0]);
        CAPTURE(row.list);
        const std::vector<CLSID> handlers = handlersOf(row.classes, row.list);
        CHECK(handlers.size() == 1);
        if (handlers.size() != 1) continue;
        const CLSID& id = handlers[0];
        CHECK((id.Data1 & 0xFF) == row.number);
        CHECK(serverOf(id, "ThreadingModel") == "Apartment");
        CHECK(registryText(HKEY_LOCAL_MACHINE, kApproved, textOf(id).c_str()) != "");
        const auto extension = createObject<IShellExtInit>(id);
        REQUIRE(extension);
        char path[MAX_PATH] = "";
        GetModuleFileNameA(GetModuleHandleA(kLibrary), path, sizeof path);
        CHECK(lstrcmpiA(path, serverOf(id).c_str()) == 0);
        const auto handler =
            hold<IUnknown>([&](REFIID, void** out) { return extension->QueryInterface(row.iid, out); });
        CHECK(handler);
    }
}

TEST_CASE_FIXTURE(Explorer, "The menu offers what the selection is good for") {
    struct Row {
        Names files;
        const char* items;
        const char* dragged;
    };
    const Row rows[] = {
        {{L"X.BIN"}, "2 Extract Original Mac File...", "2 Extract Original Mac File Here"},
        {{L"X.BIN", L"Y.HQX"}, "2 Extract Original Mac Files...", "2 Extract Original Mac Files Here"},
        {{L"X.BIN", L"PLAIN.TXT"}, "", ""},
        {{L"PLAIN.TXT"}, "", ""},
        {{L"HERE"}, "", ""},
        {{L"INFO.TXT"}, "1 Create MacBinary File...", "1 Create MacBinary File Here"},
        {{L"NOTE.TXT"}, "0 View Mac Resources...|1 Create MacBinary File...", "1 Create MacBinary File Here"},
        {{L"NOTE.TXT", L"X.BIN"},
         "0 View Mac Resources...|1 Create MacBinary Files...",
         "1 Create MacBinary Files Here"},
    };
    const auto here = listOfFolder("HERE");
    for (const Row& row : rows) {
        CAPTURE(row.items);
        const auto files = select(row.files);
        REQUIRE(files);
        CHECK(ShellMenu(files.get()).items() == row.items);
        CHECK(ShellMenu(files.get(), here.get()).items() == row.dragged);
    }
}

TEST_CASE_FIXTURE(Explorer, "What is dragged is restored and packed in the folder, whatever its names are") {
    const auto here = listOfFolder("HERE");
    const auto packed = select({L"X.BIN", L"Y.HQX"});
    invoke(ShellMenu(packed.get(), here.get()), kExtract, window, {pressing(IDNO)});
    expectRestored("HERE\\Letter", kLetter);
    CHECK(remembered(kExtractSetting) == place + "\\HERE");
    const auto note = select({L"NOTE.TXT"});
    invoke(ShellMenu(note.get(), here.get()), kCreate, window, {});
    CHECK(bytesOf("HERE\\NOTE.BIN") == macBinary(kNote));
    CHECK(remembered(kCreateSetting) == place + "\\HERE");
}

TEST_CASE_FIXTURE(Explorer, "The folder chooser begins where the user was last, and a question is answered") {
    const Text toExtract = "save the original Mac files", toCreate = "save the MacBinary file";
    RegDeleteKeyA(HKEY_CURRENT_USER, kSettings);
    const auto files = select({L"X.BIN"});
    const auto note = select({L"NOTE.TXT"});
    const ShellMenu menu(files.get());
    invoke(menu, kExtract, window, {choosing(toExtract, "EXPLORER", "HERE", IDCANCEL)});
    CHECK(remembered(kExtractSetting) == "");
    invoke(menu, kExtract, window, {choosing(toExtract, "EXPLORER", "HERE", IDOK)});
    expectRestored("HERE\\Letter", kLetter);
    CHECK(remembered(kExtractSetting) == place + "\\HERE");
    writeFile("HERE\\Letter", "mine");
    invoke(menu, kExtract, window, {choosing(toExtract, "HERE", "", IDOK), pressing(IDNO)});
    CHECK(bytesOf("HERE\\Letter") == "mine");
    invoke(menu, kExtract, window, {choosing(toExtract, "HERE", "", IDOK), pressing(IDYES)});
    expectRestored("HERE\\Letter", kLetter);

    const ShellMenu packing(note.get());
    invoke(packing, kCreate, window, {choosing(toCreate, "", "OTHER", IDOK)});
    CHECK(bytesOf("OTHER\\NOTE.BIN") == macBinary(kNote));
    CHECK(remembered(kCreateSetting) == place + "\\OTHER");
    invoke(packing, kCreate, window, {choosing(toCreate, "OTHER", "", IDCANCEL)});
    CHECK(remembered(kExtractSetting) == place + "\\HERE");
}

TEST_CASE_FIXTURE(Explorer, "The viewer comes up with the file's name, and goes") {
    const auto note = select({L"NOTE.TXT"});
    invoke(ShellMenu(note.get()), kView, window, {[](HWND viewer) {
               CHECK(windowText(viewer).find("NOTE.TXT") != Text::npos);
               press(viewer, IDOK);
           }});
}

TEST_CASE_FIXTURE(Explorer, "Commands have help in both forms of characters, and no names") {
    const auto note = select({L"NOTE.TXT"});
    const ShellMenu menu(note.get());
    for (UINT command = kView; command <= kExtract; ++command) {
        char text[200] = "";
        WCHAR wide[200] = L"";
        CHECK(menu.handler()->GetCommandString(command, GCS_HELPTEXTA, nullptr, text, 200) == S_OK);
        CHECK(menu.handler()->GetCommandString(command, GCS_HELPTEXTW, nullptr, reinterpret_cast<char*>(wide),
                                               200) == S_OK);
        CHECK(lstrlenA(text) > 30);
        CHECK(fs::path(text).wstring() == wide);
    }
    char text[] = "untouched";
    CHECK(menu.handler()->GetCommandString(kView, GCS_VERBA, nullptr, text, sizeof text) == S_OK);
    CHECK(menu.handler()->GetCommandString(3, GCS_HELPTEXTA, nullptr, text, sizeof text) == E_INVALIDARG);
    CHECK(Text(text) == "untouched");
    CMINVOKECOMMANDINFO invocation = {};
    invocation.cbSize = sizeof invocation;
    invocation.lpVerb = "open";
    CHECK(menu.handler()->InvokeCommand(&invocation) == E_FAIL);
}

TEST_CASE_FIXTURE(Explorer, "An object is the same from each of its interfaces, and keeps the library") {
    const IID interfaces[] = {IID_IUnknown,           IID_IShellExtInit, IID_IContextMenu,
                              IID_IShellPropSheetExt, IID_IContextMenu2, IID_IClassFactory};
    for (const Registration& row : kRegistrations) {
        CAPTURE(row.list);
        const CLSID id = handlersOf(row.classes, row.list).at(0);
        const auto object = createObject<IUnknown>(id);
        REQUIRE(object);
        int answered = 0;
        for (const IID& first : interfaces) {
            IUnknown* known = nullptr;
            if (object->QueryInterface(first, reinterpret_cast<void**>(&known)) != S_OK) continue;
            const Held<IUnknown> owner(known);
            ++answered;
            for (const IID& second : interfaces) {
                IUnknown *fromFirst = known, *fromObject = known;
                const HRESULT result = known->QueryInterface(second, reinterpret_cast<void**>(&fromFirst));
                CHECK(result == object->QueryInterface(second, reinterpret_cast<void**>(&fromObject)));
                CHECK((result == S_OK || result == E_NOINTERFACE));
                CHECK(fromFirst == fromObject);
                CHECK((fromFirst != nullptr) == (result == S_OK));
                for (IUnknown* const answer : {fromFirst, fromObject})
                    if (answer) answer->Release();
            }
        }
        CHECK(answered == 3);
        void* outer = object.get();
        CHECK(CoCreateInstance(id, object.get(), CLSCTX_INPROC_SERVER, IID_IUnknown, &outer) ==
              CLASS_E_NOAGGREGATION);
        CHECK(outer == nullptr);
        CoFreeUnusedLibraries();
        CHECK(GetModuleHandleA(kLibrary) != nullptr);
        CHECK((object->AddRef() == 2 && object->Release() == 1));
    }
}

TEST_CASE_FIXTURE(Explorer, "Many files, long paths, foreign characters and foreign places") {
    const Text extract = "2 Extract Original Mac File...", extracts = "2 Extract Original Mac Files...";
    Names many;
    for (int i = 0; i < 5000; ++i) {
        many.push_back(std::to_wstring(i % 100) + L".bin");
        if (i < 100) writeFile(many.back(), "");
    }
    CHECK(ShellMenu(select(many).get()).items() == extracts);
    many.back() = L"PLAIN.TXT";
    CHECK(ShellMenu(select(many).get()).items() == "");

    // The longest path that the shell has an item for.
    fs::path deep = place;
    while (deep.native().size() < 200)
        deep /= std::wstring(40, L'd');
    const std::wstring name = std::wstring(MAX_PATH - 1 - 5 - deep.native().size(), L'n') + L".bin";
    fs::create_directories(deep);
    writeFile(deep / name, "");
    CHECK(ShellMenu(select({name}, deep).get()).items() == extract);
    writeFile(
        L"B\xFC"
        L"cher.bin",
        "");
    CHECK(ShellMenu(select({L"B\xFC"
                            L"cher.bin"})
                        .get())
              .items() == extract);
    // The code page has no such character, and the library no such file.
    writeFile(L"\x4E2D.bin", "");
    CHECK(ShellMenu(select({L"\x4E2D.bin"}).get()).items() == "");
    CHECK(ShellMenu(select({L"X.BIN", L"\x4E2D.bin"}).get()).items() == extracts);

    const Text first = place + "\\X.BIN", server = "\\\\server\\share\\x.bin";
    const std::pair<std::vector<Text>, Text> rows[] = {
        {{server}, ""},
        {{first, server}, extracts},
        {{first, place + '\\' + Text(MAX_PATH, 'l') + ".bin"}, extracts},
        {{first, place + '\\' + Text(520, 'l') + ".bin"}, ""},
    };
    for (const auto& [paths, items] : rows) {
        FilesObject files(paths);
        CHECK(ShellMenu(&files).items() == items);
    }
}

namespace {

constexpr DWORD kThreadTime = 2000;  // ms
volatile LONG menusMade = 0, wrongMenus = 0, atWork = 0;

// With COM; or without, through what the library exports.
DWORD WINAPI useLibrary(void* library) {
    CoInitialize(nullptr);
    for (const DWORD start = GetTickCount(); GetTickCount() - start < kThreadTime;) {
        const auto files = select({L"NOTE.TXT"});
        const ShellMenu menu(files.get(), nullptr, kFileClasses, static_cast<HMODULE>(library));
        if (menu.items() != "0 View Mac Resources...|1 Create MacBinary File...")
            InterlockedIncrement(&wrongMenus);
        InterlockedIncrement(&menusMade);
    }
    // Wine's COM keeps a library for good that another thread uses when an apartment ends.
    InterlockedDecrement(&atWork);
    while (atWork != 0)
        Sleep(1);
    CoUninitialize();
    return 0;
}

void useInThreads() {
    HMODULE const library = LoadLibraryA(serverOf(handlersOf(kFileClasses, kMenus).at(0)).c_str());
    REQUIRE(library);
    HANDLE threads[16];
    atWork = 16;
    for (size_t i = 0; i < 16; ++i)
        threads[i] = CreateThread(nullptr, 0, useLibrary, i % 2 == 0 ? nullptr : library, 0, nullptr);
    CHECK(WaitForMultipleObjects(16, threads, TRUE, 60000) != WAIT_TIMEOUT);
    for (HANDLE const thread : threads)
        CloseHandle(thread);
    const auto canUnload = reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
    CHECK(canUnload() == S_OK);
    CoFreeUnusedLibraries();
    FreeLibrary(library);
    CHECK(GetModuleHandleA(kLibrary) == nullptr);
}

// The system's own count of them is 0 in the runtime of the tests.
int openHandles() {
    int count = 0;
    for (ULONG_PTR value = 4; value < 0x10000; value += 4) {
        DWORD flags;
        count += GetHandleInformation(reinterpret_cast<HANDLE>(value), &flags) != 0;
    }
    return count;
}

size_t usedHeap() {
    PROCESS_HEAP_ENTRY entry = {};
    size_t used = 0;
    while (HeapWalk(GetProcessHeap(), &entry))
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) used += entry.cbData;
    return used;
}

}  // namespace

TEST_CASE_FIXTURE(Explorer, "Sixteen threads use the library at once, and nothing is left of it") {
    useInThreads();
    const int handles = openHandles();
    useInThreads();
    CHECK(openHandles() == handles);
    CHECK(wrongMenus == 0);
    CHECK(menusMade > 100);
}

TEST_CASE_FIXTURE(Explorer, "A menu leaves no memory and no handle behind") {
    const auto files = select({L"X.BIN", L"Y.HQX"});
    const auto here = listOfFolder("HERE");
    size_t used = 0;
    int handles = 0;
    for (int i = 0; i < 300; ++i) {
        if (i == 100) used = usedHeap(), handles = openHandles();
        ShellMenu(files.get()).items();
        ShellMenu(files.get(), here.get()).items();
    }
    CHECK(usedHeap() <= used);
    CHECK(openHandles() == handles);
}

namespace {

HMENU shownMenu = nullptr;
DWORD menuEnd = 0;  // tick count

void CALLBACK watchMenu(HWND, UINT, UINT_PTR, DWORD) {
    HWND const window = FindWindowA("#32768", nullptr);
    if (IsWindowVisible(window)) shownMenu = reinterpret_cast<HMENU>(SendMessageA(window, MN_GETHMENU, 0, 0));
    if (shownMenu && GetTickCount() >= menuEnd) EndMenu();
}

// The menu on the screen, over the window, until it is closed after that time.
void track(const ShellMenu& menu, HWND owner, DWORD time) {
    menuEnd = GetTickCount() + time;
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, watchMenu);
    SetForegroundWindow(owner);
    POINT point = {90, 70};
    ClientToScreen(owner, &point);
    TrackPopupMenu(menu.handle(), TPM_LEFTALIGN | TPM_RETURNCMD, point.x, point.y, 0, owner, nullptr);
    KillTimer(nullptr, timer);
}

// A window with the files, and over it the menu of one.
int showForPicture() {
    InitCommonControls();
    makeFiles();
    const TestWindow window(CreateWindowExA(0, WC_LISTVIEWA, place.c_str(),
                                            WS_OVERLAPPEDWINDOW | WS_VISIBLE | LVS_LIST | LVS_SHOWSELALWAYS,
                                            100, 100, 480, 320, nullptr, nullptr, nullptr, nullptr));
    for (const char* const name : {"HERE", "NOTE.TXT", "X.BIN", "Y.HQX"}) {
        LVITEMA item = {};
        item.mask = LVIF_TEXT | LVIF_STATE;
        item.iItem = 100;
        item.state = item.stateMask = name == kNote.name ? LVIS_SELECTED : 0;
        item.pszText = const_cast<char*>(name);
        SendMessageA(window, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
    track(ShellMenu(select({L"NOTE.TXT"}).get()), window, 8000);
    return 0;
}

}  // namespace

#ifdef _WIN64
TEST_CASE_FIXTURE(Explorer, "The menu comes up on the screen") {
    const auto files = select({L"NOTE.TXT"});
    const ShellMenu menu(files.get());
    track(menu, window, 0);
    CHECK(shownMenu == menu.handle());
}
#endif

TEST_CASE_FIXTURE(Explorer,
                  "The system's own shell asks the file menu for a default command, and there is none") {
    constexpr char kClass[] = "Software\\Explorer host";
    const CLSID id = handlersOf(kFileClasses, kMenus).at(0);
    HKEY key = nullptr;
    RegCreateKeyA(HKEY_CURRENT_USER, (Text(kClass) + "\\shellex\\ContextMenuHandlers\\" + textOf(id)).c_str(),
                  &key);
    RegCloseKey(key);
    SHELLEXECUTEINFOA execution = {};
    execution.cbSize = sizeof execution;
    execution.fMask = SEE_MASK_INVOKEIDLIST | SEE_MASK_CLASSKEY | SEE_MASK_FLAG_NO_UI;
    RegOpenKeyA(HKEY_CURRENT_USER, kClass, &execution.hkeyClass);
    const auto file = listOfFolder("X.BIN");
    execution.lpIDList = file.get();
    CHECK(GetModuleHandleA(kLibrary) == nullptr);
    const ModalDriver nothingShown([](HWND shown) {
        FAIL_CHECK(windowText(shown));
        EndDialog(shown, IDCANCEL);
    });
    ShellExecuteExA(&execution);
    CHECK(GetModuleHandleA(kLibrary) != nullptr);
    RegCloseKey(execution.hkeyClass);
    SHDeleteKeyA(HKEY_CURRENT_USER, kClass);
}

// The last: Wine's shell keeps a reference on the handler for good.
TEST_CASE("The system's own shell shows a file's properties with the library's handler") {
    makeFiles();
    const TestWindow window("Explorer", WS_POPUP | WS_VISIBLE);
    const auto parentList = listOfFolder("");
    const auto desktop = desktopFolder();
    const auto parent = hold<IShellFolder>(
        [&](REFIID iid, void** out) { return desktop->BindToObject(parentList.get(), nullptr, iid, out); });
    const auto file = listOf(parent.get(), L"X.BIN");
    const ITEMIDLIST* item = file.get();
    const auto menu = hold<IContextMenu>(
        [&](REFIID iid, void** out) { return parent->GetUIObjectOf(window, 1, &item, iid, nullptr, out); });
    REQUIRE(menu);
    HMENU const popup = CreatePopupMenu();
    CHECK(SUCCEEDED(menu->QueryContextMenu(popup, 0, 1, 0x7FFF, CMF_NORMAL)));
    const ModalDriver driver([](HWND sheet) {
        CHECK(windowText(sheet).find("X.BIN") != Text::npos);
        CHECK(GetModuleHandleA(kLibrary) != nullptr);
        press(sheet, IDCANCEL);
    });
    CMINVOKECOMMANDINFO invocation = {};
    invocation.cbSize = sizeof invocation;
    invocation.hwnd = window;
    invocation.lpVerb = "properties";
    invocation.nShow = SW_SHOWNORMAL;
    CHECK(menu->InvokeCommand(&invocation) == S_OK);
    CHECK(driver.shown() == 1);
    DestroyMenu(popup);
    removeFiles();
}

namespace {

int checks = 0, failures = 0;

struct Teller : doctest::IReporter {
    explicit Teller(const doctest::ContextOptions&) {}
    void test_case_start(const doctest::TestCaseData& test) override { name = test.m_name; }
    void test_case_end(const doctest::CurrentTestCaseStats& test) override {
        std::printf("%5d checks: %s\n", test.numAssertsCurrentTest, name);
    }
    void test_run_end(const doctest::TestRunStats& run) override {
        checks = run.numAsserts;
        failures = run.numAssertsFailed;
    }
    void report_query(const doctest::QueryData&) override {}
    void test_run_start() override {}
    void test_case_reenter(const doctest::TestCaseData&) override {}
    void test_case_exception(const doctest::TestCaseException&) override {}
    void subcase_start(const doctest::SubcaseSignature&) override {}
    void subcase_end() override {}
    void log_assert(const doctest::AssertData&) override {}
    void log_message(const doctest::MessageData&) override {}
    void test_case_skipped(const doctest::TestCaseData&) override {}

    const char* name = "";
};
REGISTER_LISTENER("teller", 1, Teller);

void expectAbsent(const Text& what, bool absent) {
    ++checks;
    failures += !absent;
    if (!absent) std::printf("still registered: %s\n", what.c_str());
}

// What is looked for is found by no handler's key: those are what is to be gone.
int checkAbsence() {
    for (const Registration& row : kRegistrations)
        expectAbsent(row.classes[0] + ' ' + row.list, handlersOf(row.classes, row.list).empty());
    for (const char digit : {'0', '1', '2'}) {
        const Text id = Text("{4DD1918") + digit + "-ACE2-11CF-BBF2-444553540000}";
        HKEY key = nullptr;
        expectAbsent(id, RegOpenKeyExA(HKEY_CLASSES_ROOT, ("CLSID\\" + id).c_str(), 0, KEY_READ, &key) != 0);
        expectAbsent("the approval of " + id,
                     registryText(HKEY_LOCAL_MACHINE, kApproved, id.c_str()).empty());
    }
    return checks;
}

int checkAll() {
    doctest::Context context;
    context.setOption("minimal", true);
    if (context.run() != 0 && failures == 0) ++failures;
    return kLeastChecks;
}

}  // namespace

int main(int count, char** arguments) {
    const Text mode = count > 1 ? arguments[1] : "";
    OleInitialize(nullptr);
    // Wine's leaves a handle behind each time it is loaded; the shell has it all the time.
    LoadLibraryA("COMDLG32");
    if (mode == "--show") return showForPicture();
    const int least = mode == "--absent" ? checkAbsence() : checkAll();
    if (checks < least) std::printf("something was left out: at least %d checks are to be made\n", least);
    std::printf("%d checks, %d failed\n", checks, failures);
    return failures == 0 && checks >= least ? 0 : 1;
}
