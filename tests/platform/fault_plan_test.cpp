#include "support/test_pc.h"

#include <doctest/doctest.h>

namespace {

DWORD attributesError(const char* path) {
    return exists(path) ? 0 : GetLastError();
}

}  // namespace

TEST_CASE("A fault strikes once, from a call on, or a call by its name and path") {
    TestPc pc;
    for (const char* path : {"F:\\a", "F:\\b"})
        writeFile(path, {});
    pc::FaultPlan& faults = pc.faults();

    faults.failCall(2, ERROR_CRC);
    CHECK(attributesError("F:\\a") == 0);
    CHECK_FALSE(faults.hit());
    CHECK(attributesError("F:\\b") == ERROR_CRC);
    CHECK(attributesError("F:\\b") == 0);
    CHECK(faults.hit());
    CHECK(faults.hitCall() == "GetFileAttributesA");
    CHECK(faults.hitSubject() == "F:\\b");

    faults.failFromCall(2, ERROR_CRC);
    CHECK_FALSE(faults.hit());
    CHECK(attributesError("F:\\b") == 0);
    CHECK(attributesError("F:\\a") == ERROR_CRC);
    CHECK(attributesError("F:\\b") == 0);
    CHECK(attributesError("F:\\a") == ERROR_CRC);
    CHECK(DeleteFileA("F:\\a"));
    CHECK(faults.hitSubject() == "F:\\a");

    faults.failAlways("GetVolumeInformationA", "N:\\", ERROR_IO_DEVICE);
    const auto volumeError = [](const char* root) {
        return GetVolumeInformationA(root, nullptr, 0, nullptr, nullptr, nullptr, nullptr, 0)
                   ? 0
                   : GetLastError();
    };
    CHECK(volumeError("F:\\") == 0);
    CHECK_FALSE(faults.hit());
    for (int i = 0; i < 2; ++i)
        CHECK(volumeError("N:\\") == ERROR_IO_DEVICE);
    CHECK(attributesError("N:\\") == 0);
    CHECK(faults.hit());
    faults.clear();
    CHECK(volumeError("N:\\") == 0);

    faults.cutPower(2);
    CHECK(attributesError("F:\\b") == 0);
    CHECK(attributesError("F:\\b") == ERROR_GEN_FAILURE);
    CHECK_FALSE(DeleteFileA("F:\\b"));
    pc.cutPower(pc::PowerCut::losesNames);
    CHECK(attributesError("F:\\b") == ERROR_FILE_NOT_FOUND);  // it never was on the disk
    CHECK(faults.hit());
}
