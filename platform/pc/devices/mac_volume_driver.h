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
// 0x00222033, a Mac name to the item's name on Windows. ERROR_FILE_NOT_FOUND: no such item.
// ERROR_PATH_NOT_FOUND: no such folder, or on no Mac volume. ERROR_ACCESS_DENIED: an item that is no file is
// to be created. ERROR_NOT_READY: no medium. ERROR_INVALID_NAME: programs of the PC's code page cannot name
// the item; ERROR_FILENAME_EXCED_RANGE: nor its path, which is too long for them. A request for an item that
// cannot be named creates nothing.
//
// ERROR_INVALID_PARAMETER for a request that is malformed, ERROR_INVALID_FUNCTION for any other.
std::shared_ptr<Device> makeMacVolumeDriver(Pc& pc);

}  // namespace pc

#endif
