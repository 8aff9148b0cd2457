// Where a volume keeps the forks and the Finder information of a file.
#include "macfile/finder_info.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace tidewell;

namespace {

const std::string kResource = "{4DD19183-ACE2-11CF-BBF2-444553540000}";
const std::string kFinder = "{4DD19184-ACE2-11CF-BBF2-444553540000}";

void checkPaths(const std::string& path, const std::string& data, const std::string& resource,
                const std::string& finderInfo) {
    CAPTURE(path);
    ForkPathBuffers paths;
    GetForkPaths(path.c_str(), paths);
    CHECK(std::string(paths.dataPath) == data);
    CHECK(paths.dataLength == data.size());
    CHECK(std::string(paths.resourcePath) == resource);
    CHECK(paths.resourceLength == (resource.empty() ? 0 : resource.size() + 1));
    CHECK(std::string(paths.finderInfoPath) == finderInfo);
    CHECK(paths.finderInfoLength == (finderInfo.empty() ? 0 : finderInfo.size() + 1));
}

// "kind" or "error n", by the folder and by a file in it, which agree but for paths without a drive.
std::string kindOf(const std::string& folder) {
    VolumeKind kind = VolumeKindNtfs;
    VolumeKind ofFile = VolumeKindNtfs;
    const ErrorCode error = TellVolumeKindOfFolder(folder.c_str(), kind);
    const ErrorCode fileError = TellVolumeKindOfPath((folder + "\\file").c_str(), ofFile);
    if (folder[1] == ':') CHECK((error == fileError && kind == ofFile));
    return error != 0 ? "error " + std::to_string(error) : std::to_string(kind);
}

}  // namespace

TEST_CASE("Fork paths on the volumes of each kind") {
    TestPc pc;
    pc.folder().makeFolder("N/Long folder");
    pc.folder().makeFolder("M/Folder");
    const std::string shortForm = "N:\\LONGFO~1\\LONGNA~1.TXT";
    for (const char* file : {"N:\\Long folder\\Long name.txt", "M:\\Folder\\Long name.txt", "F:\\plain"})
        writeFile(file, {});
    checkPaths("N:\\Long folder\\Long name.txt", shortForm, shortForm + ":AFP_Resource",
               shortForm + ":AFP_AfpInfo");
    for (const std::string item : {"M:\\Folder\\Long name.txt", "M:\\Folder"})
        checkPaths(item, item, item + "\\" + kResource, item + "\\" + kFinder);
    checkPaths("M:\\", "M:\\", "M:\\" + kResource, "M:\\" + kFinder);
    checkPaths("F:\\plain", "F:\\plain", "", "");
    checkPaths("N:\\missing", "", "", "");
    CHECK(pc.nothingHeld());
}

TEST_CASE("A path in the data path's own buffer is kept as it is") {
    TestPc pc;
    ForkPathBuffers paths;
    std::strcpy(paths.dataPath, "N:\\Not there yet.txt");
    GetForkPaths(paths.dataPath, paths);
    CHECK(std::string(paths.dataPath) == "N:\\Not there yet.txt");
    CHECK(std::string(paths.resourcePath) == "N:\\Not there yet.txt:AFP_Resource");
    CHECK(paths.dataLength == 20);
}

TEST_CASE("A part whose path does not fit is not available") {
    TestPc pc;
    writeFile("M:\\file", {});
    ForkPathBuffers paths;
    paths.resourceLength = 20;
    GetForkPaths("M:\\file", paths);
    CHECK(paths.resourceLength == 0);
    CHECK(paths.resourcePath[0] == '\0');
    CHECK(paths.finderInfoLength != 0);

    ForkPathBuffers tight;
    tight.dataLength = 7;
    CHECK(FindForkPaths("M:\\file", tight) == ERROR_FILENAME_EXCED_RANGE);
    CHECK(tight.dataLength == 0);
    CHECK(tight.dataPath[0] == '\0');
    CHECK(tight.finderInfoLength == 0);
}

TEST_CASE("Fork paths are told from paths of files") {
    TestPc pc;
    for (const char* fork :
         {"C:\\a\\b:AFP_AfpInfo", "C:b:AFP_AfpInfo", "b::x", "M:\\a\\{4dd19184-ACE2-11CF-BBF2-444553540000}",
          "M:\\{4DD19183-ACE2-11CF-BBF2-444553540000}", "M:/a/{4DD19183-ACE2-11CF-BBF2-444553540000}. .",
          "C:/a/b:x"})
        CHECK_MESSAGE(IsForkPath(fork), fork);
    for (const char* file : {"C:\\a\\b.bin", "C:b.bin", "b.bin", "C:\\a:b\\c", "C:/a/b.bin", ""})
        CHECK_MESSAGE(!IsForkPath(file), file);
}

