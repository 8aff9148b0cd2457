// The conversion commands as a user has them: the folder that is proposed and remembered, the loss of Mac
// information, the progress window, and a box for each failure.
#include "convert/conversion_commands.h"

#include "messages.h"
#include "module/module_state.h"
#include "pc/devices/mac_volume_driver.h"
#include "res/resource.h"
#include "support/archive_writer.h"
#include "support/folder_chooser_windows.h"
#include "support/modal_windows.h"
#include "support/registry_value_windows.h"
#include "support/test_module_windows.h"
#include "ui/shell_folders.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

using Paths = std::vector<std::string>;

// A Mac CD as D:, a FAT disk as S:, and a Mac disk as T:, which the shell knows, too: it is the source tree,
// whose folder "tests" both have.
struct CommandPc : pc::Pc {
    CommandPc() {
        for (const char* const letter : {"D", "S", "T"})
            folder.makeFolder(letter);
        folder.makeFolder("T/tests");
        addDrive('D', pc::makeMacVolume(folder.host(), "/D"), pc::DriveType::cd);
        addDrive('E', nullptr, pc::DriveType::removable);
        addDrive('S', pc::makeFatVolume(folder.host(), "/S"));
        addDrive('T', pc::makeMacVolume(folder.host(), "/T"));
        addDevice(pc::kMacVolumeDriverName, pc::makeMacVolumeDriver(*this));
        folderChooser = {"T:\\tests"};
    }
    ~CommandPc() { CHECK(nothingHeld()); }

    MemoryFolder folder;
    const ModuleState library;
    const RegistryValue extractFolder{HKEY_CURRENT_USER, "", "MBinExtractPath"};
    const RegistryValue createFolder{HKEY_CURRENT_USER, "", "MBinCreatePath"};
    const TestWindow owner{"Explorer", WS_POPUP | WS_VISIBLE};
};

const MacFile kFile = {.data = patternOf(70000), .resource = patternOf(500)};

void writeArchives(int count) {
    for (int i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        writeFile("S:\\" + number + ".bin",
                  macBinaryFile({.file = kFile, .name = bytesOf("File " + number)}));
    }
}

using Command = void (*)(HWND owner, const PathList& selection, const char* hereFolder);

void choose(Command command, const CommandPc& pc, const Paths& files, const char* here = nullptr) {
    PathList list;
    for (auto path = files.rbegin(); path != files.rend(); ++path)
        list.Add(path->c_str());
    command(pc.owner, list, here);
}

bool isProgress(HWND window) {
    return GetDlgItem(window, IDC_PROGRESS_LINE1) != nullptr;
}

// A message box: its title, text and buttons; whose it is and which icon it has are checked.
std::string boxText(HWND box, LPCSTR icon) {
    if (kHasDisplay) CHECK(iconOf(box) == LoadIconA(nullptr, icon));
    std::string text = windowText(box) + '|' + labelTexts(box) + '|' + buttonTexts(box);
    std::erase(text, '\r');
    return text;
}

}  // namespace

