// Every system call of an extraction fails in turn, every transfer falls short in turn, memory runs out, and
// the user cancels at every chance, for each format, volume and answer to the replace question.
#include "support/binhex_writer.h"
#include "support/extraction_case.h"
#include "support/macbinary_writer.h"
#include "support/scripted_confirm.h"
#include "support/scripted_progress_display.h"
#include "ui/confirm_replace.h"
#include "ui/progress.h"

#include <doctest/doctest.h>

#include <functional>

using namespace tidewell;

namespace {

enum class Before { nothing, agreed, refused };

struct Case {
    std::string source;
    char drive;
    Before before;
};

const Bytes kData = patternOf(140000);
const Bytes kOld = bytesOf("what was there");

std::vector<Case> cases() {
    std::vector<Case> all;
    for (const char* source : {"F:\\in.bin", "F:\\in.hqx"}) {
        for (const char drive : {'M', 'N', 'F'}) {
            for (const Before before : {Before::nothing, Before::agreed, Before::refused})
                all.push_back({source, drive, before});
        }
    }
    return all;
}

Bytes sourceBytes(const std::string& source) {
    if (source.ends_with(".bin"))
        return macBinaryFile({.file = {.data = kData, .resource = patternOf(70000)}});
    return binHexFile({.data = kData, .resource = patternOf(70000)});
}

struct Run {
    TestPc pc;
    ErrorCode error = 0;
    bool cancelled = false;
};

void extract(Run& run, const Case& test, const Bytes& source, const std::function<void()>& plan) {
    writeFile(test.source, source);
    const std::string folder = std::string(1, test.drive) + ":\\";
    if (test.before != Before::nothing) writeFile(folder + "Test", kOld);
    scripted_confirm::answer(test.before == Before::refused ? IDNO : IDYES);
    scripted_display::reset();
    ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
    scripted_display::reset();
    run.pc.journal().clear();
    plan();
    DWORD flags = 0;
    run.error = ExtractOriginalMacFile(nullptr, test.source.c_str(), folder.c_str(), &flags, &progress);
    run.cancelled = progress->cancelled != 0;
    ProgressDestroy(progress);
}

// The source is whole, and the destination is the new file, the old one, or nothing.
void checkOutcome(Run& run, const Case& test, const Bytes& source) {
    const std::string hit = run.pc.faults().hitCall();
    const std::string journal = run.pc.journal().text();
    const int told = run.pc.journal().countOn("SHChangeNotify", "Test");
    run.pc.faults().clear();
    const std::string path = std::string(1, test.drive) + ":\\Test";
    CAPTURE(test.source);
    CAPTURE(path);
    CAPTURE(static_cast<int>(test.before));
    CAPTURE(hit);
    CAPTURE(run.error);
    CAPTURE(journal);
    CHECK(run.pc.nothingHeld());
    CHECK(readFile(test.source) == source);
    const bool there = exists(path);
    if (run.error == 0) {
        CHECK(there);
        CHECK(readFile(path) == (test.before == Before::refused ? kOld : kData));
        CHECK(told == (test.before == Before::refused ? 0 : 1));
    } else {
        // What the user had is there or, once its replacement had begun, gone; never half of anything.
        CHECK(told == 0);
        // Of a file that the driver has made under a name that cannot be converted nobody knows the name.
        const bool converting = hit == "WideCharToMultiByte" || hit == "MultiByteToWideChar";
        const bool unnamed = converting && test.before == Before::nothing;
        if (there && !unnamed) CHECK(test.before != Before::nothing);
        if (there) CHECK(readFile(path) == (unnamed ? Bytes() : kOld));
        if (test.before == Before::refused) CHECK(there);
    }
}

void sweep(const std::function<void(pc::FaultPlan&, int n)>& plan,
           const std::function<void(pc::FaultPlan&, ErrorCode)>& check) {
    for (const Case& test : cases()) {
        const Bytes source = sourceBytes(test.source);
        for (int n = 1;; ++n) {
            Run run;
            pc::FaultPlan& faults = run.pc.faults();
            extract(run, test, source, [&] { plan(faults, n); });
            const bool hit = faults.hit();
            if (hit) check(faults, run.error);
            checkOutcome(run, test, source);
            if (!hit) {
                CHECK(run.error == 0);
                break;
            }
        }
    }
}

}  // namespace

TEST_CASE("Extracting: every system call fails in turn") {
    sweep([](pc::FaultPlan& faults, int n) { faults.failCall(n, ERROR_CRC); },
          [](pc::FaultPlan& faults, ErrorCode error) {
              // A volume whose kind cannot be told counts as one that keeps no Mac information, and has its
              // forks out of reach when it can be told a moment later.
              CHECK((error == faults.injected() || error == ERROR_INVALID_PARAMETER ||
                     error == ERROR_FILE_NOT_FOUND || error == ERROR_FILENAME_EXCED_RANGE || error == 0));
          });
}

TEST_CASE("Extracting: every transfer falls short in turn") {
    sweep([](pc::FaultPlan& faults, int n) { faults.shortTransfer(n); },
          [](pc::FaultPlan& faults, ErrorCode error) {
              const bool reading = faults.hitCall() == "ReadFile";
              CHECK((error == (reading ? ERROR_HANDLE_EOF : ERROR_HANDLE_DISK_FULL) ||
                     error == ERROR_INVALID_PARAMETER));
          });
}

TEST_CASE("Extracting: memory runs out") {
    sweep([](pc::FaultPlan& faults, int n) { faults.failMemory(n); },
          [](pc::FaultPlan&, ErrorCode error) { CHECK(error == ERROR_NOT_ENOUGH_MEMORY); });
}

TEST_CASE("Extracting: the user cancels at every chance") {
    for (const Case& test : cases()) {
        const Bytes source = sourceBytes(test.source);
        for (int n = 1;; ++n) {
            Run run;
            extract(run, test, source, [n] { scripted_display::cancelAtServe(n); });
            const bool asked = run.cancelled;
            checkOutcome(run, test, source);
            if (!asked) {
                CHECK(run.error == 0);
                break;
            }
            // BinHex looks once, after reading; a later cancel finds the file done.
            CHECK((run.error == ERROR_CANCELLED || run.error == 0));
        }
    }
}
