// Every system call of a conversion fails in turn, once and from then on; every transfer falls short in turn;
// memory runs out: packing from each volume, and extracting each format to each volume with each answer to
// the replace question. The error is told, nothing partial stays, the source is as it was.
#include "convert/create_macbinary.h"
#include "convert/extract_original.h"
#include "support/archive_writer.h"
#include "support/scripted_user.h"
#include "ui/progress.h"

#include <doctest/doctest.h>

#include <functional>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(150000), .resource = patternOf(70001, 5)};
const MacFile kOld = {.data = patternOf(21, 1), .resource = patternOf(12, 2), .flags = 0x4000, .window = 9};

enum class Before { nothing, agreed, refused };

struct Case {
    std::string source;
    std::string output;
    bool packs = false;
    Before before = Before::nothing;
    bool possible = true;  // FAT keeps no Mac file to pack
    Bytes contents = kFile.data;

    char drive() const { return output[0]; }
    bool isBinHex() const { return source.ends_with("hqx"); }
    MacFile old() const { return keptOn(drive(), kOld); }

    void writeSource() const {
        if (packs && possible) return writeMacFile(source, kFile);
        writeFile(source, contents);
        if (before == Before::nothing) return;
        if (drive() == 'F') return writeFile(output, kOld.data);
        writeMacFile(output, kOld);
    }
    ErrorCode convert(ProgressDialog* progress) const {
        if (packs) return CreateMacBinaryFile(nullptr, source.c_str(), output.c_str(), &progress);
        DWORD flags = 0;
        return ExtractOriginalMacFile(nullptr, source.c_str(), output.substr(0, 3).c_str(), &flags,
                                      &progress);
    }
    // What BinHex does not tell is the old file's, but for the place of the icon and the attributes.
    MacFile extracted() const {
        MacFile file = kFile;
        if (isBinHex()) {
            file.flags = before == Before::agreed ? kOld.flags : 0;
            file.window = before == Before::agreed ? kOld.window : 0;
            file.vertical = file.horizontal = 0;
            file.attributes = 0;
        }
        return keptOn(drive(), file);
    }
};

std::vector<Case> cases() {
    std::vector<Case> all = {
        {.source = "M:\\file", .output = "M:\\out.bin", .packs = true},
        {.source = "M:\\file", .output = "F:\\out.bin", .packs = true},
        {.source = "N:\\file", .output = "N:\\out.bin", .packs = true},
        {.source = "F:\\file", .output = "F:\\out.bin", .packs = true, .possible = false},
    };
    const Bytes macBinary = macBinaryFile({kFile});
    const Bytes binHex = binHexFile(BinHexFile{kFile});
    for (const std::string output : {"M:\\Test", "N:\\Test", "F:\\Test"}) {
        for (const Before before : {Before::nothing, Before::agreed, Before::refused}) {
            all.push_back(
                {.source = "F:\\in.bin", .output = output, .before = before, .contents = macBinary});
            all.push_back({.source = "F:\\in.hqx", .output = output, .before = before, .contents = binHex});
        }
    }
    return all;
}

void checkSuccess(const Case& test) {
    REQUIRE(exists(test.output));
    if (test.packs) {
        const std::string name = test.source.substr(3);
        CHECK(readFile(test.output) ==
              macBinaryFile({.file = keptOn(test.source[0], kFile), .name = bytesOf(name)}));
        return;
    }
    const bool refused = test.before == Before::refused;
    CHECK(readMacFile(test.output) == (refused ? test.old() : test.extracted()));
    CHECK(scriptedUser.line1 == (refused ? "" : "Test"));
}

// The destination is the new file, the old one, or nothing; never half of anything.
void checkOutcome(TestPc& pc, const Case& test, ErrorCode error) {
    const bool refused = test.before == Before::refused;
    CHECK(pc.journal().countOn("SHChangeNotify", test.output) == (error == 0 && !refused ? 1 : 0));
    if (test.packs && test.possible) {
        CHECK(readMacFile(test.source) == keptOn(test.source[0], kFile));
    } else {
        CHECK(readFile(test.source) == test.contents);
    }
    if (error == 0) return checkSuccess(test);
    // What the user had is there or, once its replacement had begun, gone.
    if (refused) REQUIRE(exists(test.output));
    if (exists(test.output)) {
        CHECK(test.before != Before::nothing);
        CHECK(readMacFile(test.output) == test.old());
    }
}

using Plan = std::function<void(pc::FaultPlan&)>;

struct Run {
    ErrorCode error = 0;
    bool hit = false;
    std::string call, path;
};

