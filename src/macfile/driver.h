// The requests that the Mac volume driver answers, with their records.
#ifndef TIDEWELL_MACFILE_DRIVER_H
#define TIDEWELL_MACFILE_DRIVER_H

#include "base/byte_order.h"
#include "base/error_code.h"
#include "base/owned.h"

namespace tidewell {

// A drive is its letter's character code on Windows NT and its index (A: is 0) on Windows 95 and 98; a
// one-byte index is the drive's index on all of them.
constexpr DWORD IOCTL_MACVOL_GET_DRIVE_MASK = 0x0022200B;
constexpr DWORD IOCTL_MACVOL_LIST_VOLUMES = 0x0022201B;
constexpr DWORD IOCTL_MACVOL_GET_CURRENT_VOLUME = 0x0022201F;
constexpr DWORD IOCTL_MACVOL_SELECT_VOLUME = 0x00222023;
constexpr DWORD IOCTL_MACVOL_MAC_NAME_TO_PATH = 0x00222033;
constexpr DWORD IOCTL_MACVOL_TRANSFER_SECTORS = 0x00222037;
constexpr DWORD IOCTL_MACVOL_GET_PARTITION_INFO = 0x00226038;

// The reply to IOCTL_MACVOL_GET_DRIVE_MASK.
struct MacDriveMask {
    uint8_t unused[12];
    Le<uint32_t> drives;  // bit n: drive 'A' + n is a Mac volume
};
static_assert(sizeof(MacDriveMask) == 16);

// One of the records that IOCTL_MACVOL_LIST_VOLUMES replies with.
struct MacVolumeRecord {
    uint8_t unused[12];
    Le<uint32_t> id;
    Le<uint16_t> name[272];  // UTF-16, NUL-terminated
};
static_assert(sizeof(MacVolumeRecord) == 560 && offsetof(MacVolumeRecord, name) == 16);
constexpr DWORD kMaxMacVolumes = 32;

struct SelectVolumeRequest {
    Le<uint32_t> drive;
    Le<uint32_t> volumeId;
};
static_assert(sizeof(SelectVolumeRequest) == 8);

struct TransferSectorsRequest {
    uint8_t driveIndex;
    uint8_t padding1[3];
    Le<uint32_t> firstSectorLow;
    Le<uint32_t> firstSectorHigh;
    Le<uint32_t> sectorCount;
    uint8_t write;  // not 0: write
    uint8_t padding17[3];
};
static_assert(sizeof(TransferSectorsRequest) == 20 && offsetof(TransferSectorsRequest, write) == 16);

constexpr DWORD kMacFolderUnits = 256;  // UTF-16, with the terminating NUL

struct MacNameRequest {
    Le<uint16_t> folder[kMacFolderUnits];  // its components, separated by NULs
    uint8_t operation;                     // MacNameOperation
    uint8_t form;                          // MacNameForm
    union {
        struct {
            Le<uint32_t> reserved;
            uint8_t length;
            uint8_t characters[255];
        } mac;  // MacNameForm::mac
        struct {
            Le<uint16_t> length;  // UTF-16 code units
            Le<uint16_t> characters[255];
        } unicode;  // MacNameForm::unicode
    };
};
static_assert(sizeof(MacNameRequest) == 1026 && offsetof(MacNameRequest, mac) == 514);

enum class MacNameOperation : uint8_t { create = 0, find = 1 };
enum class MacNameForm : uint8_t { mac = 0, unicode = 1 };

// The name is one component of a path, UTF-16, NUL-terminated, and begins at an odd offset.
struct MacNameReply {
    uint8_t unused;
    Le<uint16_t> name[256];
};
static_assert(sizeof(MacNameReply) == 513);

// Opens the driver's device for one sequence of requests.
ErrorCode OpenMacDriver(OwnedFile& device);

// Sends one request. `returned`, which may be null, receives the size of the reply in bytes.
ErrorCode SendDriverRequest(HANDLE device, DWORD code, const void* input, DWORD inputSize, void* output,
                            DWORD outputSize, DWORD* returned);

}  // namespace tidewell

#endif
