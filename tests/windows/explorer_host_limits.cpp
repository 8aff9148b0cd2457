// What the installed library bears: strange selections, many threads, being unloaded; and Wine's own shell.
#include "support/data_object_windows.h"
#include "support/explorer_files_windows.h"

#include <windows.h>
#include <shellapi.h>
#include <shlobj.h>
#include <shlwapi.h>

#include <doctest/doctest.h>

#include <utility>

TEST_CASE_FIXTURE(Explorer, "Many files, long paths, foreign characters and foreign places") {
    const Text extract = "2 Extract Original Mac File...", extracts = "2 Extract Original Mac Files...";
    std::vector<std::wstring> many;
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
    // The code page has the first, and of the second only the short name.
    for (const std::wstring foreign : {L"\xFC.bin", L"\x4E2D.bin"}) {
        writeFile(foreign, "");
        CHECK(ShellMenu(select({foreign}).get()).items() == extract);
    }

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
    const auto canUnload = reinterpret_cast<HRESULT(WINAPI*)()>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllCanUnloadNow")));
    int inUse = 0;
    while (WaitForMultipleObjects(16, threads, TRUE, 10) == WAIT_TIMEOUT)
        inUse += canUnload() == S_FALSE;
    CHECK(inUse > 10);
    for (HANDLE const thread : threads)
        CloseHandle(thread);
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

#ifdef _WIN64
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
#endif