TEST_CASE("Files go to the folder that is chosen, which the command proposes the next time") {
    CommandPc pc;
    writeArchives(2);
    choose(ExtractOriginalMacFiles, pc, {});
    CHECK(folderChooser.shown == 0);
    choose(ExtractOriginalMacFiles, pc, {"S:\\0.bin", "S:\\1.bin"});
    CHECK(folderChooser.owner == pc.owner);
    CHECK(folderChooser.title == "Select the folder where you want to save the original Mac files.");
    // A CD and a drive without a disk take no files.
    CHECK(folderChooser.selected == "T:\\");
    CHECK(readMacFile("T:\\tests\\File 0") == kFile);
    CHECK(readMacFile("T:\\tests\\File 1") == kFile);
    CHECK(pc.extractFolder.text() == std::string("T:\\tests") + '\0');

    // Nothing happens without a folder; the next proposal is the last choice, however it is written.
    DeleteFileA("T:\\tests\\File 0");
    pc.extractFolder.set(REG_SZ, std::string("t:/tests/.") + '\0');
    folderChooser = {};
    choose(ExtractOriginalMacFiles, pc, {"S:\\0.bin"});
    CHECK(folderChooser.selected == "T:\\tests");
    CHECK(!exists("T:\\tests\\File 0"));

    // Nowhere better: the folder of the first file, by its short name.
    pc.extractFolder.set(REG_SZ, std::string("T:\\gone") + '\0');
    pc.addDrive('T', pc::makeNtfsVolume(pc.folder.host(), "/T"));
    pc.folder.makeFolder("T/docs");
    for (const std::string folder : {"T:\\docs", "T:\\"}) {
        const std::string file = folder + "\\Some long name.bin";
        writeFile(file, bytesOf("?"));
        folderChooser = {};
        choose(ExtractOriginalMacFiles, pc, {file});
        CHECK(folderChooser.selected == folder);
    }
    CHECK(pc.extractFolder.text() == std::string("T:\\gone") + '\0');

    char desktop[MAX_PATH] = "";
    GetDesktopDirectoryPath(desktop);
    writeMacFile("D:\\Notes", kFile);
    folderChooser = {};
    choose(CreateMacBinaryFiles, pc, {"D:\\Notes"});
    CHECK(folderChooser.title == "Select the folder where you want to save the MacBinary file.");
    CHECK(folderChooser.owner == pc.owner);
    CHECK(folderChooser.selectedSize == sizeof(USHORT));
    CHECK(pc.createFolder.text().empty());
    for (int round = 1; round <= 2; ++round) {
        folderChooser = {"T:\\tests"};
        DeleteFileA("T:\\tests\\Notes.bin");
        choose(CreateMacBinaryFiles, pc, {"D:\\Notes"});
        CHECK(exists("T:\\tests\\Notes.bin"));
    }
    CHECK(folderChooser.selected == "T:\\tests");
    CHECK(pc.createFolder.text() == std::string("T:\\tests") + '\0');
}

TEST_CASE("Files that are dragged to a folder go there, and the folder is remembered") {
    CommandPc pc;
    writeArchives(1);
    writeMacFile("D:\\Notes", kFile);
    SetErrorMode(SEM_NOOPENFILEERRORBOX);
    choose(ExtractOriginalMacFiles, pc, {"S:\\0.bin"}, "T:\\");
    CHECK(SetErrorMode(0) == (SEM_NOOPENFILEERRORBOX | SEM_FAILCRITICALERRORS));
    CHECK(readMacFile("T:\\File 0") == kFile);
    CHECK(pc.extractFolder.text() == std::string("T:\\") + '\0');
    choose(CreateMacBinaryFiles, pc, {"D:\\Notes"}, "S:\\");
    CHECK(exists("S:\\Notes.bin"));
    CHECK(pc.createFolder.text() == std::string("S:\\") + '\0');
    CHECK(folderChooser.shown == 0);
}

TEST_CASE(
    "Without its question the extraction goes to the folder that would be proposed, a packing nowhere") {
    CommandPc pc;
    writeArchives(1);
    writeMacFile("D:\\Notes", kFile);
    const HINSTANCE own = ResourceModule;
    ResourceModule = GetModuleHandleA("kernel32.dll");
    choose(ExtractOriginalMacFiles, pc, {"S:\\0.bin"});
    choose(CreateMacBinaryFiles, pc, {"D:\\Notes"});
    // Nothing is lost that nobody has agreed to.
    choose(ExtractOriginalMacFiles, pc, {"S:\\0.bin"}, "S:\\");
    CHECK(!exists("S:\\File 0"));
    ResourceModule = own;
    CHECK(readMacFile("T:\\File 0") == kFile);
    CHECK(pc.createFolder.text().empty());
    CHECK(folderChooser.shown == 0);
}

TEST_CASE("A disk that keeps no Mac information gets files when the user agrees, once for all files") {
    for (const int answer : {IDNO, IDYES}) {
        CommandPc pc;
        writeArchives(2);
        const ModalDriver driver([&](HWND box) {
            CHECK(GetWindow(box, GW_OWNER) == pc.owner);
            CHECK(boxText(box, IDI_QUESTION) ==
                  "Tidewell 98|Some Mac-specific information will be lost because the file is not being "
                  "extracted to a Mac disk.\nDo you want to continue?|[&Yes*][&No]");
            press(box, answer);
        });
        choose(ExtractOriginalMacFiles, pc, {"S:\\0.bin", "S:\\1.bin"}, "S:\\");
        CHECK(driver.shown() == 1);
        CHECK(exists("S:\\File 1") == (answer == IDYES));
        CHECK(pc.extractFolder.text().empty() == (answer == IDNO));
    }
}

