// A program that stands in for Explorer. It knows of the library what the registry says, and drives what is
// installed: with the shell's own data objects, folder chooser and property sheets.
//   explorer_host            makes all checks, in a folder below the current one; what the library remembers
//                            for the user stays
//   explorer_host --absent   checks that nothing of the library is registered
// It tells what it checks; its last line is "N checks, M failed". A 32-bit one has no display here: it shows
// no menu, no folder chooser and no property sheet.
#define DOCTEST_CONFIG_IMPLEMENT
#include "support/explorer_files_windows.h"
#include "support/modal_windows.h"
#include "support/shell_menu_windows.h"

#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <doctest/doctest.h>

#include <cstdio>
#include <functional>

namespace {

// With fewer checks something has been left out.
constexpr int kLeastChecks = kHasDisplay ? 300 : 250;
constexpr int kAbsentChecks = 14;

constexpr char kApproved[] = "Software\\Microsoft\\Windows\\CurrentVersion\\Shell Extensions\\Approved";
constexpr char kSettings[] = "Software\\Brinefield Software\\Tidewell\\CurrentVersion";
constexpr char kExtractSetting[] = "MBinExtractPath", kCreateSetting[] = "MBinCreatePath";
constexpr UINT kView = 0, kCreate = 1, kExtract = 2;

Text remembered(const char* name) {
    return registryText(HKEY_CURRENT_USER, kSettings, name);
}

// Answers to the modal windows of a command, one after the other.
using Answer = std::function<void(HWND)>;

Answer pressing(int button) {
    return [=](HWND window) { press(window, button); };
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
        CAPTURE(Text(row.list));
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
        void* outer = extension.get();
        CHECK(CoCreateInstance(id, extension.get(), CLSCTX_INPROC_SERVER, IID_IUnknown, &outer) ==
              CLASS_E_NOAGGREGATION);
        CHECK(outer == nullptr);
        CoFreeUnusedLibraries();
        CHECK(GetModuleHandleA(kLibrary) != nullptr);
    }
}

TEST_CASE_FIXTURE(Explorer, "The menu offers what the selection is good for") {
    struct Row {
        std::vector<std::wstring> files;
        Text items;
        Text dragged;
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

TEST_CASE_FIXTURE(Explorer, "The viewer comes up with the file's name, and goes") {
    const auto note = select({L"NOTE.TXT"});
    invoke(ShellMenu(note.get()), kView, window, {[](HWND viewer) {
               CHECK(windowText(viewer).find("NOTE.TXT") != Text::npos);
               press(viewer, IDOK);
           }});
}

#ifdef _WIN64

namespace {

HMENU shownMenu = nullptr;

void CALLBACK watchMenu(HWND, UINT, UINT_PTR, DWORD) {
    HWND const window = FindWindowA("#32768", nullptr);
    if (!IsWindowVisible(window)) return;
    shownMenu = reinterpret_cast<HMENU>(SendMessageA(window, MN_GETHMENU, 0, 0));
    EndMenu();
}

// The menu on the screen, over the window, until it is seen there.
void track(const ShellMenu& menu, HWND owner) {
    const UINT_PTR timer = SetTimer(nullptr, 0, 20, watchMenu);
    SetForegroundWindow(owner);
    POINT point = {90, 70};
    ClientToScreen(owner, &point);
    TrackPopupMenu(menu.handle(), TPM_LEFTALIGN | TPM_RETURNCMD, point.x, point.y, 0, owner, nullptr);
    KillTimer(nullptr, timer);
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

}  // namespace

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

TEST_CASE_FIXTURE(Explorer, "The menu comes up on the screen") {
    const auto files = select({L"NOTE.TXT"});
    const ShellMenu menu(files.get());
    track(menu, window);
    CHECK(shownMenu == menu.handle());
}

#endif

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
    return kAbsentChecks;
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
    if (!kHasDisplay)
        std::printf("Without a display: no menu on the screen, no folder chooser, no property sheet\n");
    const int least = mode == "--absent" ? checkAbsence() : checkAll();
    if (checks < least) std::printf("something was left out: at least %d checks are to be made\n", least);
    std::printf("%d checks, %d failed\n", checks, failures);
    return failures == 0 && checks >= least ? 0 : 1;
}
