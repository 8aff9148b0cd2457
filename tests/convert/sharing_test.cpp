// What other programs may do with the files of a conversion meanwhile: read what is read, and nothing else.
#include "convert/create_macbinary.h"
#include "macfile/finder_info.h"
#include "support/archive_writer.h"
#include "support/extraction_case.h"
#include "support/scripted_user.h"

#include <doctest/doctest.h>

#include <map>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(100), .resource = patternOf(200)};

// Opens the file as a program that lets others do what they like: "r", "w", "rw" or "" is what it gets.
std::string openable(const std::string& path) {
    std::string got;
    for (const auto& [letter, access] : std::map<char, DWORD>{{'r', GENERIC_READ}, {'w', GENERIC_WRITE}}) {
        const OwnedFile file(CreateFileA(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                         OPEN_EXISTING, 0, nullptr));
        if (file) got += letter;
        if (!file) CHECK(GetLastError() == ERROR_SHARING_VIOLATION);
    }
    return got;
}

}  // namespace

TEST_CASE("While a file is packed its forks can be read, and the output not be touched") {
    TestPc pc;
    writeMacFile("N:\\file", kFile);
    writeFile("F:\\out.bin", bytesOf("old"));
    ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
    int looks = 0;
    scriptedUser.onServe = [&] {
        ++looks;
        CHECK(openable("N:\\file") == "r");
        CHECK(openable("N:\\file:AFP_Resource") == "r");
        CHECK(openable("F:\\out.bin").empty());
    };
    CHECK(CreateMacBinaryFile(nullptr, "N:\\file", "F:\\out.bin", &progress) == 0);
    CHECK(looks == 4);
    scriptedUser.onServe = [] {};
    ProgressDestroy(progress);
}

TEST_CASE("While a file is extracted its source can be read, and the fork in work not be touched") {
    for (const std::string source : {"F:\\in.bin", "F:\\in.hqx"}) {
        TestPc pc;
        const bool binHex = source.ends_with("hqx");
        writeFile(source, binHex ? binHexFile(BinHexFile{kFile}) : macBinaryFile({kFile}));
        ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
        std::string forks;
        scriptedUser.onServe = [&] {
            if (!pc.openFiles().empty()) CHECK(openable(source) == "r");
            if (exists("N:\\Test") && openable("N:\\Test").empty()) forks += "d";
            if (exists("N:\\Test:AFP_Resource") && openable("N:\\Test:AFP_Resource").empty()) forks += "r";
        };
        DWORD flags = 0;
        CHECK(ExtractOriginalMacFile(nullptr, source.c_str(), "N:\\", &flags, &progress) == 0);
        // An advance and a pump for the one block of each fork of a MacBinary file, a pump for one of BinHex.
        CHECK(forks == (binHex ? "dr" : "ddrr"));
        scriptedUser.onServe = [] {};
        ProgressDestroy(progress);
    }
}

TEST_CASE("Finder information is read and written beside readers, and not beside writers") {
    for (const char* path : {"N:\\file", "M:\\file"}) {
        TestPc pc;
        writeMacFile(path, kFile);
        const ForkPathsOf paths(path);
        for (const DWORD access : {GENERIC_READ, GENERIC_WRITE}) {
            FinderInfoRecord record;
            REQUIRE(ReadFinderInfo(paths, &record));
            const OwnedFile other(CreateFileA(paths.finderInfoPath, access,
                                              FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0,
                                              nullptr));
            REQUIRE(other);
            const BOOL wanted = access == GENERIC_READ;
            CHECK(WriteFinderInfo(paths, &record) == wanted);
            CHECK(ReadFinderInfo(paths, &record) == wanted);
            if (!wanted) CHECK(GetLastError() == ERROR_SHARING_VIOLATION);
        }
    }
}

TEST_CASE("The size of a file that somebody writes to can be told") {
    TestPc pc;
    writeFile("F:\\file", patternOf(77));
    const OwnedFile other(
        CreateFileA("F:\\file", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    REQUIRE(other);
    CHECK(GetFileSizeByPath("F:\\file") == 77);
}
