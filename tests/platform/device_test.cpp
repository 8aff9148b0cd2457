#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>

namespace {

constexpr uint32_t kLock = 1, kUnlock = 2;

// A disk of two sectors, whose locks belong to the opening that took them.
class Disk final : public pc::Device {
  public:
    Bytes bytes = patternOf(1024);

    pc::Error open(const pc::OpenMode&, std::unique_ptr<pc::File>& file) override {
        file = std::make_unique<Opening>(*this);
        return 0;
    }

  private:
    struct Opening final : pc::File {
        explicit Opening(Disk& opened) : disk(opened) {}
        pc::Error read(uint64_t offset, void* buffer, size_t count, size_t& got) override {
            got = 0;
            if (offset % 512 != 0 || count % 512 != 0) return ERROR_INVALID_PARAMETER;
            got = offset < disk.bytes.size() ? count : 0;
            std::memcpy(buffer, disk.bytes.data() + offset, got);
            return 0;
        }
        pc::Error control(uint32_t code, std::span<const uint8_t>, std::span<uint8_t>,
                          size_t& returned) override {
            returned = 0;
            held += code == kLock ? 1U : -1U;
            return 0;
        }
        unsigned locks() const override { return held; }
        Disk& disk;
        unsigned held = 0;
    };
};

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
    const auto open = [](const char* path) {
        const HANDLE device = openDevice(path, GENERIC_READ, FILE_SHARE_READ);
        if (device == INVALID_HANDLE_VALUE) return GetLastError();
        CloseHandle(device);
        return DWORD{0};
    };
    for (const char* path : {"\\\\.\\TIDEWELL", "\\\\.\\tidewell", "//./TIDEWELL"})
        CHECK_MESSAGE(open(path) == 0, path);
    for (const char* path : {"\\\\.\\PhysicalDrive0", "\\\\.\\A:", "\\\\?\\TIDEWELL", "//./A:", "\\\\.\\",
                             "\\\\.\\TIDEWELL\\x", "\\\\.\\GLOBALROOT\\Device\\Harddisk0"})
        CHECK_MESSAGE(open(path) == ERROR_FILE_NOT_FOUND, path);
    CHECK(pc.nothingHeld());
}

TEST_CASE("Each opening of a device has its own position, access, sharing and locks") {
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;
    constexpr char kDisk[] = "\\\\.\\A:";
    TestPc pc;
    const auto disk = std::make_shared<Disk>();
    pc.addDevice("A:", disk);
    const HANDLE first = openDevice(kDisk, GENERIC_READ, FILE_SHARE_READ);
    CHECK(openDevice(kDisk, GENERIC_READ | GENERIC_WRITE, kShareAll) == INVALID_HANDLE_VALUE);
    CHECK(GetLastError() == ERROR_SHARING_VIOLATION);
    const HANDLE second = openDevice(kDisk, GENERIC_READ, kShareAll);
    REQUIRE(second != INVALID_HANDLE_VALUE);

    Bytes sector(512);
    DWORD got = 0;
    REQUIRE(ReadFile(first, sector.data(), 512, &got, nullptr));
    REQUIRE(ReadFile(first, sector.data(), 512, &got, nullptr));
    CHECK(std::equal(sector.begin(), sector.end(), disk->bytes.begin() + 512));
    REQUIRE(ReadFile(second, sector.data(), 512, &got, nullptr));
    CHECK(std::equal(sector.begin(), sector.end(), disk->bytes.begin()));
    CHECK_FALSE(ReadFile(second, sector.data(), 100, &got, nullptr));
    CHECK(GetLastError() == ERROR_INVALID_PARAMETER);
    CHECK_FALSE(WriteFile(second, sector.data(), 512, &got, nullptr));
    CHECK(GetLastError() == ERROR_ACCESS_DENIED);

    REQUIRE(control(first, kLock));
    REQUIRE(control(second, kLock));
    REQUIRE(control(first, kUnlock));
    CHECK(CloseHandle(first));
    CHECK_FALSE(pc.nothingHeld());
    REQUIRE(control(second, kUnlock));
    CHECK(CloseHandle(second));
    CHECK(pc.nothingHeld());
    const HANDLE third = openDevice(kDisk, GENERIC_READ, kShareAll);
    REQUIRE(control(third, kLock));
    CHECK(CloseHandle(third));
    CHECK_FALSE(pc.nothingHeld());  // the lock outlives its opening
}
