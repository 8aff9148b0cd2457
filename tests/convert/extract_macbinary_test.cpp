#include "convert/macbinary_crc.h"
#include "support/extraction_case.h"
#include "ui/confirm_replace.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(70000), .resource = patternOf(333, 3)};
const MacBinaryFile kSmall = {.file = {.data = patternOf(200), .resource = patternOf(130)}};

}  // namespace

TEST_CASE("A MacBinary file of each version gives its Mac file back on each volume") {
    const MacBinaryFile versions[] = {
        {.file = kFile, .withCrc = false},
        {.file = kFile, .writerVersion = 130, .readerVersion = 129, .secondaryHeader = 1},
        {.file = kFile, .secondaryHeader = 300},
    };
    for (const std::string path : {"M:\\Test", "N:\\Test", "F:\\Test"}) {
        for (const MacBinaryFile& version : versions) {
            TestPc pc;
            CHECK(extractBytes(macBinaryFile(version), ".bin", path[0]) == 0);
            CHECK(readMacFile(path) == keptOn(path[0], kFile));
            if (path[0] != 'N') continue;
            const Bytes start = {'A', 'F', 'P', 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 'T', 'E', 'X', 'T'};
            const Bytes record = readFile(path + ":AFP_AfpInfo");
            CHECK(record.size() == 60);
            CHECK(cutTo(record, 20) == start);
        }
    }
}

TEST_CASE("Truncated anywhere, a MacBinary file leaves nothing") {
    MacBinaryFile file = kSmall;
    file.secondaryHeader = 5;
    const Bytes whole = macBinaryFile(file);
    TestPc pc;
    for (size_t size = 0; size < whole.size(); ++size) {
        const char drive = "MNF"[size % 3];
        // The size check knows nothing of the secondary header, and the last padding is not read.
        const size_t needed = drive == 'F' ? 128 + 256 + 256 : 128 + 128 + 256 + 130;
        const ErrorCode error = extractBytes(cutTo(whole, size), ".bin", drive);
        CHECK_MESSAGE(error == (size >= needed ? 0 : ERROR_HANDLE_EOF), size);
        const std::string output = std::string(1, drive) + ":\\Test";
        CHECK(exists(output) == (error == 0));
        CHECK(pc.nothingHeld());
        DeleteFileA(output.c_str());
    }
}

TEST_CASE("Any flipped bit of a header with a CRC is told before anything is made or asked") {
    const Bytes bytes = macBinaryFile(kSmall);
    TestPc pc;
    for (size_t bit = 0; bit < 126 * 8; ++bit) {
        Bytes flipped = bytes;
        flipped[bit / 8] ^= static_cast<uint8_t>(0x80 >> bit % 8);
        CHECK_MESSAGE(extractBytes(flipped, ".bin", 'N') == ERROR_CRC, bit);
    }
    CHECK(pc.folder().names("N").empty());
}

TEST_CASE("Lengths that lie, names of every length, and versions") {
    TestPc pc;
    for (const uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFF80u, 0xFFFFFF81u, 0xFFFFFFFFu}) {
        for (const size_t at : {83u, 87u}) {
            Bytes bytes = macBinaryFile(kSmall);
            storeBig(bytes, at, 4, length);
            setMacBinaryCrc(bytes);
            CHECK(extractBytes(bytes, ".bin", 'M') == ERROR_HANDLE_EOF);
            CHECK(!exists("M:\\Test"));
        }
    }
    for (const size_t length : {0u, 1u, 31u, 32u, 63u, 64u, 255u}) {
        const ErrorCode error = extractBytes(macBinaryFile({.name = Bytes(length, 'n')}), ".bin", 'N');
        CHECK(error == (length >= 1 && length <= 63 ? 0 : ERROR_INVALID_DATA));
        if (error == 0) CHECK(exists("N:\\" + std::string(length, 'n')));
    }
    for (unsigned version = 0; version < 256; ++version) {
        const MacBinaryFile file = {.readerVersion = static_cast<uint8_t>(version)};
        CHECK(extractBytes(macBinaryFile(file), ".bin", 'F') ==
              (version == 0 || version >= 129 ? 0 : ERROR_INVALID_DATA));
    }
}

TEST_CASE("An existing file is replaced only when the user says so") {
    TestPc pc;
    writeFile("F:\\in.bin", macBinaryFile({kFile}));
    writeFile("F:\\Test", bytesOf("old"));
    DWORD flags = 0;
    const auto extract = [&flags](int answer, DWORD error = 0) {
        scriptedUser.answer = answer;
        scriptedUser.answerError = error;
        scriptedUser.asked = 0;
        return ExtractOriginalMacFile(nullptr, "F:\\in.bin", "F:\\", &flags, nullptr);
    };
    CHECK(extract(IDNO) == 0);
    CHECK(scriptedUser.asked == 1);
    CHECK(!scriptedUser.several);
    CHECK(extract(IDCANCEL) == ERROR_CANCELLED);
    CHECK(extract(-1, ERROR_NOT_ENOUGH_MEMORY) == ERROR_NOT_ENOUGH_MEMORY);
    // What is none of the answers is no leave to replace.
    for (const int answer : {0, IDOK, 3, 8, -1, -2})
        CHECK(extract(answer) == ERROR_FILE_EXISTS);
    CHECK(readFile("F:\\Test") == bytesOf("old"));
    CHECK(flags == 0);

    flags = kMoreFollow;
    CHECK(extract(IDYESTOALL) == 0);
    CHECK(scriptedUser.several);
    CHECK(flags == (kMoreFollow | kReplaceAll));
    writeFile("F:\\Test", bytesOf("old"));
    CHECK(extract(IDNO) == 0);
    CHECK(scriptedUser.asked == 0);
    CHECK(readFile("F:\\Test") == kFile.data);

    // A file in use is not touched, though the user agreed.
    const OwnedFile inUse(
        CreateFileA("F:\\Test", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
    CHECK(extract(IDYES) == ERROR_SHARING_VIOLATION);
    CHECK(readFile("F:\\Test") == kFile.data);
}

TEST_CASE("The CRC of MacBinary") {
    const Bytes bytes = patternOf(30000, 7);
    for (const size_t size : {0u, 1u, 2u, 15u, 16u, 17u, 31u, 32u, 124u, 1000u, 8191u, 8192u, 30000u})
        CHECK(MacBinaryCrc(bytes.data(), size) == crcOf(bytes.data(), size));
    CHECK(MacBinaryCrc("123456789", 9) == 0x31C3);
}
