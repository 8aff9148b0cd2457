#include "base/replacement_file.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

using Names = std::vector<std::string>;

const Bytes kNew = patternOf(3000, 7);

enum class Old { none, there, lockedMeanwhile };

ErrorCode replace(const TestPc& pc, const std::string& path, Old old) {
    ReplacementFile file;
    ErrorCode error = file.Create(path.c_str());
    if (error == 0) error = WriteWhole(file.get(), kNew.data(), static_cast<DWORD>(kNew.size()));
    if (old == Old::lockedMeanwhile) pc.folder().setWritable(path.substr(0, 1) + "/file", false);
    return error == 0 ? file.Commit() : error;
}

enum class Fault { once, forGood, keepingNames, losingNames };

// False when nothing went wrong, since there is no n-th call.
bool replaceWithFault(const std::string& drive, Old old, Fault fault, int n) {
    TestPc pc;
    const std::string path = drive + ":\\file", aside = drive + ":\\TW000001.TMP";
    if (old != Old::none) writeMacFile(path, {.data = patternOf(100), .resource = patternOf(300)});
    const MacFile former = old != Old::none ? readMacFile(path) : MacFile();
    const Names before = pc.folder().names(drive);
    pc.flushAll();
    const bool power = fault >= Fault::keepingNames;
    if (power) pc.faults().cutPower(n);
    if (fault == Fault::once) pc.faults().failCall(n, ERROR_CRC);
    if (fault == Fault::forGood) pc.faults().failFromCall(n, ERROR_CRC);
    const ErrorCode error = replace(pc, path, old);
    const bool hit = pc.faults().hit();
    CAPTURE(path);
    CAPTURE(pc.faults().hitCall());
    // A file that was only looked at has nothing to lose when it is closed.
    const bool harmless = pc.faults().hitCall() == "CloseHandle" && pc.faults().hitSubject() == path;
    pc.faults().clear();
    CHECK(pc.nothingHeld());
    if (power)
        pc.cutPower(fault == Fault::keepingNames ? pc::PowerCut::keepsNames : pc::PowerCut::losesNames);

    const bool there = exists(path), isNew = there && readFile(path) == kNew;
    if (old != Old::none && !(isNew && error == 0))
        CHECK(readMacFile(there && !isNew ? path : aside) == former);
    if (old == Old::lockedMeanwhile && !power) CHECK((there && error != 0));
    if (old == Old::lockedMeanwhile && !hit) CHECK((error == ERROR_ACCESS_DENIED && !isNew));
    if (old != Old::lockedMeanwhile && !power) {
        CHECK(error == (hit && !harmless ? ERROR_CRC : 0));
        CHECK(pc.folder().names(drive) == (error == 0 ? Names{"file"} : before));
    }
    return hit;
}

}  // namespace

TEST_CASE("Whatever goes wrong, the old file is there with its forks, or the new one") {
    for (const char* const drive : {"F", "N", "M"}) {
        for (const Old old : {Old::none, Old::there, Old::lockedMeanwhile}) {
            for (const Fault fault : {Fault::once, Fault::forGood, Fault::keepingNames, Fault::losingNames}) {
                for (int n = 1; replaceWithFault(drive, old, fault, n);)
                    ++n;
            }
        }
    }
}

TEST_CASE("Where nothing can be written or replaced, nothing is made") {
    TestPc pc;
    const std::string outer(250, 'd'), inner(252, 'd');  // together as long as leaves room for a fresh name
    for (const char* const more : {"", "d"})
        pc.folder().makeFolder("F/" + outer + "/" + inner + more);
    OwnedFile open;
    for (const char* const path : {"F:\\locked", "F:\\open"})
        writeFile(path, {});
    pc.folder().setWritable("F/locked", false);
    REQUIRE(OpenForReading("F:\\open", open) == 0);
    const std::pair<std::string, ErrorCode> rows[] = {{"F:\\locked", 5},
                                                      {"F:\\open", 32},
                                                      {"F:\\NUL", 123},
                                                      {"N:\\a:b", 123},
                                                      {"F:\\" + outer + "\\" + inner + "\\a", 0},
                                                      {"F:\\" + outer + "\\" + inner + "d\\a", 206}};
    pc.setPathLimit(1000);
    for (const auto& row : rows)
        CHECK_MESSAGE(ReplacementFile().Create(row.first.c_str()) == row.second, row.first);
    CHECK(pc.folder().names("F") == Names{outer, "locked", "open"});
    CHECK(pc.folder().names("N").empty());
}

TEST_CASE("What has a fresh name already, or comes or goes meanwhile, is no other's to replace") {
    TestPc pc;
    const auto put = [&](int first, int end) {
        for (int n = first; n < end; ++n)
            pc.folder().write("F/TW" + std::to_string(1000000 + n).substr(1) + ".TMP", "other");
    };
    put(0, 11);
    for (int time = 0; time < 2; ++time)
        CHECK(replace(pc, "F:\\tw000011.tmp", Old::there) == 0);
    put(13, 999);
    put(12, 13);
    // One for the new file, and none for the old.
    CHECK(replace(pc, "F:\\tw000011.tmp", Old::there) == ERROR_FILE_EXISTS);
    put(999, 1000);
    CHECK(replace(pc, "F:\\file", Old::none) == ERROR_FILE_EXISTS);
    for (const std::string& name : pc.folder().names("F"))
        CHECK((pc.folder().read("F/" + name) == "other") == (name != "tw000011.tmp"));
    for (const bool comes : {true, false}) {
        ReplacementFile file;
        REQUIRE(file.Create("N:\\file") == 0);
        if (comes) writeFile("N:\\file", bytesOf("other"));
        if (!comes) REQUIRE(DeleteFileA("N:\\file"));
        CHECK(file.Commit() == (comes ? ERROR_ALREADY_EXISTS : 0));
        CHECK(readFile("N:\\file") == bytesOf(comes ? "other" : ""));
        CHECK(pc.folder().names("N") == Names{"file"});
    }
}
