#include "support/test_pc.h"

#include <doctest/doctest.h>

namespace {

struct LockedDevice final : pc::Device {
    struct Opening final : pc::File {
        unsigned locks() const override { return 1; }
    };
    pc::Error open(const pc::OpenMode&, std::unique_ptr<pc::File>& file) override {
        file = std::make_unique<Opening>();
        return 0;
    }
};

HANDLE openDevice(const char* path, DWORD access = GENERIC_READ) {
    return CreateFileA(path, access, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
}

}  // namespace

TEST_CASE("No device but the PC's own is reached, and none that is not shared") {
    TestPc pc;
    for (const char* path : {"\\\\.\\TIDEWELL", "\\\\.\\tidewell", "//./TIDEWELL"}) {
        const HANDLE first = openDevice(path), second = openDevice(path);
        CHECK(openDevice(path, GENERIC_WRITE) == INVALID_HANDLE_VALUE);
        CHECK(GetLastError() == ERROR_SHARING_VIOLATION);
        CHECK_MESSAGE((CloseHandle(first) && CloseHandle(second)), path);
    }
    for (const char* path : {"\\\\.\\PhysicalDrive0", "\\\\.\\A:", "\\\\?\\TIDEWELL", "//./A:", "\\\\.\\",
                             "\\\\.\\TIDEWELL\\x", "\\\\.\\GLOBALROOT\\Device\\Harddisk0"}) {
        CAPTURE(path);
        CHECK(openDevice(path) == INVALID_HANDLE_VALUE);
        CHECK(GetLastError() == ERROR_FILE_NOT_FOUND);
    }
    CHECK(pc.nothingHeld());
    pc.addDevice("A:", std::make_shared<LockedDevice>());
    CHECK(CloseHandle(openDevice("\\\\.\\A:")));
    CHECK_FALSE(pc.nothingHeld());  // the lock outlives its opening
}
