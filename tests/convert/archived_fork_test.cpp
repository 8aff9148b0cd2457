#include "convert/archived_fork.h"
#include "support/binhex_reference.h"
#include "support/extraction_case.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

struct Answer {
    ErrorCode error = 0;
    Bytes fork = {};

    bool operator==(const Answer&) const = default;
};

Answer answerOf(const std::string& path) {
    ForkBytes fork;
    uint64_t size = 0;
    Answer answer = {OpenArchivedFork(path.c_str(), fork)};
    CHECK(static_cast<bool>(fork) == (answer.error == 0));
    if (answer.error == 0) answer.error = fork.GetSize(size);
    answer.fork.resize(static_cast<size_t>(size));
    if (answer.error == 0)
        answer.error = fork.ReadWholeAt(0, answer.fork.data(), static_cast<DWORD>(answer.fork.size()));
    return answer.error == 0 ? answer : Answer{answer.error};
}

Answer answerTo(const Bytes& archive, const std::string& path) {
    writeFile(path, archive);
    return answerOf(path);
}

void checkBinHex(const Bytes& archive) {
    TestPc pc;
    const BinHexAnswer right = answerToBinHex(archive);
    CHECK(answerTo(archive, "F:\\in.hqx") ==
          Answer{right.error, right.error == 0 ? right.resource : Bytes{}});
    // No memory is taken for what the file cannot hold.
    for (const pc::JournalEntry& entry : pc.journal().entries())
        CHECK((entry.call != "VirtualAlloc" || entry.amount < 0x100000));
    CHECK(pc.nothingHeld());
}

}  // namespace

TEST_CASE("The fork in a MacBinary file is where its header says, or the file ends too early") {
    TestPc pc;
    for (const uint16_t secondaryHeader : std::initializer_list<uint16_t>{0, 1, 200}) {
        for (const size_t length : {0u, 1u, 127u, 128u, 129u}) {
            const Bytes resource = patternOf(length, 7);
            const Bytes whole =
                macBinaryFile({.file = {.data = patternOf(128 * (length % 2) + length), .resource = resource},
                               .secondaryHeader = secondaryHeader});
            for (size_t size = 0; size <= whole.size(); size += size + 300 < whole.size() ? 97 : 1) {
                // A file's last bytes may be padding, which only a file without a secondary header must have.
                const size_t needed = whole.size() - (secondaryHeader != 0 ? (128 - length % 128) % 128 : 0);
                const Answer right = size < needed ? Answer{ERROR_HANDLE_EOF} : Answer{0, resource};
                CHECK(answerTo(cutTo(whole, size), "F:\\in.BIN") == right);
            }
        }
    }
    Bytes damaged = macBinaryFile({});
    ++damaged[70];
    CHECK(answerTo(damaged, "F:\\in.bin").error == ERROR_CRC);
    // Sums of what it claims do not fit 32 bits.
    for (const size_t field : {83u, 87u}) {
        Bytes huge = macBinaryFile({.secondaryHeader = 200});
        storeBig(huge, field, 4, 0xFFFFFFFF);
        setMacBinaryCrc(huge);
        CHECK(answerTo(huge, "F:\\in.bin").error == ERROR_HANDLE_EOF);
    }
    CHECK(pc.nothingHeld());
}

TEST_CASE("The fork in a BinHex file comes out whole, or with the error that the format demands") {
    const MacFile file = {.data = patternOf(60), .resource = patternOf(30)};
    const Bytes whole = binHexFile({file});
    for (size_t size = 0; size <= whole.size(); ++size)
        checkBinHex(cutTo(whole, size));
    const Bytes sections = binHexSections({file});
    for (size_t at = 0; at < sections.size(); ++at) {
        Bytes flipped = sections;
        flipped[at] ^= 0x10;
        checkBinHex(binHexFile(flipped));
    }
    for (const size_t length : {0u, 1u, 131071u, 131072u, 131073u, 300000u})
        checkBinHex(binHexFile({{.data = patternOf(length), .resource = patternOf(length, 5)}}));
    for (const uint32_t claim : {0x7FFFFFFFu, 0xFFFFFFFFu}) {
        checkBinHex(binHexFile(BinHexFile{.claimedData = claim}));
        checkBinHex(binHexFile(BinHexFile{.claimedResource = claim}));
    }
}

TEST_CASE("Every call that fails in finding a fork is told, and nothing is held") {
    const MacFile file = {.data = patternOf(300), .resource = patternOf(200)};
    const std::pair<std::string, Bytes> archives[] = {{"F:\\in.bin", macBinaryFile({file})},
                                                      {"F:\\in.hqx", binHexFile({file})}};
    for (const auto& [path, archive] : archives) {
        bool hit = true;
        for (int call = 1; hit; ++call) {
            TestPc pc;
            writeFile(path, archive);
            pc.faults().failCall(call, ERROR_CRC);
            const Answer answer = answerOf(path);
            hit = pc.faults().hit();
            CHECK(answer == (hit ? Answer{pc.faults().injected()} : Answer{0, file.resource}));
            pc.faults().clear();
            CHECK(pc.nothingHeld());
        }
    }
}

TEST_CASE("Only the two extensions are looked into") {
    TestPc pc;
    CHECK(IsArchivePath("in.HQX"));
    CHECK(!IsArchivePath("in.bin.txt"));
    CHECK(answerTo(macBinaryFile({}), "F:\\in.bin.txt").error == ERROR_INVALID_DATA);
}
