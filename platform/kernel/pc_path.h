// From a path as the library gives it to a volume or a device of the PC.
#ifndef TIDEWELL_PLATFORM_KERNEL_PC_PATH_H
#define TIDEWELL_PLATFORM_KERNEL_PC_PATH_H

#include "pc/pc.h"

#include <windows.h>

#include <string>

namespace kernel {

struct PcPath {
    std::shared_ptr<pc::Device> device;  // when it is a device's path, and else a volume's
    pc::Volume* volume = nullptr;
    char letter = 0;
    std::string inside;  // UTF-8, relative to the volume's root
};

// Empty for a null text.
std::u16string unitsOf(LPCWSTR text);

// 2: a device that the PC lacks; 3: no such drive, or a path of no drive; 21: no medium; 123: text that is
// none of the code page, or a literal path where there are none; 206: too long.
pc::Error findPath(LPCSTR path, PcPath& found);
pc::Error findPath(LPCWSTR path, PcPath& found);
// The same without devices: 2 for each.
pc::Error findFile(LPCSTR path, PcPath& found);

}  // namespace kernel

#endif
