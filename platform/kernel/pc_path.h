// From a path as the library gives it to a volume of the PC.
#ifndef TIDEWELL_PLATFORM_KERNEL_PC_PATH_H
#define TIDEWELL_PLATFORM_KERNEL_PC_PATH_H

#include "../pc/pc.h"

#include <windows.h>

#include <string>

namespace kernel {

struct PcPath {
    pc::Volume* volume = nullptr;
    char letter = 0;
    std::string inside;  // UTF-8, relative to the volume's root
};

// The PC's device that the path names; null for one that the PC lacks, and for any other path.
std::shared_ptr<pc::Device> findDevice(LPCSTR path);

// 2: a device; 3: no such drive, or a path of no drive; 21: no medium; 123: text that is none
// of the code page; 206: too long.
pc::Error findPath(LPCSTR path, PcPath& found);

}  // namespace kernel

#endif