TEST_CASE("A failure is told over the progress window, which shows what is being done") {
    struct Row {
        Command command;
        Paths files;
        ErrorCode error;
        UINT icon;
        std::string title, text, buttons;
    };
    const Row rows[] = {
        {ExtractOriginalMacFiles,
         {"S:\\0.bin"},
         ERROR_DISK_FULL,
         IDI_EXTRACT,
         "Extracting...",
         "Unable to extract the original Mac file from '0.bin' to 'T:\\tests': ",
         "[&Retry*][Cancel]"},
        {ExtractOriginalMacFiles,
         {"S:\\0.bin", "S:\\1.bin"},
         ERROR_CRC,
         IDI_EXTRACT,
         "Extracting...",
         "Unable to extract the original Mac file from '0.bin' to 'T:\\tests': ",
         "[OK*][Cancel]"},
        {CreateMacBinaryFiles,
         {"D:\\0"},
         ERROR_CRC,
         IDI_CREATE_MACBINARY,
         "Creating MacBinary file...",
         "An error occurred while converting '0': ",
         "[OK*]"},
    };
    for (const Row& row : rows) {
        CommandPc pc;
        writeArchives(2);
        writeMacFile("D:\\0", kFile);
        const bool packs = row.command == CreateMacBinaryFiles;
        pc.faults().failAlways("WriteFile", packs ? "T:\\tests\\0.bin" : "T:\\tests\\File 0", row.error);
        char reason[300] = "";
        FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM, nullptr, row.error, 0, reason, sizeof reason, nullptr);
        std::string wanted = row.text + reason;
        std::erase(wanted, '\r');
        int boxes = 0;
        const ModalDriver driver([&](HWND box) {
            if (isProgress(box)) return;
            ++boxes;
            HWND const progress = GetWindow(box, GW_OWNER);
            REQUIRE(isProgress(progress));
            CHECK(IsWindowVisible(progress));
            CHECK(GetWindow(progress, GW_OWNER) == nullptr);
            CHECK(windowText(progress) == row.title);
            CHECK(windowText(GetDlgItem(progress, IDC_PROGRESS_LINE1)) == (packs ? "0" : "File 0"));
            if (kHasDisplay) CHECK(iconOf(progress) == LoadIconA(ModuleInstance, MAKEINTRESOURCEA(row.icon)));
            CHECK(boxText(box, IDI_EXCLAMATION) == "Tidewell 98 Error|" + wanted + '|' + row.buttons);
            pc.faults().clear();
            press(box, row.error == ERROR_DISK_FULL ? IDRETRY : IDOK);
        });
        choose(row.command, pc, row.files, "T:\\tests");
        CHECK(boxes == 1);
        CHECK(exists("T:\\tests\\File 0") == (row.error == ERROR_DISK_FULL));
        CHECK(exists("T:\\tests\\File 1") == (row.files.size() == 2));
    }
}

TEST_CASE("Cancel in the progress window during the second of five files ends all, and says no more") {
    CommandPc pc;
    writeArchives(5);
    writeMacFile("T:\\tests\\File 1", {.data = bytesOf("old")});
    int questions = 0;
    const ModalDriver driver([&](HWND window) {
        if (isProgress(window)) return;
        ++questions;
        CHECK(buttonTexts(window) == "[&Yes*][Yes to &All][&No][Cancel]");
        press(GetWindow(window, GW_OWNER), IDCANCEL);
        press(window, IDYES);
    });
    choose(ExtractOriginalMacFiles, pc, {"S:\\0.bin", "S:\\1.bin", "S:\\2.bin", "S:\\3.bin", "S:\\4.bin"},
           "T:\\tests");
    CHECK(questions == 1);
    CHECK(readMacFile("T:\\tests\\File 0") == kFile);
    for (const char* const file : {"T:\\tests\\File 1", "T:\\tests\\File 2", "T:\\tests\\File 4"})
        CHECK(!exists(file));
}

TEST_CASE("Who asks the thread to quit answers no question: what is there stays, and the batch ends") {
    CommandPc pc;
    writeArchives(2);
    const MacFile old = {.data = bytesOf("old")};
    writeMacFile("T:\\tests\\File 0", old);
    PostQuitMessage(7);
    choose(ExtractOriginalMacFiles, pc, {"S:\\0.bin", "S:\\1.bin"}, "T:\\tests");
    CHECK(readMacFile("T:\\tests\\File 0") == old);
    CHECK(!exists("T:\\tests\\File 1"));
    // It is still there for whom it is meant.
    MSG quit = {};
    CHECK((PeekMessageA(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE) && quit.wParam == 7));
}
