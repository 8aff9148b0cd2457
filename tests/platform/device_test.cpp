#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>

namespace {

// Reads as the offset that is read; a request adds its code to the locks.
struct Opening final : pc::File {
    unsigned held = 0;
    pc::Error read(uint64_t offset, void* buffer, size_t count, size_t& got) override {
        got = count;
        std::memcpy(buffer, &offset, count);
        return 0;
    }
    pc::Error control(uint32_t code, std::span<const uint8_t>, std::span<uint8_t>,
                      size_t& returned) override {
        returned = 0;
        held += code;
        return 0;
    }
    unsigned locks() const override { return held; }
};

struct Disk final : pc::Device {
    pc::Error open(const pc::OpenMode&, std::unique_ptr<pc::File>& file) override {
        file = std::make_unique<Opening>();
        return 0;
    }
};

constexpr DWORD kLock = 1, kUnlock = static_cast<DWORD>(-1);

HANDLE openDevice(const char* path, DWORD access, DWORD share) {
    return CreateFileA(path, access, share, nullptr, OPEN_EXISTING, 0, nullptr);
}

BOOL control(HANDLE device, DWORD code) {
    DWORD returned = 0;
    return DeviceIoControl(device, code, nullptr, 0, nullptr, 0, &returned, nullptr);
}

}  // namespace

TEST_CASE("No device but the PC's own is reached") {
    TestPc pc;
    for (const char* path : {"\\\\.\\TIDEWELL", "\\\\.\\tidewell", "//./TIDEWELL"})
        CHECK_MESSAGE(CloseHandle(openDevice(path, GENERIC_READ, FILE_SHARE_READ)), path);
    for (const char* path : {"\\\\.\\PhysicalDrive0", "\\\\.\\A:", "\\\\?\\TIDEWELL", "//./A:", "\\\\.\\",
                             "\\\\.\\TIDEWELL\\x", "\\\\.\\GLOBALROOT\\Device\\Harddisk0"}) {
        CAPTURE(path);
        CHECK(openDevice(path, GENERIC_READ, FILE_SHARE_READ) == INVALID_HANDLE_VALUE);
        CHECK(GetLastError() == ERROR_FILE_NOT_FOUND);
    }
    CHECK(pc.nothingHeld());
}

TEST_CASE("Each opening of a device has its own position, access, sharing and locks") {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;
    constexpr char kDisk[] = "\\\\.\\A:";
    TestPc pc;
    pc.addDevice("A:", std::make_shared<Disk>());
    const HANDLE first = openDevice(kDisk, GENERIC_READ, FILE_SHARE_READ);
    CHECK(openDevice(kDisk, GENERIC_READ | GENERIC_WRITE, kShareAll) == INVALID_HANDLE_VALUE);
    CHECK(GetLastError() == ERROR_SHARING_VIOLATION);
    const HANDLE second = openDevice(kDisk, GENERIC_READ, kShareAll);

    uint64_t offset = 1;
    DWORD got = 0;
    REQUIRE(ReadFile(first, &offset, sizeof offset, &got, nullptr));
    REQUIRE(ReadFile(first, &offset, sizeof offset, &got, nullptr));
    CHECK(offset == sizeof offset);
    REQUIRE(ReadFile(second, &offset, sizeof offset, &got, nullptr));
    CHECK(offset == 0);
    CHECK_FALSE(WriteFile(second, &offset, sizeof offset, &got, nullptr));
    CHECK(GetLastError() == ERROR_ACCESS_DENIED);

    REQUIRE(control(first, kLock));
    REQUIRE(control(first, kUnlock));
    CHECK(CloseHandle(first));
    CHECK_FALSE(pc.nothingHeld());
    CHECK(CloseHandle(second));
    CHECK(pc.nothingHeld());
    const HANDLE third = openDevice(kDisk, GENERIC_READ, kShareAll);
    REQUIRE(control(third, kLock));
    CHECK(CloseHandle(third));
    CHECK_FALSE(pc.nothingHeld());  // the lock outlives its opening
}
