#include "convert/binhex_text.h"
#include "support/binhex_reference.h"
#include "support/extraction_case.h"
#include "support/scripted_user.h"
#include "ui/progress.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

using namespace tidewell;

namespace {

// What BinHex keeps of a file.
const MacFile kFile = {.data = patternOf(3000),
                       .resource = patternOf(500, 3),
                       .flags = 0,
                       .vertical = 0,
                       .horizontal = 0,
                       .window = 0,
                       .attributes = 0};
const BinHexFile kSmall = {{.data = patternOf(60), .resource = patternOf(30)}};
constexpr size_t kHeaderSize = 1 + 4 + 19 + 2;  // with the name "Test"

// Extracts a file that holds "Test", and finds the answer that the format demands.
void checkAnswer(TestPc& pc, const Bytes& file, char drive = 'M') {
    pc.journal().clear();
    const BinHexAnswer answer = answerToBinHex(file, drive != 'F');
    const std::string path = std::string(1, drive) + ":\\Test";
    CHECK(extractBytes(file, ".hqx", drive) == answer.error);
    CHECK(exists(path) == (answer.error == 0));
    // What is wrong before the forks is told before any file is made.
    if (!answer.headerWhole) CHECK(pc.journal().countOn("CreateFileA", path) == 0);
    CHECK(pc.nothingHeld());
    if (answer.error != 0) return;
    CHECK(readFile(path) == answer.data);
    if (drive == 'M') CHECK(readMacFile(path).resource == answer.resource);
    DeleteFileA(path.c_str());
}

// A file of the given runs, in lines of 64.
Bytes fileOfRuns(const Bytes& runs) {
    return bytesOf(kBinHexMarker + binHexText(runs));
}

// The runs of a whole file up to its data fork of `length` bytes.
Bytes runsBefore(uint32_t length) {
    const Bytes sections = binHexSections({.claimedData = length});
    return binHexRuns(cutTo(sections, kHeaderSize));
}

// The CRC of the data fork and an empty resource fork.
Bytes runsBehind(const Bytes& data) {
    Bytes crcs(4);
    storeBig(crcs, 0, 2, crcOf(data.data(), data.size()));
    return binHexRuns(crcs);
}

Bytes joined(Bytes bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return bytes;
}

uint64_t memoryTaken(TestPc& pc) {
    uint64_t bytes = 0;
    for (const pc::JournalEntry& entry : pc.journal().entries()) {
        if (entry.call == "VirtualAlloc" || entry.call == "HeapAlloc")
            bytes += static_cast<size_t>(entry.amount);
    }
    return bytes;
}

constexpr size_t kMemory = size_t{1} << 20;

}  // namespace

TEST_CASE("A BinHex file gives its forks, type and creator back") {
    for (const char drive : {'M', 'N', 'F'}) {
        TestPc pc;
        BinHexFile file = {kFile};
        file.file.flags = 0x2100;
        CHECK(extractBytes(binHexFile(file), ".hqx", drive) == 0);
        const std::string path = std::string(1, drive) + ":\\Test";
        CHECK(readMacFile(path) == keptOn(drive, kFile));
        CHECK(pc.journal().countOn("SHChangeNotify", path) == 1);
        CHECK(pc.nothingHeld());
    }
}

TEST_CASE("Where the text of BinHex begins") {
    const std::string text = binHexText(binHexRuns(binHexSections({kFile})));
    const std::string japanese = kJapaneseBinHexMarker;
    const std::string marker = kBinHexMarker;
    const struct {
        std::string file;
        ErrorCode error;
    } rows[] = {
        {"From: somebody\r\n\r\n" + marker + "\r\n \t\r\n" + text, 0},
        {japanese + "\r" + text, 0},
        {"(This file " + marker + text + "\nsignature: 100%", 0},
        {text, ERROR_INVALID_DATA},
        {marker, ERROR_INVALID_DATA},
        {marker + "\r\n  ", ERROR_INVALID_DATA},
        {marker + "x" + text, ERROR_INVALID_DATA},
        {marker + ":", ERROR_HANDLE_EOF},
        {marker + "::", ERROR_HANDLE_EOF},
        {"", ERROR_INVALID_DATA},
    };
    for (const auto& row : rows) {
        TestPc pc;
        CHECK_MESSAGE(extractBytes(bytesOf(row.file), ".hqx", 'M') == row.error, row.file.substr(0, 80));
        CHECK(exists("M:\\Test") == (row.error == 0));
    }
}

