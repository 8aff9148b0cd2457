#include "convert/binhex_stream.h"
#include "convert/binhex_text.h"
#include "support/binhex_writer.h"
#include "support/extraction_case.h"
#include "support/scripted_confirm.h"
#include "ui/confirm_replace.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>
#include <string_view>

using namespace tidewell;

namespace {

BinHexFile sampleFile() {
    return {.data = patternOf(3000), .resource = patternOf(500, 3)};
}

Bytes withMarker(const std::string& text) {
    return bytesOf(std::string(kBinHexMarker) + "\n" + text);
}

Bytes ofSections(const Bytes& sections) {
    return withMarker(binHexText(binHexRuns(sections)));
}

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
        CHECK(extractBytes(binHexFile(sampleFile()), ".hqx", drive) == 0);
        const std::string path = std::string(1, drive) + ":\\Test";
        const MacFile file = readMacFile(path);
        CHECK(file.data == sampleFile().data);
        CHECK(pc.journal().countOn("SHChangeNotify", path) == 1);
        if (drive != 'F') {
            CHECK(file.resource == sampleFile().resource);
            CHECK(file.type == 0x54455854);
            CHECK(file.creator == 0x74747874);
            CHECK(file.flags == 0);
        }
        CHECK(pc.nothingHeld());
    }
}

