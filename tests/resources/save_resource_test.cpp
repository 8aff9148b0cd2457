// Saving a resource, its dump, or the fork: what is saved, and that a save that fails leaves what was there.
#include "resources/save_resource.h"

#include "support/resource_fork_writer.h"

#include <doctest/doctest.h>

#include <functional>
#include <string>

using namespace tidewell;

namespace {

constexpr char kOutput[] = "F:\\out";
constexpr char kForkPath[] = "N:\\file:AFP_Resource";

ErrorCode save(uint16_t type, ResourceForm form) {
    ResourceForkReader reader;
    TypeEntry entry;
    ReferenceEntry reference;
    if (!reader.Open(kForkPath) || !reader.ReadTypeEntry(type, entry) ||
        !reader.ReadReferenceEntry(entry, 0, reference))
        return GetLastError();
    return SaveResource(reader, reference, form, kOutput);
}

}  // namespace

TEST_CASE("Saving: every call fails in turn, and the file that was there is kept") {
    const Bytes data = patternOf(150'000);
    const Bytes fork = resourceForkOf({{"DATA", 1, {}, 0, data}, {"tiny", 2, {}, 0, bytesOf("tiny")}});
    const struct {
        std::function<ErrorCode()> save;
        Bytes saved;
        int told = 0;  // the shell, times
    } rows[] = {
        {[] { return save(0, ResourceForm::binary); }, data},
        {[] { return save(1, ResourceForm::hexText); },
         bytesOf("0000: 74696e79" + std::string(29, ' ') + "tiny")},
        {[] { return SaveFork(kForkPath, nullptr, kOutput); }, fork, 1},
    };
    for (const auto& row : rows) {
        bool hit = true;
        for (int n = 1; hit; ++n) {
            TestPc pc;
            writeMacFile("N:\\file", {.resource = fork});
            writeFile(kOutput, bytesOf("old"));
            pc.journal().clear();
            pc.faults().failCall(n, ERROR_CRC);
            const ErrorCode error = row.save();
            INFO(row.told, n, pc.faults().hitCall());
            hit = pc.faults().hit();
            // The file that is there is only looked at.
            const bool harmless = error == 0 && pc.faults().hitCall() == "CloseHandle";
            CHECK(error == (harmless ? 0 : pc.faults().injected()));
            pc.faults().clear();
            CHECK(pc.nothingHeld());
            CHECK(pc.journal().countOn("SHChangeNotify", kOutput) == (error == 0 ? row.told : 0));
            CHECK(pc.folder().names("F") == std::vector<std::string>{"out"});
            CHECK(readFile(kOutput) == (error == 0 ? row.saved : bytesOf("old")));
        }
    }
}

TEST_CASE("A resource that the fork does not have whole is not saved") {
    const TestPc pc;
    Bytes fork = resourceForkOf({{"DATA", 1, {}, 0, Bytes(100)}});
    fork[256 + 2] = 0xFF;  // of the length in front of the data
    writeMacFile("N:\\file", {.resource = fork});
    CHECK(save(0, ResourceForm::binary) == ERROR_HANDLE_EOF);
    CHECK_FALSE(exists(kOutput));
}
