// Every system call of a conversion fails in turn, once and from then on; every transfer falls short in turn;
// memory runs out: packing from each volume, and extracting each format to each volume with each answer to
// the replace question; and the user cancels at every chance. The error is told, nothing partial stays, the
// source is as it was.
#include "support/extraction_case.h"
#include "ui/progress.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <functional>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(150000), .resource = patternOf(70001, 5)};
const MacFile kOld = {.data = patternOf(21, 1), .resource = patternOf(12, 2), .flags = 0x4000, .window = 9};

enum class Before { nothing, agreed, refused };

struct Case : Conversion {
    Before before = Before::nothing;
    Bytes archive = {};

    // FAT keeps no Mac file to pack.
    bool possible() const { return !packs() || source[0] != 'F'; }
    MacFile old() const { return keptOn(output[0], kOld); }

    void writeFiles() const {
        if (packs()) return writeMacFile(source, kFile);
        writeFile(source, archive);
        if (before != Before::nothing) writeMacFile(output, kOld);
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
        return keptOn(output[0], file);
    }
};

std::vector<Case> cases() {
    std::vector<Case> all = {
        {{"M:\\file", "M:\\out.bin"}},
        {{"M:\\file", "F:\\out.bin"}},
        {{"N:\\file", "N:\\out.bin"}},
        {{"F:\\file", "F:\\out.bin"}},
    };
    for (const std::string source : {"F:\\in.bin", "F:\\in.hqx"}) {
        for (const std::string output : {"M:\\Test", "N:\\Test", "F:\\Test"}) {
            const Conversion conversion = {source, output};
            for (const Before before : {Before::nothing, Before::agreed, Before::refused})
                all.push_back({conversion, before, conversion.archiveOf(kFile)});
        }
    }
    return all;
}

// Whether the old file has been emptied.
bool begun(TestPc& pc, const std::string& output) {
    const auto& entries = pc.journal().entries();
    return std::any_of(entries.begin(), entries.end(), [&](const pc::JournalEntry& entry) {
        return entry.call == "CreateFileA" && entry.subject == output && entry.error == 0;
    });
}

// The destination is the new file, the old one, or nothing; never half of anything.
void checkOutput(TestPc& pc, const Case& test, ErrorCode error) {
    const bool refused = test.before == Before::refused;
    CHECK(pc.journal().countOn("SHChangeNotify", test.output) == (error == 0 && !refused ? 1 : 0));
    if (error == 0 || refused) REQUIRE(exists(test.output));
    if (error == 0 && test.packs()) {
        const MacFile kept = keptOn(test.source[0], kFile);
        CHECK(readFile(test.output) == macBinaryFile({.file = kept, .name = bytesOf("file")}));
    } else if (error == 0) {
        CHECK(readMacFile(test.output) == (refused ? test.old() : test.extracted()));
        CHECK(scriptedUser.line1 == (refused ? "" : "Test"));
    } else if (test.before != Before::nothing && !begun(pc, test.output)) {
        CHECK(readMacFile(test.output) == test.old());
    } else {
        CHECK(!exists(test.output));
    }
}

using Plan = std::function<void(pc::FaultPlan&)>;

struct Run {
    ErrorCode error = 0;
    bool hit = false;
    std::string call, path;
    int servesAfter = 0;  // the cancel
};

// One conversion on a PC of its own with the fault, or without one.
Run runWith(const Case& test, const Plan& plan) {
    TestPc pc;
    test.writeFiles();
    const MacFile source = readMacFile(test.source);
    scriptedUser.answer = test.before == Before::refused ? IDNO : IDYES;
    ProgressDialog* const progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
    ProgressSetText(progress, nullptr, "of the caller");
    pc.journal().clear();
    plan(pc.faults());
    const ErrorCode error = test.run(progress);
    const int servesAfter = scriptedUser.serves - scriptedUser.cancelAtServe;
    const bool cancelled = scriptedUser.cancelAtServe != 0 && servesAfter >= 0;
    const Run run = {error, pc.faults().hit() || cancelled, pc.faults().hitCall(), pc.faults().hitSubject(),
                     servesAfter};
    ProgressDestroy(progress);
    pc.faults().clear();
    CHECK(scriptedUser.line2 == "of the caller");
    CAPTURE(pc.journal().text());
    CHECK(pc.nothingHeld());
    CHECK(readMacFile(test.source) == source);
    checkOutput(pc, test, error);
    if (!run.hit) CHECK(error == (test.possible() ? 0 : ERROR_INVALID_PARAMETER));
    return run;
}