TEST_CASE("The kind of a volume") {
    TestPc pc;
    CHECK(kindOf("N:\\dir") == "2");
    CHECK(kindOf("M:\\") == "1");
    CHECK(kindOf("F:\\" + std::string(300, 'd')) == "0");
    CHECK(kindOf("Mouse") == "0");
    pc.folder().makeFolder("M/Folder");
    pc.setCurrentFolder("M:\\");
    CHECK(kindOf("Folder") == "1");
    CHECK(kindOf("\\\\server\\share") == "0");
    CHECK(GetVolumeKind("N:\\") == VolumeKindNtfs);
    // A Mac volume is one whose root has a Finder information that is not empty.
    writeFile("F:\\" + kFinder, {});
    CHECK(!IsMacVolume("F:\\"));
    writeFile("F:\\" + kFinder, bytesOf("x"));
    CHECK(IsMacVolume("F:\\"));

    TestPc windows98(pc::Platform::windows98);
    CHECK(GetVolumeKind("N:\\") == VolumeKindOther);
    CHECK(GetVolumeKind("M:\\") == VolumeKindMac);
    CHECK(kindOf("N:\\") == "0");
}

TEST_CASE("A kind that cannot be told is an error, and shown as none") {
    const auto check = [](const std::string& call, const char* root, ErrorCode error,
                          const std::string& kind) {
        INFO(call, " ", root, " ", error);
        TestPc pc;
        pc.faults().failAlways(call, root + (call == "CreateFileA" ? kFinder : ""), error);
        CHECK(kindOf(root) == kind);
        if (kind[0] == 'e') CHECK(GetVolumeKind(root) == VolumeKindOther);
        CHECK(pc.nothingHeld());
    };
    check("GetVolumeInformationA", "N:\\", ERROR_IO_DEVICE, "error 1117");
    // A name that does not fit is not that of NTFS.
    check("GetVolumeInformationA", "F:\\", ERROR_MORE_DATA, "0");
    check("GetVolumeInformationA", "F:\\", ERROR_BAD_LENGTH, "0");
    // The driver's file could not be looked for: nobody knows what the volume is, unless it says so
    // itself.
    check("CreateFileA", "M:\\", ERROR_IO_DEVICE, "error 1117");
    check("CreateFileA", "F:\\", ERROR_ACCESS_DENIED, "error 5");
    check("CreateFileA", "N:\\", ERROR_ACCESS_DENIED, "2");
    // Names that the file system does not take cannot be there.
    check("CreateFileA", "F:\\", ERROR_INVALID_NAME, "0");
    check("CreateFileA", "F:\\", ERROR_PATH_NOT_FOUND, "0");
    check("CreateFileA", "F:\\", ERROR_BAD_PATHNAME, "0");
    check("CreateFileA", "F:\\", ERROR_FILENAME_EXCED_RANGE, "0");
    TestPc windows95(pc::Platform::windows95);
    windows95.faults().failAlways("CreateFileA", "F:\\" + kFinder, ERROR_NOT_READY);
    CHECK(kindOf("F:\\") == "error 21");
}

TEST_CASE("Finder information that cannot be had is told") {
    TestPc pc;
    writeFile("N:\\short:AFP_AfpInfo", patternOf(59));
    for (const char* file : {"N:\\file", "M:\\gone", "F:\\file"})
        writeFile(file, {});
    const auto check = [](const std::string& path, ErrorCode readError) {
        CAPTURE(path);
        const ForkPathsOf paths(path);
        if (path[0] == 'M') DeleteFileA(path.c_str());
        FinderInfoRecord record;
        CHECK(!ReadFinderInfo(paths, &record));
        CHECK(GetLastError() == readError);
        record.kind = path[0] == 'N' ? VolumeKindMac : VolumeKindNtfs;  // another volume's
        CHECK(!WriteFinderInfo(paths, &record));
        CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    };
    check("M:\\gone", ERROR_FILE_NOT_FOUND);
    check("N:\\file", ERROR_FILE_NOT_FOUND);
    check("N:\\short", ERROR_HANDLE_EOF);
    check("F:\\file", ERROR_INVALID_PARAMETER);
    CHECK(!exists("N:\\file:AFP_AfpInfo"));
    CHECK(pc.nothingHeld());
}

TEST_CASE("A driver that knows no flush has kept what was written") {
    for (const ErrorCode error : {ERROR_INVALID_FUNCTION, ERROR_NOT_SUPPORTED}) {
        TestPc pc;
        writeMacFile("M:\\file", {});
        const ForkPathsOf paths("M:\\file");
        FinderInfoRecord record;
        REQUIRE(ReadFinderInfo(paths, &record));
        pc.faults().failAlways("FlushFileBuffers", paths.finderInfoPath, error);
        CHECK(WriteFinderInfo(paths, &record));
        CHECK(pc.faults().hit());
    }
}
