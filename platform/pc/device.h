// A device of the PC: what a program opens as "\\.\NAME".
#ifndef TIDEWELL_PLATFORM_PC_DEVICE_H
#define TIDEWELL_PLATFORM_PC_DEVICE_H

#include "file.h"

#include <cstdint>
#include <memory>
#include <span>

namespace pc {

class Device {
  public:
    virtual ~Device() = default;

    // Answers one request. `output` has the room that the caller gave, of which the first `returned` bytes
    // are the reply; 0 when the request fails. 1: a request that the device does not have.
    virtual Error control(uint32_t code, std::span<const uint8_t> input, std::span<uint8_t> output,
                          size_t& returned) = 0;
};

// The bytes of a device that has none: 1 for every transfer.
std::unique_ptr<File> makeDeviceFile();

}  // namespace pc

#endif
