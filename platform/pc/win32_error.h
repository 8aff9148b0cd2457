// The Win32 error codes that volumes answer with, under names that do not collide with Windows' own.
#ifndef TIDEWELL_PLATFORM_PC_WIN32_ERROR_H
#define TIDEWELL_PLATFORM_PC_WIN32_ERROR_H

#include "file.h"

namespace pc {

constexpr Error kInvalidFunction = 1;
constexpr Error kFileNotFound = 2;
constexpr Error kPathNotFound = 3;
constexpr Error kTooManyOpenFiles = 4;
constexpr Error kAccessDenied = 5;
constexpr Error kNotEnoughMemory = 8;
constexpr Error kWriteProtected = 19;
constexpr Error kNotReady = 21;
constexpr Error kGeneralFailure = 31;
constexpr Error kSharingViolation = 32;
constexpr Error kFileExists = 80;
constexpr Error kInvalidParameter = 87;
constexpr Error kDiskFull = 112;
constexpr Error kInvalidName = 123;
constexpr Error kNameTooLong = 206;
constexpr Error kFileTooLarge = 223;
constexpr Error kIoDevice = 1117;
constexpr Error kFileCorrupt = 1392;

}  // namespace pc

#endif
