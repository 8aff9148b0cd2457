#include "device.h"

#include "win32_error.h"

namespace pc {

namespace {

class DeviceFile final : public File {
  public:
    Error read(uint64_t, void*, size_t, size_t& got) override {
        got = 0;
        return kInvalidFunction;
    }
    Error write(uint64_t, const void*, size_t) override { return kInvalidFunction; }
    Error size(uint64_t&) override { return kInvalidFunction; }
    Error setSize(uint64_t) override { return kInvalidFunction; }
    Error flush() override { return kInvalidFunction; }
};

}  // namespace

std::unique_ptr<File> makeDeviceFile() {
    return std::make_unique<DeviceFile>();
}

}  // namespace pc
