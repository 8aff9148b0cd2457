// From a Mac file's name to the name under which Windows shows it in a folder.
#ifndef TIDEWELL_MACFILE_MAC_NAME_H
#define TIDEWELL_MACFILE_MAC_NAME_H

#include "macfile/volume_kind.h"

#include <cstdint>

namespace tidewell {

// A Mac name is length-prefixed, in the Mac character set; `kind` is that of the volume of `folder`;
// `outPath` receives a full path, `capacity` is its size in bytes. On a Mac volume the driver maps the name;
// elsewhere the characters that Windows forbids become "_". Besides those named, the errors are the system's
// and the driver's: 122 for a folder that does not fit `outPath`, 234 for a name that does not fit a path.

// 0: the item is there; 2: it is not, or 3: not even its folder.
ErrorCode LookUpMacName(VolumeKind kind, const char* folder, const uint8_t* macName, uint32_t reserved,
                        char* outPath, DWORD capacity);

// Afterwards a file is at `outPath`; one that was there already is kept as it is. After an error there is no
// new file.
ErrorCode CreateMacNamedFile(VolumeKind kind, const char* folder, const uint8_t* macName, uint32_t reserved,
                             char* outPath, DWORD capacity);

// As LookUpMacName, for a UTF-16 name of `length` code units; 1 where the folder is on no Mac volume.
ErrorCode LookUpUnicodeMacName(VolumeKind kind, const char* folder, DWORD length, const uint16_t* name,
                               char* outPath, DWORD capacity);

// The name with a NUL after it and the forbidden and control characters replaced. Returns 1, or 0 with the
// last error 234.
BOOL MacNameToWindowsName(const uint8_t* macName, char* out, DWORD capacity);

}  // namespace tidewell

#endif
