// What a conversion tells while it runs: amounts, pauses, and the shell's notice; and that a cancel is heard
// at every chance until the file is whole.
#include "convert/create_macbinary.h"
#include "convert/extract_original.h"
#include "support/archive_writer.h"
#include "support/scripted_user.h"
#include "ui/progress.h"

#include <doctest/doctest.h>

#include <shlobj.h>

#include <algorithm>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(150000), .resource = patternOf(70001, 5)};

struct Conversion {
    const char* source;
    const char* output;
    bool packs;

    void writeSource() const {
        if (packs) return writeMacFile(source, kFile);
        const bool binHex = std::string(source).ends_with("hqx");
        writeFile(source, binHex ? binHexFile(BinHexFile{kFile}) : macBinaryFile({kFile}));
    }
    ErrorCode run() const {
        ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
        const uint64_t before = 1000;  // what a batch has done of other files
        const uint64_t total = 1000000;
        ProgressSetTotal(progress, &total);
        ProgressSetDone(progress, &before);
        scriptedUser.serves = 0;
        scriptedUser.done.clear();
        DWORD flags = kMoreFollow;
        const std::string folder = std::string(output).substr(0, 3);
        const ErrorCode error =
            packs ? CreateMacBinaryFile(nullptr, source, output, &progress)
                  : ExtractOriginalMacFile(nullptr, source, folder.c_str(), &flags, &progress);
        CHECK(progress->pauses == 0);
        ProgressDestroy(progress);
        return error;
    }
};

constexpr Conversion kPack = {"M:\\file", "F:\\out.bin", true};
constexpr Conversion kMacBinary = {"F:\\in.bin", "M:\\Test", false};
constexpr Conversion kMacBinaryToFat = {"F:\\in.bin", "F:\\Test", false};
constexpr Conversion kBinHex = {"F:\\in.hqx", "N:\\Test", false};

// The amounts that were shown, each once.
std::string amounts() {
    std::vector<uint64_t> shown = scriptedUser.done;
    shown.erase(std::unique(shown.begin(), shown.end()), shown.end());
    std::string text;
    for (const uint64_t amount : shown)
        text += (text.empty() ? "" : " ") + std::to_string(amount - 1000);
    return text;
}

}  // namespace

TEST_CASE("The progress moves by what is done, and by all of the file in the end") {
    const struct {
        Conversion conversion;
        std::string amounts;
    } rows[] = {
        {kPack, "65536 131072 150000 215536 220001"},
        // Padding of 16 and 15 bytes follows the forks.
        {kMacBinary, "128 65664 131200 150128 150144 215680 220145 220160"},
        // A fork that is not kept counts at the end.
        {kMacBinaryToFat, "128 65664 131200 150128 150144 150159 220160"},
        {kBinHex, "149587 299174"},
    };
    for (const auto& row : rows) {
        TestPc pc;
        row.conversion.writeSource();
        CAPTURE(std::string(row.conversion.output));
        CHECK(row.conversion.run() == 0);
        CHECK(amounts() == row.amounts);
    }
}

TEST_CASE("A cancel is heard at every chance until the file is whole") {
    for (const Conversion& conversion : {kPack, kMacBinary, kMacBinaryToFat, kBinHex}) {
        for (const bool existed : {false, true}) {
            if (conversion.packs && existed) continue;
            CAPTURE(std::string(conversion.output));
            CAPTURE(existed);
            bool whole = false;
            for (int n = 1; !whole; ++n) {
                CAPTURE(n);
                TestPc pc;
                conversion.writeSource();
                if (existed) writeFile(conversion.output, bytesOf("old"));
                scriptedUser.cancelAtServe = n;
                const ErrorCode error = conversion.run();
                // BinHex looks once, when it has read its file; each chance is an advance and a pump.
                const bool heard = std::string(conversion.source) != kBinHex.source;
                whole = error == 0;
                if (whole) {
                    CHECK(scriptedUser.serves - n <= (heard ? 0 : 3));
                    CHECK(exists(conversion.output));
                } else {
                    CHECK(error == ERROR_CANCELLED);
                    CHECK(exists(conversion.output) == (existed && n <= 2));
                }
                CHECK(pc.nothingHeld());
                CHECK(pc.journal().count("SHChangeNotify") == (whole ? 1 : 0));
            }
        }
    }
}

TEST_CASE("The clock stands still during the question") {
    for (const Conversion& conversion : {kMacBinary, kBinHex}) {
        for (const int answer : {IDYES, IDNO, IDCANCEL}) {
            TestPc pc;
            conversion.writeSource();
            writeFile(conversion.output, bytesOf("old"));
            scriptedUser.answer = answer;
            CHECK(conversion.run() == (answer == IDCANCEL ? ERROR_CANCELLED : 0));
            CHECK(scriptedUser.asked == 1);
            CHECK(scriptedUser.pausesAtQuestion == 1);
            CHECK(scriptedUser.shows == 1);
        }
    }
}

TEST_CASE("A caller within the program learns what was written, and nothing of what was kept") {
    TestPc pc;
    kMacBinary.writeSource();
    DWORD flags = 0;
    char written[kPathCapacity] = "nothing";
    const Extraction extraction = {nullptr, kMacBinary.source, "M:\\", &flags, nullptr, written};
    CHECK(ExtractOriginal(extraction) == 0);
    CHECK(std::string(written) == kMacBinary.output);
    scriptedUser.answer = IDNO;
    written[0] = '\0';
    CHECK(ExtractOriginal(extraction) == 0);
    CHECK(written[0] == '\0');
}

TEST_CASE("The shell is told that a file was created, by its path") {
    for (const Conversion& conversion : {kPack, kMacBinary, kMacBinaryToFat, kBinHex}) {
        TestPc pc;
        conversion.writeSource();
        CHECK(conversion.run() == 0);
        CHECK(pc.journal().countOn("SHChangeNotify", conversion.output) == 1);
        for (const pc::JournalEntry& entry : pc.journal().entries())
            if (entry.call == "SHChangeNotify") CHECK(entry.amount == SHCNE_CREATE);
    }
}