TEST_CASE("Run lengths") {
    const struct {
        Bytes runs, data;
    } rows[] = {
        {{0x41, 0x90, 0x03}, {0x41, 0x41, 0x41}},
        {{0x90, 0x00}, {0x90}},
        {{0x41, 0x90, 0x01, 0x42}, {0x41, 0x42}},
        {{0x90, 0x00, 0x90, 0x04}, Bytes(4, 0x90)},
        {{0x41, 0x90, 0xFF}, Bytes(255, 0x41)},
        {{0x41, 0x90, 0x01, 0x90, 0x01, 0x90, 0x02}, {0x41, 0x41}},
        {{0x41, 0x90, 0xFF, 0x90, 0xFF, 0x90, 0xFF}, Bytes(763, 0x41)},
    };
    for (const auto& row : rows) {
        TestPc pc;
        const Bytes before = runsBefore(static_cast<uint32_t>(row.data.size()));
        const Bytes file = fileOfRuns(joined(joined(before, row.runs), runsBehind(row.data)));
        CHECK(extractBytes(file, ".hqx", 'M') == 0);
        CHECK(readFile("M:\\Test") == row.data);
    }
    TestPc pc;
    const auto errorOf = [](const Bytes& runs) { return extractBytes(fileOfRuns(runs), ".hqx", 'M'); };
    CHECK(errorOf({0x90, 0x03, 0x41, 0x41}) == ERROR_INVALID_DATA);
    CHECK(errorOf({}) == ERROR_HANDLE_EOF);
    // The text ends with the group, so that no byte is begun behind the last.
    Bytes runs = runsBefore(4);
    while (runs.size() % 3 != 1)
        runs.push_back(0x41);
    CHECK(errorOf(joined(runs, {0x41, 0x90})) == ERROR_INVALID_DATA);
    CHECK(errorOf(joined(runs, {0x41, 0x41})) == ERROR_HANDLE_EOF);
}

TEST_CASE("A run may straddle any boundary between sections") {
    const BinHexFile file = {{.data = Bytes(40, 0), .resource = Bytes(40, kBinHexRun)}};
    const Bytes sections = binHexSections(file);
    // Each place where a byte repeats becomes a run there, whatever section it ends in.
    for (size_t at = 1; at < sections.size(); ++at) {
        if (sections[at] != sections[at - 1]) continue;
        size_t length = 2;
        while (at + length - 1 < sections.size() && sections[at + length - 1] == sections[at] && length < 255)
            ++length;
        Bytes runs;
        for (size_t i = 0; i < sections.size(); ++i) {
            if (i == at) {
                runs.push_back(kBinHexRun);
                runs.push_back(static_cast<uint8_t>(length));
            }
            if (i >= at && i < at + length - 1) continue;
            runs.push_back(sections[i]);
            if (sections[i] == kBinHexRun) runs.push_back(0);
        }
        TestPc pc;
        const std::string text = kBinHexMarker + binHexText(runs);
        CHECK_MESSAGE(extractBytes(bytesOf(text), ".hqx", 'M') == 0, at);
        CHECK(readMacFile("M:\\Test").data == file.file.data);
        CHECK(readMacFile("M:\\Test").resource == file.file.resource);
    }
}

