// Devices and open files by their handles.
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <algorithm>

namespace {

// Replies with its request, reversed.
class Mirror final : public pc::Device {
  public:
    pc::Error control(uint32_t code, std::span<const uint8_t> input, std::span<uint8_t> output,
                      size_t& returned) override {
        returned = 0;
        if (code != 7) return ERROR_INVALID_FUNCTION;
        if (output.size() < input.size()) return ERROR_INSUFFICIENT_BUFFER;
        std::reverse_copy(input.begin(), input.end(), output.begin());
        returned = input.size();
        return 0;
    }
};

HANDLE openDevice(const char* path) {
    return CreateFileA(path, GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
}

struct DevicePc : TestPc {
    DevicePc() { addDevice("Mirror", std::make_shared<Mirror>()); }
};

}  // namespace

TEST_CASE_FIXTURE(DevicePc, "A device answers requests and has no bytes") {
    const HANDLE device = openDevice("\\\\.\\MIRROR");
    REQUIRE(device != INVALID_HANDLE_VALUE);
    char request[] = {1, 2, 3};
    char reply[4] = {9, 9, 9, 9};
    DWORD size = 77;
    CHECK(DeviceIoControl(device, 7, request, 3, reply, 4, &size, nullptr));
    CHECK(size == 3);
    CHECK(std::string(reply, 4) == "\x03\x02\x01\x09");
    CHECK_FALSE(DeviceIoControl(device, 7, request, 3, reply, 2, &size, nullptr));
    CHECK(GetLastError() == ERROR_INSUFFICIENT_BUFFER);
    CHECK(size == 0);
    CHECK_FALSE(DeviceIoControl(device, 8, nullptr, 0, nullptr, 0, &size, nullptr));
    CHECK(GetLastError() == ERROR_INVALID_FUNCTION);
    CHECK_FALSE(ReadFile(device, reply, 1, &size, nullptr));
    CHECK(GetLastError() == ERROR_INVALID_FUNCTION);
    const HANDLE second = openDevice("\\\\.\\mirror");
    CHECK(second != INVALID_HANDLE_VALUE);
    CloseHandle(second);
    CHECK(CloseHandle(device));
    CHECK(nothingHeld());
    CHECK(journal().countOn("DeviceIoControl", "MIRROR") == 1);
}

TEST_CASE_FIXTURE(DevicePc, "No device but the PC's own is reached") {
    for (const char* path : {"\\\\.\\PhysicalDrive0", "\\\\.\\A:", "\\\\?\\MIRROR", "//./MIRROR", "\\\\.\\",
                             "\\\\.\\MIRROR\\x", "\\\\.\\GLOBALROOT\\Device\\Harddisk0"}) {
        CAPTURE(std::string(path));
        CHECK(openDevice(path) == INVALID_HANDLE_VALUE);
        CHECK(GetLastError() == ERROR_FILE_NOT_FOUND);
    }
    CHECK(nothingHeld());
}

TEST_CASE_FIXTURE(DevicePc, "A file answers no requests, and tells of itself") {
    writeFile("N:\\a", patternOf(1000));
    const HANDLE file = openDevice("N:\\a");
    const HANDLE again = openDevice("N:\\A");
    DWORD size = 0;
    CHECK_FALSE(DeviceIoControl(file, 7, nullptr, 0, nullptr, 0, &size, nullptr));
    CHECK(GetLastError() == ERROR_INVALID_FUNCTION);
    BY_HANDLE_FILE_INFORMATION one, two;
    REQUIRE(GetFileInformationByHandle(file, &one));
    REQUIRE(GetFileInformationByHandle(again, &two));
    CHECK(one.nFileSizeLow == 1000);
    CHECK(one.nFileSizeHigh == 0);
    CHECK((one.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0);
    CHECK(one.nFileIndexLow == two.nFileIndexLow);
    CloseHandle(file);
    CloseHandle(again);
    faults().failCall(1, ERROR_CRC);
    CHECK_FALSE(GetFileInformationByHandle(file, &one));
    CHECK(GetLastError() == ERROR_INVALID_HANDLE);
}
