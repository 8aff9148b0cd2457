#include "convert/binhex_text.h"
#include "support/binhex_reference.h"
#include "support/extraction_case.h"

#include <doctest/doctest.h>

#include <random>

using namespace tidewell;

namespace {

const MacFile kForks = {.data = patternOf(60), .resource = patternOf(30)};
const BinHexFile kSmall = {kForks};
constexpr size_t kHeaderSize = 1 + 4 + 19 + 2;  // with the name "Test"
constexpr size_t kMemory = size_t{1} << 20;

// Extracts a file, and finds the answer that the format demands.
void checkAnswer(const Bytes& file, char drive = 'M') {
    TestPc pc;
    const BinHexAnswer answer = answerToBinHex(file, drive != 'F');
    const std::string name = answer.name.empty() ? "Test" : answer.name.substr(0, 31);
    const std::string root = std::string(1, drive) + ":";
    const std::string path = root + "\\" + name;
    CHECK(extractBytes(file, ".hqx", root) == answer.error);
    CHECK(exists(path) == (answer.error == 0));
    // What is wrong before the forks is told before any file is made.
    if (!answer.headerWhole) CHECK(pc.journal().countOn("CreateFileA", path) == 0);
    uint64_t memory = 0;
    for (const pc::JournalEntry& entry : pc.journal().entries())
        memory += entry.call.ends_with("Alloc") ? entry.amount : 0;
    CHECK(memory < kMemory);
    CHECK(pc.nothingHeld());
    if (answer.error != 0) return;
    CHECK(readFile(path) == answer.data);
    if (drive == 'M') CHECK(readMacFile(path).resource == answer.resource);
}

// A file of the given runs, in lines of 64.
Bytes fileOfRuns(const Bytes& runs) {
    return bytesOf(kBinHexMarker + binHexText(runs));
}

Bytes joined(Bytes bytes, const Bytes& more) {
    bytes.insert(bytes.end(), more.begin(), more.end());
    return bytes;
}

// The runs of a whole file, whose data fork they are, without a resource fork.
Bytes runsAround(const Bytes& runs, size_t most) {
    uint32_t error = 0;
    const Bytes data = expandedBinHex(runs, most, error);
    const Bytes sections = binHexSections({.claimedData = static_cast<uint32_t>(data.size())});
    Bytes crcs(4);
    storeBig(crcs, 0, 2, crcOf(data.data(), data.size()));
    return joined(joined(binHexRuns(cutTo(sections, kHeaderSize)), runs), binHexRuns(crcs));
}

}  // namespace

TEST_CASE("Where the text of BinHex begins") {
    const std::string text = binHexText(binHexRuns(binHexSections(kSmall)));
    const std::string marker = kBinHexMarker;
    for (const std::string& file : {
             "From: somebody\r\n\r\n" + marker + "\r\n \t\r\n" + text,
             kJapaneseBinHexMarker + ("\r" + text),
             "(This file " + marker + text + "\nsignature: 100%",
             text,
             marker + "\r\n  ",
             marker + "x" + text,
             marker + "::",
         })
        checkAnswer(bytesOf(file));
}

TEST_CASE("Each character has its value, is a blank, or stops, in lines of any length") {
    const std::string text = binHexText(binHexRuns(binHexSections({{.data = patternOf(500)}})));
    for (size_t c = 0; c < 256; ++c) {
        for (const size_t at : {1u, 2u, 16u, 17u, 32u, 41u, 64u}) {
            std::string damaged = text;
            damaged[at] = static_cast<char>(c);
            checkAnswer(bytesOf(kBinHexMarker + damaged), 'F');
        }
    }
    for (size_t line = 1; line < 140; ++line) {
        std::string lines = kBinHexMarker;
        for (size_t i = 0; i < text.size(); ++i) {
            lines += text[i];
            if (i % line == 0) lines.append(1 + i % 3, "\t\n\r "[i / line % 4]);
        }
        checkAnswer(bytesOf(lines));
    }
}

TEST_CASE("Run lengths, and a text that ends anywhere in them") {
    const Bytes rows[] = {
        {0x41, 0x90, 0x03},       {0x41, 0x90, 0x01, 0x42},
        {0x90, 0x00, 0x90, 0x04}, {0x41, 0x90, 0x01, 0x90, 0x01, 0x90, 0x02},
        {0x41, 0x90, 0xFF},
    };
    for (const Bytes& row : rows) {
        const Bytes runs = runsAround(row, 1000);
        for (size_t size = 0; size <= runs.size(); ++size)
            checkAnswer(fileOfRuns(cutTo(runs, size)));
    }
    checkAnswer(fileOfRuns({0x90, 0x03, 0x41, 0x41}));
}