TEST_CASE("Cut or damaged anywhere, a BinHex file is met with the code that the format demands") {
    TestPc pc;
    const Bytes whole = binHexFile(kSmall);
    for (size_t at = 0; at < whole.size(); ++at) {
        CAPTURE(at);
        checkAnswer(pc, cutTo(whole, at), 'N');
        Bytes damaged = whole;
        damaged[at] = static_cast<uint8_t>(":7!\r"[at % 4]);
        checkAnswer(pc, damaged, at % 8 < 4 ? 'M' : 'F');
    }
    const Bytes sections = binHexSections(kSmall);
    for (size_t at = 0; at < sections.size(); ++at) {
        CAPTURE(at);
        Bytes flipped = sections;
        flipped[at] ^= static_cast<uint8_t>(0x80 >> at % 8);
        checkAnswer(pc, binHexFile(flipped));
        // The text may end well and its stream be short all the same.
        checkAnswer(pc, binHexFile(cutTo(sections, at)));
    }
}

TEST_CASE("What a text has at the end of a block") {
    TestPc pc;
    // Each place of a marker, and many behind it, comes to be the last of the first block.
    for (const char* const marker : {kBinHexMarker, kJapaneseBinHexMarker}) {
        const std::string text =
            std::string(marker) + "\r \n" + binHexText(binHexRuns(binHexSections(kSmall)));
        for (size_t split = 0; split <= text.size(); split += split < 80 ? 1 : 5) {
            CAPTURE(split);
            // The start of a marker, again and again.
            std::string file;
            while (file.size() < kBinHexBlock - split)
                file += std::string(marker).substr(0, 44);
            file = file.substr(file.size() - (kBinHexBlock - split)) + text;
            // A whole marker must not come of it.
            CHECK(file.find(marker) == kBinHexBlock - split);
            checkAnswer(pc, bytesOf(file));
            if (split % 10 == 0) checkAnswer(pc, cutTo(bytesOf(file), kBinHexBlock));
        }
    }
}

TEST_CASE("Forks of many blocks, with blanks anywhere and runs everywhere") {
    TestPc pc;
    std::minstd_rand random;
    for (unsigned round = 0; round < 4; ++round) {
        CAPTURE(round);
        // With a block's length or nearly that, and with runs over the blocks' ends.
        Bytes data(3 * kBinHexBlock + round - 3);
        for (size_t i = 0; i < data.size(); ++i)
            data[i] = i % 5000 < 700 || (i + 400) % kBinHexBlock < 800 ? kBinHexRun
                                                                       : static_cast<uint8_t>(random());
        const Bytes resource = patternOf(kBinHexBlock * (round % 2) + round);
        const std::string letters =
            binHexText(binHexRuns(binHexSections({{.data = data, .resource = resource}})));
        std::string spaced;
        for (const char letter : letters) {
            spaced += letter;
            if (random() % 100 < 4 * round) spaced.append(1 + random() % 4, "\t\n\r "[random() % 4]);
        }
        const Bytes file = bytesOf(kBinHexMarker + spaced);
        const BinHexAnswer answer = answerToBinHex(file);
        CHECK((answer.error == 0 && answer.data == data && answer.resource == resource));
        checkAnswer(pc, file);
        CHECK(memoryTaken(pc) < kMemory);
        // A stray character, and an end, where a block of the file ends or near it.
        for (const char wrong : {'7', ':'}) {
            Bytes damaged = file;
            damaged[2 * kBinHexBlock - 3 + round] = static_cast<uint8_t>(wrong);
            checkAnswer(pc, damaged);
        }
    }
}

TEST_CASE("A bomb takes little memory") {
    TestPc pc;
    constexpr size_t kRuns = 70000;  // more than a block's, and each as long as can be
    const Bytes data(1 + kRuns * 254, 0x41);
    Bytes runs = joined(runsBefore(static_cast<uint32_t>(data.size())), {0x41});
    for (size_t i = 0; i < kRuns; ++i)
        runs = joined(std::move(runs), {kBinHexRun, 0xFF});
    CHECK(extractBytes(fileOfRuns(joined(runs, runsBehind(data))), ".hqx", 'M') == 0);
    CHECK(memoryTaken(pc) < kMemory);
    CHECK(readFile("M:\\Test") == data);
}

