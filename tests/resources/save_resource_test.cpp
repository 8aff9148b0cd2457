// Saving a resource, its dump, or the fork: what is saved, and that a save that fails leaves what was there.
#include "resources/save_resource.h"

#include "support/resource_fork_writer.h"

#include <doctest/doctest.h>

#include <string>

using namespace tidewell;

namespace {

constexpr char kOutput[] = "F:\\out";
const Bytes kData = patternOf(150'000);
const std::vector<ForkResource> kResources = {{"DATA", 1, {}, 0, kData}, {"tiny", 2, {}, 0, bytesOf("tiny")}};

enum class Saved { binary, hexText, fork };

constexpr char kFork[] = "N:\\file:AFP_Resource";

ErrorCode save(Saved saved) {
    if (saved == Saved::fork) return SaveFork(kFork, nullptr, kOutput);
    ResourceForkReader reader;
    TypeEntry type;
    ReferenceEntry reference;
    const uint16_t index = saved == Saved::binary ? 0 : 1;
    if (!reader.Open(kFork) || !reader.ReadTypeEntry(index, type) ||
        !reader.ReadReferenceEntry(type, 0, reference))
        return GetLastError();
    return SaveResource(reader, reference,
                        saved == Saved::hexText ? ResourceForm::hexText : ResourceForm::binary, kOutput);
}

Bytes wholeOf(Saved saved) {
    switch (saved) {
    case Saved::binary: return kData;
    case Saved::hexText: return bytesOf("0000: 74696e79" + std::string(29, ' ') + "tiny");
    case Saved::fork: break;
    }
    return resourceForkOf(kResources);
}

struct Run {
    ErrorCode error = 0;
    bool hit = false;
    std::string call;
};

// One save with the n-th fault, once or for good, over an old file or none.
Run runWith(Saved saved, bool old, int n, bool forGood) {
    TestPc pc;
    writeMacFile("N:\\file", {.resource = resourceForkOf(kResources)});
    if (old) writeFile(kOutput, bytesOf("old"));
    pc.journal().clear();
    if (forGood)
        pc.faults().failFromCall(n, ERROR_CRC);
    else
        pc.faults().failCall(n, ERROR_CRC);
    const ErrorCode error = save(saved);
    const Run run = {error, pc.faults().hit(), pc.faults().hitCall()};
    pc.faults().clear();
    CAPTURE(pc.journal().text());
    CHECK(pc.nothingHeld());
    CHECK(pc.journal().countOn("SHChangeNotify", kOutput) == (error == 0 && saved == Saved::fork ? 1 : 0));
    const bool there = error == 0 || old;
    CHECK(pc.folder().names("F") == (there ? std::vector<std::string>{"out"} : std::vector<std::string>{}));
    if (there) CHECK(readFile(kOutput) == (error == 0 ? wholeOf(saved) : bytesOf("old")));
    return run;
}

}  // namespace

TEST_CASE("Saving: every call fails in turn, once and for good, and the file that was there is kept") {
    for (const Saved saved : {Saved::binary, Saved::hexText, Saved::fork}) {
        for (const bool old : {false, true}) {
            for (int n = 1;; ++n) {
                INFO(static_cast<int>(saved), old, n);
                const Run once = runWith(saved, old, n, false);
                if (!once.hit) {
                    CHECK(once.error == 0);
                    break;
                }
                INFO(once.call);
                const bool memory = once.call == "VirtualAlloc" || once.call == "HeapAlloc";
                const ErrorCode wanted = memory ? ERROR_NOT_ENOUGH_MEMORY : ERROR_CRC;
                // The file that is there is only looked at.
                const bool look = once.call == "CloseHandle" && once.error == 0;
                CHECK((once.error == wanted || (old && look)));
                runWith(saved, old, n, true);
            }
        }
    }
}

TEST_CASE("A resource that the fork does not have whole is not saved") {
    const TestPc pc;
    Bytes fork = resourceForkOf({{"DATA", 1, {}, 0, Bytes(100)}});
    fork[256 + 2] = 0xFF;  // of the length in front of the data
    writeMacFile("N:\\file", {.resource = fork});
    CHECK(save(Saved::binary) == ERROR_HANDLE_EOF);
    CHECK_FALSE(exists(kOutput));
}
