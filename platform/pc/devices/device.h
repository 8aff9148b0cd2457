// A device of the PC: what a program opens as "\\.\NAME".
#ifndef TIDEWELL_PLATFORM_PC_DEVICES_DEVICE_H
#define TIDEWELL_PLATFORM_PC_DEVICES_DEVICE_H

#include "pc/file.h"

#include <memory>

namespace pc {

class Device {
  public:
    virtual ~Device() = default;

    // One opening, with an access and locks of its own; the device outlives it. The PC has checked its share
    // mode against those of the others. A device may refuse transfers that are not aligned to its sectors.
    virtual Error open(const OpenMode& mode, std::unique_ptr<File>& file) = 0;
};

// A device without bytes, whose openings are all the same: it only answers requests.
class ControlDevice : public Device {
  public:
    virtual Error control(uint32_t code, std::span<const uint8_t> input, std::span<uint8_t> output,
                          size_t& returned) = 0;

    Error open(const OpenMode&, std::unique_ptr<File>& file) final {
        file = std::make_unique<Opening>(*this);
        return 0;
    }

  private:
    struct Opening final : File {
        explicit Opening(ControlDevice& opened) : device(opened) {}
        Error control(uint32_t code, std::span<const uint8_t> input, std::span<uint8_t> output,
                      size_t& returned) override {
            return device.control(code, input, output, returned);
        }
        ControlDevice& device;
    };
};

}  // namespace pc

#endif