TEST_CASE("Where the text of BinHex begins") {
    const std::string text = binHexText(binHexRuns(binHexSections(sampleFile())));
    const std::string japanese =
        "\x81\x69\x82\xB1\x82\xCC\x83\x74\x83\x40\x83\x43\x83\x8B\x82\xCD BinHex4.0 \x82\xC5\x95\xCF\x8A\xB7"
        "\x82\xB3\x82\xEA\x82\xE9\x95\x4B\x97\x76\x82\xAA\x82\xA0\x82\xE8\x82\xDC\x82\xB7\x81\x42\x81\x6A";
    const std::string marker = kBinHexMarker;
    struct Row {
        std::string file;
        ErrorCode error;
    };
    const Row rows[] = {
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
    for (const Row& row : rows) {
        TestPc pc;
        CHECK_MESSAGE(extractBytes(bytesOf(row.file), ".hqx", 'M') == row.error, row.file.substr(0, 80));
        CHECK(exists("M:\\Test") == (row.error == 0));
    }
}

TEST_CASE("Six bits a character, blanks anywhere") {
    CHECK(decoded(":!!!!:") == std::string(3, '\0'));
    CHECK(decoded(":rrrr:") == "\xFF\xFF\xFF");
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
    const std::string_view alphabet = "!\"#$%&'()*+,-012345689@ABCDEFGHIJKLMNPQRSTUVXYZ[`abcdefhijklmpqr";
    for (int c = 0; c < 256; ++c) {
        const char character = static_cast<char>(c);
        const bool known = alphabet.find(character) != std::string_view::npos;
        const bool passes = known || character == ':' ||
                            std::string_view("\t\n\r ").find(character) != std::string_view::npos;
        for (size_t at = 1; at <= 8; ++at) {
            std::string text = ":rrrrrrrr:";
            text[at] = character;
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
    const Bytes sections =
        binHexSections({.name = bytesOf("Test"), .data = Bytes(40, 0), .resource = Bytes(40, 0x90)});
    // Each place where a byte repeats becomes a run there, whatever section it ends in.
    for (size_t at = 1; at < sections.size(); ++at) {
        if (sections[at] != sections[at - 1]) continue;
        size_t length = 2;
        while (at + length - 1 < sections.size() && sections[at + length - 1] == sections[at] && length < 255)
            ++length;
        Bytes runs;
        const auto put = [&runs](uint8_t value) {
            runs.push_back(value);
            if (value == 0x90) runs.push_back(0);
        };
        std::for_each(sections.begin(), sections.begin() + static_cast<int>(at), put);
        runs.push_back(0x90);
        runs.push_back(static_cast<uint8_t>(length));
        std::for_each(sections.begin() + static_cast<int>(at + length - 1), sections.end(), put);
        TestPc pc;
        CHECK_MESSAGE(extractBytes(withMarker(binHexText(runs)), ".hqx", 'M') == 0, at);
        CHECK(readMacFile("M:\\Test").data == Bytes(40, 0));
        CHECK(readMacFile("M:\\Test").resource == Bytes(40, 0x90));
    }
}

TEST_CASE("Truncated anywhere, a BinHex file leaves nothing") {
    const BinHexFile file = {.data = patternOf(60), .resource = patternOf(30)};
    const Bytes whole = binHexFile(file);
    const auto end =
        static_cast<size_t>(std::find(whole.rbegin(), whole.rend(), uint8_t{':'}).base() - whole.begin());
    const auto begin =
        static_cast<size_t>(std::find(whole.begin(), whole.end(), uint8_t{':'}) - whole.begin());
    for (size_t size = 0; size < whole.size(); ++size) {
        TestPc pc;
        const Bytes cut(whole.begin(), whole.begin() + static_cast<int>(size));
        const ErrorCode wanted = size <= begin ? ERROR_INVALID_DATA : size < end ? ERROR_HANDLE_EOF : 0;
        CHECK_MESSAGE(extractBytes(cut, ".hqx", 'N') == wanted, size);
        CHECK(exists("N:\\Test") == (wanted == 0));
        CHECK(pc.nothingHeld());
    }
    // The text may end well and its stream be short all the same.
    const Bytes sections = binHexSections(file);
    const size_t headerSize = 1 + 4 + 19 + 2;
    for (size_t size = 0; size < sections.size(); ++size) {
        TestPc pc;
        const Bytes cut(sections.begin(), sections.begin() + static_cast<int>(size));
        // A last byte that the text only begins counts: it makes a section's CRC whole, and wrong.
        const bool lastByteBegun = size + 1 == headerSize + 60 + 2 || size + 1 == sections.size();
        const ErrorCode error = extractBytes(ofSections(cut), ".hqx", 'M');
        CHECK_MESSAGE((error == ERROR_HANDLE_EOF || (lastByteBegun && error == ERROR_CRC)), size);
        CHECK(!exists("M:\\Test"));
        if (size < headerSize) CHECK(pc.journal().countOn("CreateFileA", "M:\\Test") == 0);
    }
}

TEST_CASE("Every flipped bit of a stream is met with its code") {
    const BinHexFile file = {.data = patternOf(60), .resource = patternOf(30)};
    const Bytes sections = binHexSections(file);
    const size_t headerSize = 1 + 4 + 19 + 2;
    TestPc pc;
    for (size_t bit = 0; bit < sections.size() * 8; ++bit) {
        Bytes flipped = sections;
        flipped[bit / 8] ^= static_cast<uint8_t>(0x80 >> bit % 8);
        const size_t header = flipped[0] + size_t{1} + 19 + 2;
        const ErrorCode wanted = header > flipped.size() ? ERROR_HANDLE_EOF : ERROR_CRC;
        CHECK_MESSAGE(extractBytes(ofSections(flipped), ".hqx", 'M') == wanted, bit);
        CHECK(!exists("M:\\Test"));
        // A wrong header is told before any file is made.
        if (bit < headerSize * 8) CHECK(pc.journal().countOn("CreateFileA", "M:\\Test") == 0);
        pc.journal().clear();
    }
    CHECK(pc.nothingHeld());
}

TEST_CASE("Lengths that lie take neither memory nor time") {
    for (const uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu, 0x01000000u}) {
        for (const bool inData : {true, false}) {
            TestPc pc;
            BinHexFile file = {.data = patternOf(60), .resource = patternOf(30), .lies = true};
            file.claimedData = inData ? length : 60;
            file.claimedResource = inData ? 30 : length;
            CHECK(extractBytes(binHexFile(file), ".hqx", 'M') == ERROR_HANDLE_EOF);
            CHECK(!exists("M:\\Test"));
            for (const pc::JournalEntry& entry : pc.journal().entries())
                CHECK((entry.call != "VirtualAlloc" || entry.amount < 100000));
        }
    }
}

TEST_CASE("Names of every length") {
    for (const size_t length :
         {size_t{0}, size_t{1}, size_t{31}, size_t{32}, size_t{63}, size_t{64}, size_t{255}}) {
        TestPc pc;
        BinHexFile file = sampleFile();
        file.name = Bytes(length, 'n');
        CHECK(extractBytes(binHexFile(file), ".hqx", 'M') == (length == 0 ? ERROR_INVALID_DATA : 0));
        if (length != 0)
            CHECK(readMacFile("M:\\" + std::string(std::min<size_t>(length, 31), 'n')).data == file.data);
    }
}
