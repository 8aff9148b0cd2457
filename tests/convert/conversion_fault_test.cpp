// Every system call of a conversion fails in turn, every transfer falls short in turn, memory runs out, and
// the user cancels at every chance: packing from each volume, and extracting each format to each volume with
// each answer to the replace question. The error is told, nothing partial stays, the source is as it was.
#include "convert/create_macbinary.h"
#include "convert/extract_original.h"
#include "support/archive_writer.h"
#include "support/scripted_user.h"
#include "ui/confirm_replace.h"
#include "ui/progress.h"

#include <doctest/doctest.h>

#include <functional>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(150000), .resource = patternOf(70001, 5)};
const Bytes kOld = bytesOf("what was there");

enum class Before { nothing, agreed, refused };

struct Case {
    std::string source;
    std::string output;
    bool packs = false;
    Before before = Before::nothing;
    bool possible = true;  // FAT keeps no Mac file to pack
    Bytes contents = kFile.data;

    void writeSource() const {
        if (packs && possible) return writeMacFile(source, kFile);
        writeFile(source, contents);
        if (before != Before::nothing) writeFile(output, kOld);
    }
    ErrorCode convert(ProgressDialog* progress) const {
        if (packs) return CreateMacBinaryFile(nullptr, source.c_str(), output.c_str(), &progress);
        DWORD flags = 0;
        return ExtractOriginalMacFile(nullptr, source.c_str(), output.substr(0, 3).c_str(), &flags,
                                      &progress);
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

// The destination is the new file, the old one, or nothing; never half of anything.
void checkOutcome(TestPc& pc, const Case& test, ErrorCode error, const std::string& hitCall) {
    const bool there = exists(test.output);
    const bool refused = test.before == Before::refused;
    CHECK(pc.journal().countOn("SHChangeNotify", test.output) == (error == 0 && !refused ? 1 : 0));
    if (test.packs && test.possible) {
        CHECK(readMacFile(test.source) == keptOn(test.source[0], kFile));
    } else {
        CHECK(readFile(test.source) == test.contents);
    }
    if (error == 0) {
        CHECK(there);
        if (!test.packs) CHECK(readFile(test.output) == (refused ? kOld : kFile.data));
        if (!test.packs) CHECK(scriptedUser.line1 == (refused ? "" : "Test"));
        return;
    }
    // Of a file that the driver has made under a name that cannot be converted nobody knows the name.
    const bool converting = hitCall == "WideCharToMultiByte" || hitCall == "MultiByteToWideChar";
    const bool unnamed = !test.packs && converting && test.before == Before::nothing;
    if (there) CHECK((unnamed || test.before != Before::nothing));
    // What the user had is there or, once its replacement had begun, gone.
    if (there) CHECK(readFile(test.output) == (unnamed ? Bytes() : kOld));
    if (refused) CHECK(there);
}

// Runs each conversion with the n-th fault, for n = 1, 2, ... until it is not met; a packing has at least
// `least` - 1 chances for it.
void sweep(int least, const std::function<void(pc::FaultPlan&, int n)>& plan,
           const std::function<void(const pc::FaultPlan&, const Case&, ErrorCode)>& check) {
    for (const Case& test : cases()) {
        bool hit = true;
        for (int n = 1; hit; ++n) {
            TestPc pc;
            test.writeSource();
            scriptedUser.answer = test.before == Before::refused ? IDNO : IDYES;
            ProgressDialog* const progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
            pc.journal().clear();
            plan(pc.faults(), n);
            const ErrorCode error = test.convert(progress);
            const std::string hitCall = pc.faults().hitCall();
            hit = pc.faults().hit() || progress->cancelled != 0;
            const uint64_t done = progress->done;
            ProgressDestroy(progress);
            CAPTURE(test.source);
            CAPTURE(test.output);
            CAPTURE(static_cast<int>(test.before));
            CAPTURE(n);
            CAPTURE(hitCall);
            CAPTURE(pc.journal().text());
            CHECK(pc.nothingHeld());
            if (hit) {
                check(pc.faults(), test, error);
            } else {
                CHECK(error == (test.possible ? 0 : ERROR_INVALID_PARAMETER));
                const size_t forks = kFile.data.size() + kFile.resource.size();
                CHECK(done == (!test.packs ? test.contents.size() : test.possible ? forks : 0));
                if (test.packs && test.possible) CHECK(n >= least);
            }
            pc.faults().clear();
            checkOutcome(pc, test, error, hitCall);
        }
    }
}

}  // namespace

TEST_CASE("Converting: every system call fails in turn") {
    const auto plan = [](pc::FaultPlan& faults, int n) { faults.failCall(n, ERROR_CRC); };
    sweep(20, plan, [](const pc::FaultPlan& faults, const Case& test, ErrorCode error) {
        if (error == faults.injected()) return;
        // A volume whose kind cannot be told counts as one that keeps no Mac information; so does a source
        // whose short path cannot be made. On NTFS, a failed look for the driver's pseudo-file changes
        // nothing.
        const std::string& call = faults.hitCall();
        const bool look = call == "CreateFileA" || call == "GetVolumeInformationA" || call == "GetFileSize";
        if (test.packs) {
            CHECK((look || call == "GetShortPathNameA"));
            const bool lookOnNtfs = test.source[0] == 'N' && call == "CreateFileA" && error == 0;
            CHECK((error == ERROR_INVALID_PARAMETER || lookOnNtfs));
        } else {
            // When it can be told a moment later, the forks are out of reach. A file that cannot be looked
            // at is asked about.
            CHECK((look || call == "CloseHandle" || call == "GetFileAttributesA"));
            CHECK((error == ERROR_INVALID_PARAMETER || error == ERROR_FILE_NOT_FOUND ||
                   error == ERROR_FILENAME_EXCED_RANGE || error == 0));
        }
    });
}

TEST_CASE("Converting: every transfer falls short in turn") {
    const auto plan = [](pc::FaultPlan& faults, int n) { faults.shortTransfer(n); };
    sweep(10, plan, [](const pc::FaultPlan& faults, const Case& test, ErrorCode error) {
        if (faults.hitCall() == "ReadFile") {
            CHECK(error == ERROR_HANDLE_EOF);
        } else if (error != ERROR_HANDLE_DISK_FULL) {
            // The driver refuses half of its record.
            CHECK(error == ERROR_INVALID_PARAMETER);
            CHECK((!test.packs && test.output[0] == 'M'));
        }
    });
}

TEST_CASE("Converting: memory runs out") {
    const auto plan = [](pc::FaultPlan& faults, int n) { faults.failMemory(n); };
    sweep(2, plan, [](const pc::FaultPlan&, const Case&, ErrorCode error) {
        CHECK(error == ERROR_NOT_ENOUGH_MEMORY);
    });
}

TEST_CASE("Converting: the user cancels at every chance") {
    const auto plan = [](pc::FaultPlan&, int n) { scriptedUser.cancelAtServe = n; };
    sweep(6, plan, [](const pc::FaultPlan&, const Case& test, ErrorCode error) {
        // BinHex looks once, after reading; a later cancel finds the file done.
        CHECK((error == ERROR_CANCELLED || (error == 0 && !test.packs)));
    });
}
