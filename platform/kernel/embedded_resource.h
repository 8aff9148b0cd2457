// Native builds: the library's compiled resource file, which is linked into the program.
#ifndef TIDEWELL_PLATFORM_KERNEL_EMBEDDED_RESOURCE_H
#define TIDEWELL_PLATFORM_KERNEL_EMBEDDED_RESOURCE_H

#include "base/byte_order.h"

#include <cstdint>
#include <cstring>
#include <string>

namespace kernel {

// The data of the entry whose type and name are these numbers, or null.
const uint8_t* embeddedResource(uint16_t type, uint32_t name);

template <typename T>
T loadLittle(const uint8_t* bytes) {
    tidewell::Le<T> number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

// `count` units of UTF-16.
std::u16string loadText(const uint8_t* bytes, size_t count);

}  // namespace kernel

#endif
