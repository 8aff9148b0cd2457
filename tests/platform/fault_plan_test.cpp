#include "support/test_pc.h"

#include <doctest/doctest.h>

using Errors = std::vector<DWORD>;

namespace {

Errors errors() {
    Errors found;
    for (const char* path : {"F:\\a", "F:\\b", "F:\\a", "F:\\b"})
        found.push_back(exists(path) ? 0 : GetLastError());
    return found;
}

}  // namespace

TEST_CASE("A fault strikes once, from a call on, or a call by its name and path") {
    TestPc pc;
    for (const char* path : {"F:\\a", "F:\\b"})
        writeFile(path, {});
    pc::FaultPlan& faults = pc.faults();
    faults.failCall(2, ERROR_CRC);
    CHECK(errors() == Errors{0, ERROR_CRC, 0, 0});
    CHECK(faults.hit());
    CHECK(faults.hitCall() + faults.hitSubject() == "GetFileAttributesAF:\\b");
    faults.failFromCall(2, ERROR_CRC);
    CHECK_FALSE(faults.hit());
    CHECK(errors() == Errors{0, ERROR_CRC, 0, ERROR_CRC});
    CHECK(DeleteFileA("F:\\b"));
    faults.failAlways("GetFileAttributesA", "F:\\a", ERROR_CRC);
    CHECK_FALSE(exists("F:\\b"));
    CHECK_FALSE(faults.hit());
    CHECK(errors() == Errors{ERROR_CRC, ERROR_FILE_NOT_FOUND, ERROR_CRC, ERROR_FILE_NOT_FOUND});
    CHECK(faults.hit());
    faults.clear();
    CHECK(exists("F:\\a"));

    faults.cutPower(2);
    CHECK(errors() == Errors{0, ERROR_GEN_FAILURE, ERROR_GEN_FAILURE, ERROR_GEN_FAILURE});
    CHECK_FALSE(DeleteFileA("F:\\a"));
    pc.cutPower(pc::PowerCut::losesNames);
    CHECK(errors() == Errors(4, ERROR_FILE_NOT_FOUND));  // they never were on the disk
    CHECK(faults.hit());
}
