// From a Mac file's name to the name under which Windows shows it in a folder.
#ifndef TIDEWELL_MACFILE_MAC_NAME_H
#define TIDEWELL_MACFILE_MAC_NAME_H

#include "macfile/volume_kind.h"

#include <cstdint>

namespace tidewell {

// A Mac name is length-prefixed, in the Mac character set; `kind` is that of the volume of `folder`;
// `outPath` receives a full path, `capacity` is its size in bytes. On a Mac volume the driver maps the name;
// elsewhere the characters that Windows forbids become "_". Besides those named, the errors are the system's
// and the driver's: ERROR_INSUFFICIENT_BUFFER for a folder that does not fit `outPath`,
// ERROR_FILENAME_EXCED_RANGE for a path that does not, ERROR_MORE_DATA for a name that does not fit a path.

// 0: the item is there; ERROR_FILE_NOT_FOUND: it is not, or ERROR_PATH_NOT_FOUND: not even its folder.
ErrorCode LookUpMacName(VolumeKind kind, const char* folder, const uint8_t* macName, uint32_t reserved,
                        char* outPath, DWORD capacity);

// Afterwards a file is at `outPath`; one that was there already is kept as it is, and on other volumes than
// the driver's the last error is ERROR_ALREADY_EXISTS then, else NO_ERROR. After an error there is no
// new file; only Windows 95 and 98 cannot take away one whose name is outside the code page.
ErrorCode CreateMacNamedFile(VolumeKind kind, const char* folder, const uint8_t* macName, uint32_t reserved,
                             char* outPath, DWORD capacity);

// As LookUpMacName, for a UTF-16 name of `length` code units; ERROR_INVALID_FUNCTION where the folder is on
// no Mac volume.
ErrorCode LookUpUnicodeMacName(VolumeKind kind, const char* folder, DWORD length, const uint16_t* name,
                               char* outPath, DWORD capacity);

// The name with a NUL after it and the forbidden and control characters replaced. Returns 1, or 0 with the
// last error ERROR_MORE_DATA.
BOOL MacNameToWindowsName(const uint8_t* macName, char* out, DWORD capacity);

}  // namespace tidewell

#endif
