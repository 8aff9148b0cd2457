// What a conversion tells and allows while it runs: amounts, pauses, the shell's notice; and other programs,
// which may read what is read, and nothing else.
#include "macfile/finder_info.h"
#include "support/extraction_case.h"

#include <doctest/doctest.h>

#include <shlobj.h>

#include <algorithm>
#include <map>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(150000), .resource = patternOf(70001, 5)};
const MacFile kSmall = {.data = patternOf(100), .resource = patternOf(200)};

const Conversion kPack = {"M:\\file", "F:\\out.bin"};
const Conversion kMacBinary = {"F:\\in.bin", "M:\\Test"};
const Conversion kMacBinaryToFat = {"F:\\in.bin", "F:\\Test"};
const Conversion kBinHex = {"F:\\in.hqx", "N:\\Test"};

// The amounts that were shown, each once.
std::string amounts() {
    std::vector<uint64_t> shown = scriptedUser.done;
    shown.erase(std::unique(shown.begin(), shown.end()), shown.end());
    std::string text;
    for (const uint64_t amount : shown)
        text += (text.empty() ? "" : " ") + std::to_string(amount - 1000);
    return text;
}

OwnedFile openBeside(const char* path, DWORD access) {
    return OwnedFile(
        CreateFileA(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
}

// What a program gets that lets others do what they like: "r", "w", "rw" or "".
std::string openable(const std::string& path) {
    std::string got;
    for (const auto& [letter, access] : std::map<char, DWORD>{{'r', GENERIC_READ}, {'w', GENERIC_WRITE}}) {
        const OwnedFile file = openBeside(path.c_str(), access);
        if (file) got += letter;
        if (!file) CHECK(GetLastError() == ERROR_SHARING_VIOLATION);
    }
    return got;
}

}  // namespace

TEST_CASE("The progress moves by what is done, by all of the file in the end, and the shell is told") {
    const struct {
        Conversion conversion;
        int serves;
        std::string amounts;
    } rows[] = {
        {kPack, 10, "65536 131072 150000 215536 220001"},
        // Padding of 16 and 15 bytes follows the forks.
        {kMacBinary, 17, "128 65664 131200 150128 150144 215680 220145 220160"},
        // A fork that is not kept counts at the end.
        {kMacBinaryToFat, 13, "128 65664 131200 150128 150144 150159 220160"},
        {kBinHex, 5, "149587 299174"},
    };
    for (const auto& row : rows) {
        TestPc pc;
        row.conversion.writeSource(kFile);
        CAPTURE(row.conversion.output);
        CHECK(row.conversion.runShown() == 0);
        CHECK(amounts() == row.amounts);
        CHECK(scriptedUser.serves == row.serves);
        for (const pc::JournalEntry& entry : pc.journal().entries())
            if (entry.call == "SHChangeNotify") CHECK(entry.amount == SHCNE_CREATE);
    }
}

TEST_CASE("The clock stands still during the question") {
    for (const Conversion& conversion : {kMacBinary, kBinHex}) {
        for (const int answer : {IDYES, IDNO, IDCANCEL}) {
            TestPc pc;
            conversion.writeSource(kFile);
            writeFile(conversion.output, bytesOf("old"));
            scriptedUser.answer = answer;
            CHECK(conversion.runShown() == (answer == IDCANCEL ? ERROR_CANCELLED : 0));
            CHECK(scriptedUser.pausesAtQuestion == 1);
            CHECK(scriptedUser.shows == 1);
        }
    }
    // Who has cancelled is asked nothing.
    TestPc pc;
    kMacBinary.writeSource(kFile);
    writeFile(kMacBinary.output, bytesOf("old"));
    scriptedUser.cancelAtServe = 1;
    CHECK(kMacBinary.runShown() == ERROR_CANCELLED);
    CHECK(scriptedUser.asked == 0);
}

TEST_CASE("A caller within the program learns what was written, and nothing of what was kept") {
    TestPc pc;
    kMacBinary.writeSource(kFile);
    DWORD flags = 0;
    char written[kPathCapacity] = "nothing";
    const Extraction extraction = {nullptr, kMacBinary.source.c_str(), "M:\\", &flags, nullptr, written};
    CHECK(ExtractOriginal(extraction) == 0);
    CHECK(std::string(written) == kMacBinary.output);
    scriptedUser.answer = IDNO;
    written[0] = '\0';
    CHECK(ExtractOriginal(extraction) == 0);
    CHECK(written[0] == '\0');
}

TEST_CASE("While a file is packed its forks can be read, and the output not be touched") {
    TestPc pc;
    const Conversion pack = {"N:\\file", "F:\\out.bin"};
    pack.writeSource(kSmall);
    writeFile(pack.output, bytesOf("old"));
    int looks = 0;
    scriptedUser.onServe = [&] {
        if (++looks == 1) return;  // nothing is open yet
        CHECK(openable("N:\\file") == "r");
        CHECK(openable("N:\\file:AFP_Resource") == "r");
        CHECK(openable("F:\\out.bin").empty());
    };
    CHECK(pack.runShown() == 0);
    CHECK(looks == 5);
}

TEST_CASE("While a file is extracted its source can be read, and the fork in work not be touched") {
    for (const std::string source : {"F:\\in.bin", "F:\\in.hqx"}) {
        TestPc pc;
        const Conversion conversion = {source, "N:\\Test"};
        conversion.writeSource(kSmall);
        std::string forks;
        scriptedUser.onServe = [&] {
            if (!pc.openFiles().empty()) CHECK(openable(source) == "r");
            if (exists("N:\\Test") && openable("N:\\Test").empty()) forks += "d";
            if (exists("N:\\Test:AFP_Resource") && openable("N:\\Test:AFP_Resource").empty()) forks += "r";
        };
        CHECK(conversion.runShown() == 0);
        // An advance and a pump for the one block of each fork of a MacBinary file, a pump for one of BinHex.
        CHECK(forks == (conversion.isBinHex() ? "dr" : "ddrr"));
    }
}

TEST_CASE("Finder information is read and written beside readers, and not beside writers") {
    for (const char* path : {"N:\\file", "M:\\file"}) {
        TestPc pc;
        writeMacFile(path, kSmall);
        const ForkPathsOf paths(path);
        FinderInfoRecord record;
        REQUIRE(ReadFinderInfo(paths, &record));
        for (const DWORD access : {DWORD{GENERIC_READ}, DWORD{GENERIC_WRITE}}) {
            const OwnedFile other = openBeside(paths.finderInfoPath, access);
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
    const OwnedFile other(CreateFileA("F:\\file", GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    CHECK(GetFileSizeByPath("F:\\file") == 77);
}
