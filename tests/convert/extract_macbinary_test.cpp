#include "convert/create_macbinary.h"
#include "support/extraction_case.h"
#include "support/macbinary_writer.h"
#include "support/scripted_confirm.h"
#include "ui/confirm_replace.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(70000), .resource = patternOf(333, 3)};

void checkSame(const MacFile& got, const MacFile& wanted, char drive) {
    CHECK(got.data == wanted.data);
    if (drive == 'F') return;
    CHECK(got.resource == wanted.resource);
    CHECK(got.type == wanted.type);
    CHECK(got.creator == wanted.creator);
    CHECK(got.flags == wanted.flags);
    CHECK(got.vertical == wanted.vertical);
    CHECK(got.horizontal == wanted.horizontal);
    CHECK(got.window == wanted.window);
    CHECK(got.attributes == (drive == 'M' ? wanted.attributes : 0));
}

}  // namespace

TEST_CASE("A MacBinary file of each version gives its Mac file back on each volume") {
    const MacBinaryFile versions[] = {
        {.file = kFile},
        {.file = kFile, .withCrc = false},
        {.file = kFile, .writerVersion = 129, .readerVersion = 129},
        {.file = kFile, .writerVersion = 130, .readerVersion = 129, .secondaryHeader = 1},
        {.file = kFile, .secondaryHeader = 300},
    };
    for (const char drive : {'M', 'N', 'F'}) {
        for (const MacBinaryFile& version : versions) {
            TestPc pc;
            CHECK(extractBytes(macBinaryFile(version), ".bin", drive) == 0);
            const std::string path = std::string(1, drive) + ":\\Test";
            checkSame(readMacFile(path), kFile, drive);
            CHECK(pc.journal().countOn("SHChangeNotify", path) == 1);
            CHECK(pc.nothingHeld());
        }
    }
}

TEST_CASE("What was packed comes out again") {
    for (const char drive : {'M', 'N'}) {
        TestPc pc;
        const std::string root = std::string(1, drive) + ":\\";
        writeMacFile(root + "FILE", kFile);
        REQUIRE(CreateMacBinaryFile(nullptr, (root + "FILE").c_str(), "F:\\packed.BIN", nullptr) == 0);
        std::filesystem::create_directory(pc.hostFolder(drive) + "/out");
        DWORD flags = 0;
        CHECK(ExtractOriginalMacFile(nullptr, "F:\\packed.BIN", (root + "out").c_str(), &flags, nullptr) ==
              0);
        checkSame(readMacFile(root + "out\\FILE"), kFile, drive);
    }
}

TEST_CASE("Fields that are 0 in the header keep what the file had") {
    TestPc pc;
    writeMacFile("M:\\Test", kFile);
    MacBinaryFile bare = {.file = {.data = patternOf(5),
                                   .type = 0,
                                   .creator = 0,
                                   .flags = 0,
                                   .vertical = 0,
                                   .horizontal = 0,
                                   .window = 0,
                                   .attributes = 0}};
    scripted_confirm::answer(IDYES);
    CHECK(extractBytes(macBinaryFile(bare), ".bin", 'M') == 0);
    const MacFile merged = readMacFile("M:\\Test");
    CHECK(merged.type == kFile.type);
    CHECK(merged.flags == kFile.flags);
    CHECK(merged.window == kFile.window);
    CHECK(merged.vertical == 0);
    CHECK(merged.attributes == 0);
    CHECK(merged.resource.empty());
    CHECK(merged.data == patternOf(5));
}

TEST_CASE("A new stream of NTFS is a whole AFP record") {
    TestPc pc;
    CHECK(extractBytes(macBinaryFile({.file = kFile}), ".bin", 'N') == 0);
    const Bytes record = readFile("N:\\Test:AFP_AfpInfo");
    REQUIRE(record.size() == 60);
    const Bytes start = {'A', 'F', 'P', 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 'T', 'E', 'X', 'T'};
    CHECK(std::equal(start.begin(), start.end(), record.begin()));
}

TEST_CASE("Truncated anywhere, a MacBinary file leaves nothing") {
    const Bytes whole =
        macBinaryFile({.file = {.data = patternOf(200), .resource = patternOf(130)}, .secondaryHeader = 5});
    for (size_t size = 0; size < whole.size(); ++size) {
        TestPc pc;
        const ErrorCode error = extractBytes(Bytes(whole.begin(), whole.begin() + static_cast<int>(size)),
                                             ".bin", "MNF"[size % 3]);
        // The size check knows nothing of the secondary header, and the last padding is not read.
        const bool resourceWhole = size >= 128 + 128 + 256 + 130;
        const bool wholeForks = size % 3 == 2 ? size >= 128 + 256 + 256 : resourceWhole;
        CHECK_MESSAGE(error == (wholeForks ? 0 : ERROR_HANDLE_EOF), size);
        CHECK(exists(std::string(1, "MNF"[size % 3]) + ":\\Test") == (error == 0));
        CHECK(pc.nothingHeld());
    }
}