// One conversion on a PC of its own with the fault, or without one.
Run runWith(const Case& test, const Plan& plan) {
    TestPc pc;
    test.writeSource();
    scriptedUser.answer = test.before == Before::refused ? IDNO : IDYES;
    ProgressDialog* const progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
    pc.journal().clear();
    plan(pc.faults());
    Run run;
    run.error = test.convert(progress);
    run.hit = pc.faults().hit();
    run.call = pc.faults().hitCall();
    run.path = pc.faults().hitSubject();
    ProgressDestroy(progress);
    CAPTURE(test.source);
    CAPTURE(test.output);
    CAPTURE(static_cast<int>(test.before));
    CAPTURE(run.call);
    CAPTURE(run.path);
    CAPTURE(pc.journal().text());
    CHECK(pc.nothingHeld());
    pc.faults().clear();
    checkOutcome(pc, test, run.error);
    if (!run.hit) CHECK(run.error == (test.possible ? 0 : ERROR_INVALID_PARAMETER));
    return run;
}

// Runs each conversion with the n-th fault, for n = 1, 2, ... until it is not met; a packing has at least
// `least` chances for it.
void sweep(int least, const std::function<void(pc::FaultPlan&, int n)>& plan,
           const std::function<void(const Case&, const Run&)>& check) {
    for (const Case& test : cases()) {
        for (int n = 1;; ++n) {
            const Run run = runWith(test, [&](pc::FaultPlan& faults) { plan(faults, n); });
            if (!run.hit) {
                if (test.packs && test.possible) CHECK(n > least);
                break;
            }
            CAPTURE(test.source);
            CAPTURE(test.output);
            CAPTURE(n);
            CAPTURE(run.call);
            CAPTURE(run.path);
            check(test, run);
        }
    }
}

// The failures that need not end a conversion.
bool mayFail(const Case& test, const Run& run) {
    // NTFS tells itself that it is no Mac volume.
    const bool look = run.call == "CreateFileA" || run.call == "GetFileSize";
    if (look && run.path == "N:\\{4DD19184-ACE2-11CF-BBF2-444553540000}") return true;
    if (run.call != "GetFileAttributesA") return false;
    // The look at a fork's path is for its length alone.
    if (run.path.ends_with("{4DD19183-ACE2-11CF-BBF2-444553540000}")) return true;
    if (run.path.ends_with(":AFP_Resource")) return true;
    // A file that cannot be looked at before the question may be there, and is asked about.
    return run.path == test.output && test.before != Before::nothing;
}

}  // namespace

TEST_CASE("Converting: every system call fails in turn, once and for good") {
    const auto plan = [](pc::FaultPlan& faults, int n) { faults.failCall(n, ERROR_CRC); };
    sweep(20, plan, [](const Case& test, const Run& once) {
        const bool memory = once.call == "VirtualAlloc" || once.call == "HeapAlloc";
        const ErrorCode wanted = memory ? ERROR_NOT_ENOUGH_MEMORY : ERROR_CRC;
        // Nothing was written yet to a file that is only made.
        const bool made = once.call == "CloseHandle" && once.path == test.output;
        if (once.error != wanted) CHECK((mayFail(test, once) || (made && test.before == Before::nothing)));
        if (memory) return;
        const Run always = runWith(
            test, [&](pc::FaultPlan& faults) { faults.failAlways(once.call, once.path, ERROR_IO_DEVICE); });
        if (always.error != ERROR_IO_DEVICE) CHECK(mayFail(test, always));
    });
}

TEST_CASE("Converting: every transfer falls short in turn") {
    const auto plan = [](pc::FaultPlan& faults, int n) { faults.shortTransfer(n); };
    sweep(10, plan, [](const Case& test, const Run& run) {
        // The driver refuses half of its record.
        const bool half =
            run.call == "WriteFile" && run.path == "M:\\Test\\{4DD19184-ACE2-11CF-BBF2-444553540000}";
        const ErrorCode wanted = run.call == "ReadFile" ? ERROR_HANDLE_EOF
                                 : half                 ? ERROR_INVALID_PARAMETER
                                                        : ERROR_HANDLE_DISK_FULL;
        CHECK(run.error == wanted);
        CHECK(test.possible);
    });
}

TEST_CASE("Converting: memory runs out") {
    const auto plan = [](pc::FaultPlan& faults, int n) { faults.failMemory(n); };
    sweep(2, plan, [](const Case&, const Run& run) { CHECK(run.error == ERROR_NOT_ENOUGH_MEMORY); });
}
