#include "support/test_pc.h"

#include <doctest/doctest.h>

TEST_CASE("No device but the PC's own is reached") {
    TestPc pc;
    const auto open = [](const char* path) {
        const HANDLE device =
            CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
        if (device == INVALID_HANDLE_VALUE) return GetLastError();
        CloseHandle(device);
        return DWORD{0};
    };
    CHECK(open("\\\\.\\TIDEWELL") == 0);
    CHECK(open("\\\\.\\tidewell") == 0);
    CHECK(open("//./TIDEWELL") == 0);
    for (const char* path : {"\\\\.\\PhysicalDrive0", "\\\\.\\A:", "\\\\?\\TIDEWELL", "//./A:", "\\\\.\\",
                             "\\\\.\\TIDEWELL\\x", "\\\\.\\GLOBALROOT\\Device\\Harddisk0"})
        CHECK_MESSAGE(open(path) == ERROR_FILE_NOT_FOUND, path);
    CHECK(pc.nothingHeld());
}
