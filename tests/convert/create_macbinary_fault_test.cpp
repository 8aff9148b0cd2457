// Every system call of a packing fails in turn, every transfer falls short in turn, memory runs out, and the
// user cancels at every chance: the error is told, nothing partial stays, the source is as it was.
#include "convert/create_macbinary.h"

#include "macfile/fork_paths.h"
#include "support/scripted_progress_display.h"
#include "support/test_pc.h"
#include "ui/progress.h"

#include <doctest/doctest.h>

#include <functional>

using namespace tidewell;

namespace {

struct Case {
    const char* source;
    const char* output;
};
constexpr Case kCases[] = {
    {"M:\\file", "M:\\out.bin"},
    {"M:\\file", "F:\\out.bin"},
    {"N:\\file", "N:\\out.bin"},
    {"F:\\file", "F:\\out.bin"},
};

const MacFile kFile = {.data = patternOf(150000), .resource = patternOf(70001, 5)};

void writeSource(const std::string& path) {
    if (path[0] == 'F') {
        writeFile(path, kFile.data);
    } else {
        writeMacFile(path, kFile);
    }
}

void checkSource(const std::string& path) {
    CHECK(readFile(path) == kFile.data);
    if (path[0] == 'F') return;
    ForkPathBuffers paths;
    GetForkPaths(path.c_str(), paths);
    CHECK(readFile(paths.resourcePath) == kFile.resource);
}

// Runs the packing with the n-th fault, for n = 1, 2, ... until it is not met.
void sweep(const Case& test, const std::function<void(TestPc&, int n)>& plan,
           const std::function<void(TestPc&, ErrorCode)>& check) {
    for (int n = 1;; ++n) {
        TestPc pc;
        writeSource(test.source);
        scripted_display::reset();
        ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
        pc.journal().clear();
        plan(pc, n);
        const ErrorCode error = CreateMacBinaryFile(nullptr, test.source, test.output, &progress);
        const bool hit = pc.faults().hit();
        CAPTURE(std::string(test.source));
        CAPTURE(n);
        CAPTURE(pc.faults().hitCall());
        CAPTURE(pc.journal().text());
        ProgressDestroy(progress);
        CHECK(pc.nothingHeld());
        if (!hit) {
            pc.faults().clear();
            const bool packs = test.source[0] != 'F';
            CHECK(error == (packs ? 0 : ERROR_INVALID_PARAMETER));
            CHECK(exists(test.output) == packs);
            CHECK(n > 1);
            return;
        }
        check(pc, error);
        pc.faults().clear();
        checkSource(test.source);
        CHECK(exists(test.output) == (error == 0));
        CHECK(pc.journal().count("SHChangeNotify") == (error == 0 ? 1 : 0));
    }
}

// A volume whose kind cannot be told counts as one that keeps no Mac information; so does a source whose
// short path cannot be made. On NTFS, a failed look for the driver's pseudo-file changes nothing.
bool tellsOfNoMacInformation(TestPc& pc) {
    const std::string& call = pc.faults().hitCall();
    if (call == "GetShortPathNameA" || call == "GetVolumeInformationA") return true;
    return call == "CreateFileA" || call == "GetFileSize";
}

}  // namespace

TEST_CASE("Packing: every system call fails in turn") {
    for (const Case& test : kCases) {
        sweep(
            test, [](TestPc& pc, int n) { pc.faults().failCall(n, ERROR_CRC); },
            [&test](TestPc& pc, ErrorCode error) {
                if (error == pc.faults().injected()) return;
                CHECK(tellsOfNoMacInformation(pc));
                const bool lookOnNtfs = test.source[0] == 'N' && pc.faults().hitCall() == "CreateFileA";
                if (!lookOnNtfs || error != 0) CHECK(error == ERROR_INVALID_PARAMETER);
            });
    }
}

TEST_CASE("Packing: every transfer falls short in turn") {
    for (const Case& test : kCases) {
        if (test.source[0] == 'F') continue;  // it transfers nothing
        sweep(
            test, [](TestPc& pc, int n) { pc.faults().shortTransfer(n); },
            [](TestPc& pc, ErrorCode error) {
                const bool reading = pc.faults().hitCall() == "ReadFile";
                CHECK(error == (reading ? ERROR_HANDLE_EOF : ERROR_HANDLE_DISK_FULL));
            });
    }
}

TEST_CASE("Packing: memory runs out") {
    for (const Case& test : kCases) {
        if (test.source[0] == 'F') continue;
        sweep(
            test, [](TestPc& pc, int n) { pc.faults().failMemory(n); },
            [](TestPc&, ErrorCode error) { CHECK(error == ERROR_NOT_ENOUGH_MEMORY); });
    }
}

TEST_CASE("Packing: the user cancels at every chance") {
    for (const Case& test : kCases) {
        if (test.source[0] == 'F') continue;
        for (int n = 1;; ++n) {
            TestPc pc;
            writeSource(test.source);
            scripted_display::reset();
            ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
            scripted_display::reset();
            scripted_display::cancelAtServe(n);
            const ErrorCode error = CreateMacBinaryFile(nullptr, test.source, test.output, &progress);
            const bool cancelled = progress->cancelled != 0;
            ProgressDestroy(progress);
            CHECK(pc.nothingHeld());
            checkSource(test.source);
            if (!cancelled) {
                CHECK(error == 0);
                CHECK(n > 5);
                break;
            }
            CHECK(error == ERROR_CANCELLED);
            CHECK(!exists(test.output));
            CHECK(pc.journal().count("SHChangeNotify") == 0);
        }
    }
}
