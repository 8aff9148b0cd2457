#include "support/test_pc.h"

#include <doctest/doctest.h>

namespace {

// A device that is locked by a request, and unlocked by another.
struct Disk final : pc::Device {
    struct Opening final : pc::File {
        unsigned held = 0;
        pc::Error control(uint32_t code, std::span<const uint8_t>, std::span<uint8_t>, size_t&) override {
            held = code;
            return 0;
        }
        unsigned locks() const override { return held; }
    };
    pc::Error open(const pc::OpenMode&, std::unique_ptr<pc::File>& file) override {
        file = std::make_unique<Opening>();
        return 0;
    }
};

HANDLE openDevice(const char* path, DWORD access = GENERIC_READ, DWORD share = FILE_SHARE_READ) {
    return CreateFileA(path, access, share, nullptr, OPEN_EXISTING, 0, nullptr);
}

}  // namespace

TEST_CASE("No device but the PC's own is reached") {
    TestPc pc;
    for (const char* path : {"\\\\.\\TIDEWELL", "\\\\.\\tidewell", "//./TIDEWELL"})
        CHECK_MESSAGE(CloseHandle(openDevice(path)), path);
    for (const char* path : {"\\\\.\\PhysicalDrive0", "\\\\.\\A:", "\\\\?\\TIDEWELL", "//./A:", "\\\\.\\",
                             "\\\\.\\TIDEWELL\\x", "\\\\.\\GLOBALROOT\\Device\\Harddisk0"}) {
        CAPTURE(path);
        CHECK(openDevice(path) == INVALID_HANDLE_VALUE);
        CHECK(GetLastError() == ERROR_FILE_NOT_FOUND);
    }
    CHECK(pc.nothingHeld());
}

TEST_CASE("Each opening of a device has its own sharing and locks") {
    constexpr char kDisk[] = "\\\\.\\A:";
    TestPc pc;
    pc.addDevice("A:", std::make_shared<Disk>());
    const HANDLE first = openDevice(kDisk);
    CHECK(openDevice(kDisk, GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE) == INVALID_HANDLE_VALUE);
    CHECK(GetLastError() == ERROR_SHARING_VIOLATION);
    const HANDLE second = openDevice(kDisk);
    DWORD returned = 0;
    for (const DWORD lock : {1, 0})
        REQUIRE(DeviceIoControl(first, lock, nullptr, 0, nullptr, 0, &returned, nullptr));
    CHECK(CloseHandle(first));
    CHECK_FALSE(pc.nothingHeld());
    CHECK(CloseHandle(second));
    CHECK(pc.nothingHeld());
    const HANDLE third = openDevice(kDisk);
    REQUIRE(DeviceIoControl(third, 1, nullptr, 0, nullptr, 0, &returned, nullptr));
    CHECK(CloseHandle(third));
    CHECK_FALSE(pc.nothingHeld());  // the lock outlives its opening
}
