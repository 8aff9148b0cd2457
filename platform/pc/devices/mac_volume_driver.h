// The device of the Mac volume driver, "\\.\TIDEWELL".
#ifndef TIDEWELL_PLATFORM_PC_DEVICES_MAC_VOLUME_DRIVER_H
#define TIDEWELL_PLATFORM_PC_DEVICES_MAC_VOLUME_DRIVER_H

#include "pc/devices/device.h"

#include <memory>

namespace pc {

class Pc;

constexpr const char* kMacVolumeDriverName = "TIDEWELL";

// Answers for the Mac volumes that `pc` has at the time of a request; `pc` outlives the device. The requests:
//
// 0x0022200B, the drive mask: which drives are Mac volumes.
// 0x00222033, a Mac name to the item's name on Windows. 2: no such item; 3: no such folder, or on no Mac
// volume; 5: an item that is no file is to be created; 21: no medium; 123: programs of the PC's code page
// cannot name the item; 206: nor its path, which is too long for them. A request for an item that cannot be
// named creates nothing.
//
// 87 for a request that is malformed, 1 for any other.
std::shared_ptr<Device> makeMacVolumeDriver(Pc& pc);

}  // namespace pc

#endif
