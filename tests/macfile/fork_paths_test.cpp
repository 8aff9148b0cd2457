#include "macfile/fork_paths.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>
#include <filesystem>

using namespace tidewell;

namespace {

constexpr char kResource[] = "{4DD19183-ACE2-11CF-BBF2-444553540000}";
constexpr char kFinder[] = "{4DD19184-ACE2-11CF-BBF2-444553540000}";

void checkPaths(const char* path, const std::string& data, const std::string& resource,
                const std::string& finderInfo) {
    CAPTURE(path);
    ForkPathBuffers paths;
    GetForkPaths(path, paths);
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
    std::filesystem::create_directory(pc.hostFolder('N') + "/Long folder");
    std::filesystem::create_directory(pc.hostFolder('M') + "/Folder");
    writeFile("N:\\Long folder\\Long name.txt", {});
    writeFile("M:\\Folder\\Long name.txt", {});
    writeFile("F:\\plain", {});
    const std::string shortForm = "N:\\LONGFO~1\\LONGNA~1.TXT";
    checkPaths("N:\\Long folder\\Long name.txt", shortForm, shortForm + ":AFP_Resource",
               shortForm + ":AFP_AfpInfo");
    const std::string macFile = "M:\\Folder\\Long name.txt";
    checkPaths(macFile.c_str(), macFile, macFile + "\\" + kResource, macFile + "\\" + kFinder);
    checkPaths("M:\\Folder", "M:\\Folder", std::string("M:\\Folder\\") + kResource,
               std::string("M:\\Folder\\") + kFinder);
    checkPaths("M:\\", "M:\\", std::string("M:\\") + kResource, std::string("M:\\") + kFinder);
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
    char data[kPathCapacity];
    char resource[20];
    char finderInfo[kPathCapacity];
    ForkPaths paths = {data, sizeof data, resource, sizeof resource, finderInfo, sizeof finderInfo};
    GetForkPaths("M:\\file", paths);
    CHECK(paths.resourceLength == 0);
    CHECK(std::string(resource).empty());
    CHECK(paths.finderInfoLength != 0);

    paths = {data, 7, resource, sizeof resource, finderInfo, sizeof finderInfo};
    GetForkPaths("M:\\file", paths);
    CHECK(paths.dataLength == 0);
    CHECK(std::string(data).empty());
    CHECK(paths.finderInfoLength == 0);
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