TEST_CASE("Every flipped bit of a header is met with its code") {
    const MacBinaryFile file = {.file = {.data = patternOf(200), .resource = patternOf(130)}};
    for (const bool withCrc : {true, false}) {
        Bytes bytes = macBinaryFile(file);
        if (!withCrc) bytes[124] = bytes[125] = 0;
        TestPc pc;
        scripted_confirm::answer(IDYES);
        for (size_t bit = 0; bit < 128 * 8; ++bit) {
            Bytes flipped = bytes;
            flipped[bit / 8] ^= static_cast<uint8_t>(0x80 >> bit % 8);
            ErrorCode wanted = 0;
            const bool crcStored = flipped[124] != 0 || flipped[125] != 0;
            const auto number = [&flipped](size_t at) {
                uint64_t value = 0;
                for (size_t i = 0; i < 4; ++i)
                    value = value << 8 | flipped[at + i];
                return value;
            };
            const uint64_t needed = 128 + (number(83) + 127) / 128 * 128 + (number(87) + 127) / 128 * 128;
            const size_t secondary = size_t{flipped[120]} * 256 + flipped[121];
            if (crcStored && bit < 126 * 8) {
                wanted = ERROR_CRC;
            } else if (flipped[1] < 1 || flipped[1] > 63 || (flipped[123] != 0 && flipped[123] < 129)) {
                wanted = ERROR_INVALID_DATA;
            } else if (needed > flipped.size()) {
                wanted = ERROR_HANDLE_EOF;
            } else if (std::any_of(flipped.begin() + 2, flipped.begin() + 6,
                                   [](uint8_t c) { return c < ' '; })) {
                wanted = ERROR_INVALID_NAME;  // of a Windows file
            } else if (secondary != 0) {
                wanted = ERROR_HANDLE_EOF;
            }
            CHECK_MESSAGE(extractBytes(flipped, ".bin", 'N') == wanted, bit);
        }
        CHECK(pc.nothingHeld());
    }
}

TEST_CASE("Lengths that lie and names of every length") {
    TestPc pc;
    for (const uint32_t length : {0x7FFFFFFFu, 0x80000000u, 0xFFFFFF80u, 0xFFFFFF81u, 0xFFFFFFFFu}) {
        for (const size_t at : {size_t{83}, size_t{87}}) {
            Bytes bytes = macBinaryFile({.file = {.data = patternOf(100), .resource = patternOf(100)}});
            for (size_t i = 0; i < 4; ++i)
                bytes[at + i] = static_cast<uint8_t>(length >> (24 - 8 * i));
            setMacBinaryCrc(bytes);
            CHECK(extractBytes(bytes, ".bin", 'M') == ERROR_HANDLE_EOF);
            CHECK(!exists("M:\\Test"));
        }
    }
    for (const size_t length :
         {size_t{0}, size_t{1}, size_t{31}, size_t{32}, size_t{63}, size_t{64}, size_t{255}}) {
        const Bytes name(length, 'n');
        const ErrorCode error = extractBytes(macBinaryFile({.name = name}), ".bin", 'N');
        CHECK(error == (length >= 1 && length <= 63 ? 0 : ERROR_INVALID_DATA));
        if (error == 0) CHECK(exists("N:\\" + std::string(length, 'n')));
    }
    for (unsigned version = 0; version < 256; ++version) {
        MacBinaryFile file;
        file.readerVersion = static_cast<uint8_t>(version);
        scripted_confirm::answer(IDYES);
        CHECK(extractBytes(macBinaryFile(file), ".bin", 'F') ==
              (version == 0 || version >= 129 ? 0 : ERROR_INVALID_DATA));
    }
}

TEST_CASE("What decides an extraction") {
    TestPc pc;
    const Bytes bytes = macBinaryFile({.file = kFile});
    CHECK(extractBytes(bytes, ".BIN", 'F') == 0);
    CHECK(extractBytes(bytes, ".bin.txt", 'F') == ERROR_INVALID_DATA);
    CHECK(extractBytes(bytes, "", 'F') == ERROR_INVALID_DATA);
    DWORD flags = 0;
    CHECK(ExtractOriginalMacFile(nullptr, "F:\\in.bin", "F:\\in.bin", &flags, nullptr) == ERROR_BAD_PATHNAME);
    CHECK(ExtractOriginalMacFile(nullptr, "F:\\in.bin", "F:\\no", &flags, nullptr) == ERROR_FILE_NOT_FOUND);
    CHECK(ExtractOriginalMacFile(nullptr, "F:\\no.bin", "F:\\", &flags, nullptr) == ERROR_FILE_NOT_FOUND);
    CHECK(pc.nothingHeld());
}

TEST_CASE("An existing file is replaced only when the user says so") {
    TestPc pc;
    writeFile("F:\\Test", bytesOf("old"));
    const Bytes bytes = macBinaryFile({.file = kFile});
    scripted_confirm::answer(IDNO);
    CHECK(extractBytes(bytes, ".bin", 'F') == 0);
    CHECK(scripted_confirm::asked() == 1);
    CHECK(!scripted_confirm::lastSeveral());
    CHECK(readFile("F:\\Test") == bytesOf("old"));
    scripted_confirm::answer(IDCANCEL);
    CHECK(extractBytes(bytes, ".bin", 'F') == ERROR_CANCELLED);
    scripted_confirm::answer(-1);
    CHECK(extractBytes(bytes, ".bin", 'F') != 0);
    CHECK(readFile("F:\\Test") == bytesOf("old"));

    DWORD flags = kMoreFollow;
    scripted_confirm::answer(IDYESTOALL);
    CHECK(ExtractOriginalMacFile(nullptr, "F:\\in.bin", "F:\\", &flags, nullptr) == 0);
    CHECK(scripted_confirm::lastSeveral());
    CHECK(flags == (kMoreFollow | kReplaceAll));
    scripted_confirm::answer(IDNO);
    CHECK(ExtractOriginalMacFile(nullptr, "F:\\in.bin", "F:\\", &flags, nullptr) == 0);
    CHECK(scripted_confirm::asked() == 0);
    CHECK(readFile("F:\\Test") == kFile.data);

    // A file in use is not touched, though the user agreed.
    const HANDLE inUse =
        CreateFileA("F:\\Test", GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    CHECK(ExtractOriginalMacFile(nullptr, "F:\\in.bin", "F:\\", &flags, nullptr) == ERROR_SHARING_VIOLATION);
    CloseHandle(inUse);
    CHECK(readFile("F:\\Test") == kFile.data);
}
