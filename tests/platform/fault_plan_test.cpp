#include "support/test_pc.h"

#include <doctest/doctest.h>

namespace {

DWORD attributesError(const char* path) {
    return exists(path) ? 0 : GetLastError();
}

}  // namespace

TEST_CASE("A fault strikes once, from a call on, or a call by its name and path") {
    TestPc pc;
    writeFile("F:\\a", {});
    writeFile("F:\\b", {});
    pc::FaultPlan& faults = pc.faults();

    faults.failCall(2, ERROR_CRC);
    CHECK(attributesError("F:\\a") == 0);
    CHECK_FALSE(faults.hit());
    CHECK(attributesError("F:\\b") == ERROR_CRC);
    CHECK(attributesError("F:\\b") == 0);
    CHECK(faults.hit());
    CHECK(faults.hitCall() + faults.hitSubject() == "GetFileAttributesAF:\\b");

    faults.failFromCall(2, ERROR_CRC);
    CHECK_FALSE(faults.hit());
    CHECK(attributesError("F:\\b") == 0);
    CHECK(attributesError("F:\\a") == ERROR_CRC);
    CHECK(attributesError("F:\\b") == 0);
    CHECK(attributesError("F:\\a") == ERROR_CRC);
    CHECK(DeleteFileA("F:\\a"));

    faults.failAlways("GetFileAttributesA", "F:\\b", ERROR_IO_DEVICE);
    CHECK(attributesError("N:\\") == 0);
    CHECK_FALSE(faults.hit());
    CHECK(attributesError("F:\\b") == ERROR_IO_DEVICE);
    CHECK(attributesError("F:\\b") == ERROR_IO_DEVICE);
    CHECK(DeleteFileA("F:\\b"));
    CHECK(faults.hit());
    faults.clear();
    CHECK(attributesError("F:\\b") == ERROR_FILE_NOT_FOUND);

    writeFile("F:\\b", {});

    faults.cutPower(2);
    CHECK(attributesError("F:\\b") == 0);
    CHECK(attributesError("F:\\b") == ERROR_GEN_FAILURE);
    CHECK_FALSE(DeleteFileA("F:\\b"));
    pc.cutPower(pc::PowerCut::losesNames);
    CHECK(attributesError("F:\\b") == ERROR_FILE_NOT_FOUND);  // it never was on the disk
    CHECK(faults.hit());
}