TEST_CASE(
    "The user is asked once after reading, before anything is told of the text, and never heard again") {
    TestPc pc;
    const auto extract = [](const Bytes& file, ErrorCode wanted) {
        writeFile("F:\\in.hqx", file);
        ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
        const uint64_t before = 1000;
        ProgressSetDone(progress, &before);
        DWORD flags = kReplaceAll;
        CHECK(ExtractOriginalMacFile(nullptr, "F:\\in.hqx", "M:\\", &flags, &progress) == wanted);
        CHECK(progress->done == before + file.size());
        ProgressDestroy(progress);
    };
    const Bytes small = binHexFile(kSmall);
    const Bytes large = binHexFile({{.data = patternOf(500000), .resource = patternOf(300000)}});
    extract(large, 0);
    CHECK(scriptedUser.serves == 6);
    scriptedUser = {};
    extract(small, 0);
    CHECK(scriptedUser.serves == 6);
    CHECK(scriptedUser.ranges == std::vector<uint16_t>{1000, static_cast<uint16_t>(1000 + small.size() / 2),
                                                       static_cast<uint16_t>(1000 + small.size())});
    for (const Bytes& file : {small, bytesOf("no BinHex"), cutTo(small, small.size() / 2)}) {
        scriptedUser = {};
        scriptedUser.cancelAtServe = 2;
        extract(file, ERROR_CANCELLED);
    }
    scriptedUser = {};
    scriptedUser.cancelAtServe = 4;
    extract(small, 0);
}

TEST_CASE("Lengths that lie take neither memory nor time") {
    const BinHexFile large = {{.data = patternOf(3 * kBinHexBlock), .resource = patternOf(30)}};
    for (const uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0x01000000u}) {
        for (const bool inData : {true, false}) {
            TestPc pc;
            BinHexFile file = inData ? kSmall : large;
            (inData ? file.claimedData : file.claimedResource) = length;
            CHECK(extractBytes(binHexFile(file), ".hqx", 'M') == ERROR_HANDLE_EOF);
            CHECK(!exists("M:\\Test"));
            const char* const fork = inData ? "M:\\Test" : "Test\\{4DD19183-ACE2-11CF-BBF2-444553540000}";
            CHECK(pc.journal().countOn("CreateFileA", fork) == 0);
            CHECK(memoryTaken(pc) < kMemory);
        }
    }
}

TEST_CASE("A fork is begun only when what is left of the text could give it") {
    for (size_t left = 3; left < 9; ++left) {
        // A pair of bytes gives 255 at most, and so may a last one.
        const auto most = static_cast<uint32_t>((left + 1) / 2 * 255);
        for (const uint32_t length : {most, most + 1}) {
            const Bytes runs = joined(runsBefore(length), patternOf(left));
            if (runs.size() % 3 != 0) continue;
            TestPc pc;
            CHECK(extractBytes(fileOfRuns(runs), ".hqx", 'M') == ERROR_HANDLE_EOF);
            CHECK((pc.journal().countOn("CreateFileA", "M:\\Test") != 0) == (length == most));
        }
    }
}

TEST_CASE("Names of every length") {
    for (const size_t length : {0u, 1u, 31u, 32u, 63u, 64u, 255u}) {
        TestPc pc;
        const BinHexFile file = {kFile, Bytes(length, 'n')};
        CHECK(extractBytes(binHexFile(file), ".hqx", 'M') == (length == 0 ? ERROR_INVALID_DATA : 0));
        if (length == 0) continue;
        CHECK(readMacFile("M:\\" + std::string(std::min<size_t>(length, 31), 'n')) == kFile);
    }
}
