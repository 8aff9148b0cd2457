#include "macfile/fork_paths.h"

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

TEST_CASE("Windows 95 and 98 reach no streams") {
    TestPc pc(pc::Platform::windows95);
    writeFile("N:\\a.txt", {});
    checkPaths("N:\\a.txt", "N:\\a.txt", "", "");
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
    GetForkPaths("M:\\file", tight);
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
