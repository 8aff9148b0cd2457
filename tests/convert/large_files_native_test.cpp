// Files of more than 4 GB, most of them holes: only a real host keeps bytes behind one.
#include "convert/binhex_text.h"
#include "support/extraction_case.h"
#include "support/temp_folder_native.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <memory>

using namespace tidewell;

namespace {

constexpr uint64_t k4Gigabytes = 0x100000000u;
const Conversion kExtract = {"L:\\in.bin", "M:\\Test"};

struct LargePc : TestPc {
    TempFolder large;
    LargePc() { addDrive('L', pc::makeFatVolume(large.host(), large.path())); }

    // The bytes at `start` of a file of `size` bytes.
    void write(const std::string& name, uint64_t start, const auto& bytes, uint64_t size) const {
        const std::string path = large.path(name);
        std::ofstream(path, std::ios::binary | std::ios::app).close();
        std::filesystem::resize_file(path, start);
        std::ofstream(path, std::ios::binary | std::ios::app) << std::string(bytes.begin(), bytes.end());
        std::filesystem::resize_file(path, size);
    }
};

}  // namespace

TEST_CASE_FIXTURE(LargePc, "A text beyond 4 GB, and one that has changed since it was looked through") {
    const auto decodedAt = [this](const std::string& text, ErrorCode wanted, uint64_t start,
                                  uint64_t behind) {
        write("text", start, text, start + behind);
        OwnedFile file;
        REQUIRE(OpenForReading("L:\\text", file) == 0);
        const auto memory = std::make_unique<BinHexMemory>();
        BinHexText decoded;
        CHECK(OpenBinHexText(file.get(), start + behind, {.start = start}, *memory, decoded) == 0);
        const ErrorCode error = DecodeBinHexText(decoded);
        CHECK(error == wanted);
        return error == 0 ? std::string(decoded.next, decoded.end) : "";
    };
    const uint64_t beyond = 2 * k4Gigabytes - 2;
    CHECK(decodedAt("r r\tr\rr!!:", 0, beyond, k4Gigabytes) == std::string("\xFF\xFF\xFF\0\0", 5));
    CHECK(decodedAt(" :rr", 0, 100, 4).empty());
    decodedAt("rrrr7:", ERROR_INVALID_DATA, beyond, 6);
    decodedAt("  ", ERROR_HANDLE_EOF, beyond, 2);
}

TEST_CASE_FIXTURE(LargePc, "A MacBinary file counts with all of its bytes") {
    const MacFile file = {.data = patternOf(300), .resource = patternOf(20)};
    write("in.bin", 0, macBinaryFile({file}), k4Gigabytes + 1);
    CHECK(kExtract.runShown() == 0);
    CHECK(scriptedUser.done.back() == 1000 + k4Gigabytes + 1);
    CHECK(readMacFile("M:\\Test") == file);
}

TEST_CASE_FIXTURE(LargePc, "A file is as long as forks of 4 GB need, or it is told") {
    const MacFile file = {.data = patternOf(1000), .resource = patternOf(20)};
    Bytes header = cutTo(macBinaryFile({file}), 128);
    storeBig(header, 83, 4, 0xFFFFFFFF);
    setMacBinaryCrc(header);
    write("in.bin", 0, header, k4Gigabytes + 128 + 128);
    drive('M')->volume->setFreeSpace(100000);
    CHECK(kExtract.runShown() == ERROR_DISK_FULL);
    CHECK(scriptedUser.done.back() == 1000 + 128 + 65536);
    write("in.bin", 0, header, k4Gigabytes + 128 + 127);
    CHECK(kExtract.run() == ERROR_HANDLE_EOF);
    CHECK(!exists("M:\\Test"));
}
