// Paths as Windows reads them.
#ifndef TIDEWELL_PLATFORM_KERNEL_FULL_PATH_H
#define TIDEWELL_PLATFORM_KERNEL_FULL_PATH_H

#include "pc/pc.h"

#include <string>
#include <string_view>

namespace kernel {

inline bool isSeparator(char c) {
    return c == '\\' || c == '/';
}

// "\\.\NAME", a device, with either separator.
bool isDevicePath(std::string_view path);
// "\\?\X:\...", with '\' only: a path that is taken as it is.
bool isLiteralPath(std::string_view path);
// Whether it begins with a drive's letter and ":".
bool hasDrive(std::string_view path);
// Whether it needs a current folder: of no drive, or of the current folder of its drive.
bool isRelative(std::string_view path);

// The path with its drive, one '\' between components, without "." and ".." and without the periods and
// blanks that Windows drops; "\\.\NUL" for such a name, wherever it is. Devices and literal paths stay as
// they are, paths of other machines but for their separators. Texts are UTF-8. 3: it needs a current folder,
// which the PC lacks; 123: empty.
pc::Error fullPathOf(const pc::Pc& pc, std::string_view path, std::string& full);

}  // namespace kernel

#endif