TEST_CASE("A run may straddle any boundary between sections") {
    const Bytes header = binHexSections({{.data = Bytes(40)}});
    checkAnswer(binHexFile(BinHexFile{{.data = Bytes(40)}}));  // its CRC is 0, too
    checkAnswer(binHexFile(BinHexFile{{.data = Bytes(40, header[kHeaderSize - 1])}}));
    const Bytes data = patternOf(40);
    const auto last = static_cast<uint8_t>(crcOf(data.data(), data.size()));
    checkAnswer(binHexFile(BinHexFile{{.data = data, .resource = Bytes(40, last)}}));
}

TEST_CASE("Cut or damaged anywhere, a BinHex file is met with the code that the format demands") {
    const Bytes whole = binHexFile(kSmall);
    for (size_t at = 0; at < whole.size(); ++at) {
        CAPTURE(at);
        checkAnswer(cutTo(whole, at), 'N');
        Bytes damaged = whole;
        damaged[at] = static_cast<uint8_t>(":7!\r"[at % 4]);
        checkAnswer(damaged, at % 8 < 4 ? 'M' : 'F');
    }
    const Bytes sections = binHexSections(kSmall);
    for (size_t at = 0; at < sections.size(); ++at) {
        CAPTURE(at);
        Bytes flipped = sections;
        flipped[at] ^= static_cast<uint8_t>(0x80 >> at % 8);
        checkAnswer(binHexFile(flipped));
        // The text may end well and its stream be short all the same.
        checkAnswer(binHexFile(cutTo(sections, at)));
    }
}

TEST_CASE("The bits of a last character that is missing are zero") {
    for (const size_t length : {9u, 22u, 107u}) {  // whose CRCs end in zeros, in each place of a group
        std::string text = binHexText(binHexRuns(binHexSections({{.resource = patternOf(length)}})));
        text.erase(text.find_last_of('!'), 1);
        const Bytes file = bytesOf(kBinHexMarker + text);
        CHECK(answerToBinHex(file).error == 0);
        checkAnswer(file);
    }
}

TEST_CASE("What a text has at the end of a block") {
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
            checkAnswer(bytesOf(file));
            if (split % 10 == 0) checkAnswer(cutTo(bytesOf(file), kBinHexBlock));
        }
    }
}

TEST_CASE("Forks of many blocks, with blanks anywhere and runs everywhere") {
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
        checkAnswer(file);
        // A stray character, and an end, where a block of the file ends or near it.
        for (const char wrong : {'7', ':'}) {
            Bytes damaged = file;
            damaged[2 * kBinHexBlock - 3 + round] = static_cast<uint8_t>(wrong);
            checkAnswer(damaged);
        }
    }
}

TEST_CASE("A bomb and lengths that lie take little memory") {
    Bytes runs = {0x41};
    for (int i = 0; i < 70000; ++i)  // more than a block's, and each as long as can be
        runs = joined(std::move(runs), {kBinHexRun, 0xFF});
    checkAnswer(fileOfRuns(runsAround(runs, runs.size() * 255)));
    BinHexFile large = {{.data = patternOf(3 * kBinHexBlock), .resource = patternOf(30)}};
    for (std::optional<uint32_t>* const claimed : {&large.claimedResource, &large.claimedData}) {
        for (const uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0x04000000u}) {
            *claimed = length;
            checkAnswer(binHexFile(large));
        }
    }
}

TEST_CASE("What is wrong with a text is told only to a user who waits, and all of the file counts") {
    const Bytes small = binHexFile(kSmall);
    for (const Bytes& file : {small, bytesOf("no BinHex"), cutTo(small, small.size() / 2)}) {
        for (const int cancelled : {0, 2}) {
            TestPc pc;
            writeFile("F:\\in.hqx", file);
            scriptedUser.cancelAtServe = cancelled;
            const ErrorCode error = Conversion{"F:\\in.hqx", "M:\\Test"}.runShown();
            CHECK(error == (cancelled == 0 ? answerToBinHex(file).error : ERROR_CANCELLED));
            CHECK(scriptedUser.done.back() == 1000 + file.size());
        }
    }
}

TEST_CASE("A fork is begun only when what is left of the text could give it") {
    for (size_t left = 3; left < 9; ++left) {
        // A pair of bytes gives 255 at most, and so may a last one.
        const auto most = static_cast<uint32_t>((left + 1) / 2 * 255);
        for (const uint32_t length : {most, most + 1, 0xFFFFFFFFu}) {
            const Bytes header = cutTo(binHexSections({.claimedData = length}), kHeaderSize);
            const Bytes runs = joined(binHexRuns(header), patternOf(left));
            if (runs.size() % 3 != 0) continue;
            TestPc pc;
            CHECK(extractBytes(fileOfRuns(runs), ".hqx", "M:") == ERROR_HANDLE_EOF);
            CHECK((pc.journal().countOn("CreateFileA", "M:\\Test") != 0) == (length == most));
        }
    }
}

TEST_CASE("Names of every length") {
    for (const size_t length : {0u, 1u, 31u, 32u, 63u, 64u, 255u})
        checkAnswer(binHexFile({kForks, Bytes(length, 'n')}));
}
