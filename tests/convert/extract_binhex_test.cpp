#include "convert/binhex_stream.h"
#include "convert/binhex_text.h"
#include "support/archive_writer.h"
#include "support/extraction_case.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

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

std::string decoded(std::string text, ErrorCode wanted = 0) {
    size_t produced = 0;
    const ErrorCode error = DecodeBinHexText(reinterpret_cast<uint8_t*>(text.data()), text.size(), produced);
    CHECK_MESSAGE(error == wanted, text);
    return error == 0 ? text.substr(0, produced) : "";
}

Bytes expanded(const Bytes& runs, size_t count, ErrorCode wanted = 0) {
    BinHexStream stream = {runs.data(), runs.data() + runs.size()};
    Bytes out(count);
    CHECK(ReadRunLength(stream, out.data(), count, nullptr) == wanted);
    return out;
}

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
    const std::string japanese =
        "\x81\x69\x82\xB1\x82\xCC\x83\x74\x83\x40\x83\x43\x83\x8B\x82\xCD BinHex4.0 \x82\xC5\x95\xCF\x8A\xB7"
        "\x82\xB3\x82\xEA\x82\xE9\x95\x4B\x97\x76\x82\xAA\x82\xA0\x82\xE8\x82\xDC\x82\xB7\x81\x42\x81\x6A";
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

TEST_CASE("Six bits a character, blanks anywhere") {
    CHECK(decoded(":!!!!:") == std::string(3, '\0'));
    CHECK(decoded(" \r\n:r r\tr\rr\n:") == "\xFF\xFF\xFF");
    CHECK(decoded("::").empty());
    // A byte that the last group begins counts.
    CHECK(decoded(":rrrrr:") == "\xFF\xFF\xFF\xFC");
    CHECK(decoded(":rrrrrr:") == "\xFF\xFF\xFF\xFF\xF0");
    CHECK(decoded(":rrrrrrr:") == "\xFF\xFF\xFF\xFF\xFF\xC0");
    decoded(":rrrr", ERROR_HANDLE_EOF);
    decoded(":", ERROR_HANDLE_EOF);
    decoded("", ERROR_INVALID_DATA);
    decoded("rrrr:", ERROR_INVALID_DATA);
    for (int c = 0; c < 256; ++c) {
        const bool passes = c != 0 && (std::strchr(kBinHexAlphabet, c) || std::strchr(":\t\n\r ", c));
        for (size_t at = 1; at <= 8; ++at) {
            std::string text = ":rrrrrrrr:";
            text[at] = static_cast<char>(c);
            decoded(text, passes ? 0 : ERROR_INVALID_DATA);
        }
    }
}

TEST_CASE("Run lengths") {
    CHECK(expanded({0x41, 0x90, 0x03}, 3) == Bytes{0x41, 0x41, 0x41});
    CHECK(expanded({0x90, 0x00}, 1) == Bytes{0x90});
    CHECK(expanded({0x41, 0x90, 0x01, 0x42}, 2) == Bytes{0x41, 0x42});
    CHECK(expanded({0x90, 0x00, 0x90, 0x04}, 4) == Bytes(4, 0x90));
    CHECK(expanded({0x41, 0x90, 0xFF}, 255) == Bytes(255, 0x41));
    expanded({0x90, 0x03}, 1, ERROR_INVALID_DATA);
    expanded({0x41, 0x90}, 2, ERROR_INVALID_DATA);
    expanded({0x90}, 1, ERROR_INVALID_DATA);
    expanded({0x41}, 2, ERROR_HANDLE_EOF);
    expanded({}, 1, ERROR_HANDLE_EOF);
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

TEST_CASE("Truncated anywhere, a BinHex file leaves nothing") {
    const Bytes whole = binHexFile(kSmall);
    const std::string text(whole.begin(), whole.end());
    for (size_t size = 0; size < whole.size(); ++size) {
        TestPc pc;
        const ErrorCode wanted = size <= text.find(':')    ? ERROR_INVALID_DATA
                                 : size <= text.rfind(':') ? ERROR_HANDLE_EOF
                                                           : 0;
        CHECK_MESSAGE(extractBytes(cutTo(whole, size), ".hqx", 'N') == wanted, size);
        CHECK(exists("N:\\Test") == (wanted == 0));
        CHECK(pc.nothingHeld());
    }
    // The text may end well and its stream be short all the same.
    const Bytes sections = binHexSections(kSmall);
    for (size_t size = 0; size < sections.size(); ++size) {
        TestPc pc;
        // A last byte that the text only begins counts: it makes a section's CRC whole, and wrong.
        const bool lastByteBegun = size + 1 == kHeaderSize + 60 + 2 || size + 1 == sections.size();
        const ErrorCode error = extractBytes(binHexFile(cutTo(sections, size)), ".hqx", 'M');
        CHECK_MESSAGE((error == ERROR_HANDLE_EOF || (lastByteBegun && error == ERROR_CRC)), size);
        CHECK(!exists("M:\\Test"));
        if (size < kHeaderSize) CHECK(pc.journal().countOn("CreateFileA", "M:\\Test") == 0);
    }
}

TEST_CASE("Every flipped bit of a stream is met with its code") {
    const Bytes sections = binHexSections(kSmall);
    TestPc pc;
    for (size_t bit = 0; bit < sections.size() * 8; ++bit) {
        Bytes flipped = sections;
        flipped[bit / 8] ^= static_cast<uint8_t>(0x80 >> bit % 8);
        const size_t header = flipped[0] + size_t{1} + 19 + 2;
        const ErrorCode wanted = header > flipped.size() ? ERROR_HANDLE_EOF : ERROR_CRC;
        CHECK_MESSAGE(extractBytes(binHexFile(flipped), ".hqx", 'M') == wanted, bit);
        CHECK(!exists("M:\\Test"));
        // A wrong header is told before any file is made.
        if (bit < kHeaderSize * 8) CHECK(pc.journal().countOn("CreateFileA", "M:\\Test") == 0);
        pc.journal().clear();
    }
    CHECK(pc.nothingHeld());
}

TEST_CASE("Lengths that lie take neither memory nor time") {
    for (const uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0x01000000u}) {
        for (const bool inData : {true, false}) {
            TestPc pc;
            BinHexFile file = kSmall;
            (inData ? file.claimedData : file.claimedResource) = length;
            CHECK(extractBytes(binHexFile(file), ".hqx", 'M') == ERROR_HANDLE_EOF);
            CHECK(!exists("M:\\Test"));
            for (const pc::JournalEntry& entry : pc.journal().entries())
                CHECK((entry.call != "VirtualAlloc" || entry.amount < 100000));
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