// Runs each conversion with the n-th fault, for n = 1, 2, ... until it is not met.
void sweep(const std::function<void(pc::FaultPlan&, int n)>& plan,
           const std::function<void(const Case&, const Run&)>& check) {
    for (const Case& test : cases()) {
        for (int n = 1;; ++n) {
            INFO(test.source, " to ", test.output, ", ", static_cast<int>(test.before), ": ", n);
            const Run run = runWith(test, [&](pc::FaultPlan& faults) { plan(faults, n); });
            if (!run.hit) {
                if (test.packs() && test.possible()) CHECK(n > 2);
                break;
            }
            INFO(run.call, " of ", run.path);
            check(test, run);
        }
    }
}

// The failures that need not end a conversion.
bool mayFail(const Case& test, const Run& run) {
    // NTFS tells itself that it is no Mac volume.
    const bool look = run.call == "CreateFileA" || run.call == "GetFileSize";
    if (look && run.path == "N:\\{4DD19184-ACE2-11CF-BBF2-444553540000}") return true;
    // No disk, no source.
    if (run.call == "GetFullPathNameA")
        return run.path == test.source && run.error == ERROR_INVALID_PARAMETER;
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
    sweep(plan, [](const Case& test, const Run& once) {
        const bool memory = once.call == "VirtualAlloc" || once.call == "HeapAlloc";
        const ErrorCode wanted = memory ? ERROR_NOT_ENOUGH_MEMORY : ERROR_CRC;
        // Nothing was written yet to a file that is only made.
        const bool made = once.call == "CloseHandle" && once.path == test.output;
        if (once.error != wanted) CHECK((mayFail(test, once) || (made && test.before == Before::nothing)));
        if (memory) return;
        for (const ErrorCode error : {ERROR_IO_DEVICE, ERROR_NOT_READY}) {
            // On a Mac volume only the driver looks for a file that may be on no disk, and so not be lost.
            const bool look = once.call == "GetFileAttributesA" && once.path == test.output;
            if (error == ERROR_NOT_READY && look && test.output[0] == 'M') continue;
            const auto always = [&](pc::FaultPlan& faults) {
                faults.failAlways(once.call, once.path, error);
            };
            const Run run = runWith(test, always);
            if (run.error != error) CHECK(mayFail(test, run));
        }
    });
}

TEST_CASE("Converting: every transfer falls short in turn") {
    const auto plan = [](pc::FaultPlan& faults, int n) { faults.shortTransfer(n); };
    sweep(plan, [](const Case& test, const Run& run) {
        // The driver refuses half of its record.
        const bool half =
            run.call == "WriteFile" && run.path == "M:\\Test\\{4DD19184-ACE2-11CF-BBF2-444553540000}";
        const ErrorCode wanted = run.call == "ReadFile" ? ERROR_HANDLE_EOF
                                 : half                 ? ERROR_INVALID_PARAMETER
                                                        : ERROR_HANDLE_DISK_FULL;
        CHECK(run.error == wanted);
        CHECK(test.possible());
    });
}

TEST_CASE("Converting: memory runs out") {
    const auto plan = [](pc::FaultPlan& faults, int n) { faults.failMemory(n); };
    sweep(plan, [](const Case&, const Run& run) { CHECK(run.error == ERROR_NOT_ENOUGH_MEMORY); });
}

TEST_CASE("Converting: a cancel is heard at every chance until the file is whole") {
    const auto plan = [](pc::FaultPlan&, int n) { scriptedUser.cancelAtServe = n; };
    sweep(plan, [](const Case& test, const Run& run) {
        // BinHex looks once, when it has read its file, and nothing after a refusal; each chance is an
        // advance and a pump.
        const bool deaf = test.isBinHex() || test.before == Before::refused;
        if (run.error == 0) CHECK(run.servesAfter <= (deaf ? 3 : 0));
        if (run.error != 0) CHECK((run.error == ERROR_CANCELLED && run.servesAfter <= 2));
    });
}
