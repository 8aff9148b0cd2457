// Paths as Windows reads them, and from there to a volume or a device of the PC.
#ifndef TIDEWELL_PLATFORM_KERNEL_PC_PATH_H
#define TIDEWELL_PLATFORM_KERNEL_PC_PATH_H

#include "pc/pc.h"

#include <windows.h>

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
// they are, paths of other machines but for their separators. Texts are UTF-8. ERROR_PATH_NOT_FOUND: it needs
// a current folder, which the PC lacks; ERROR_INVALID_NAME: empty.
pc::Error fullPathOf(const pc::Pc& pc, std::string_view path, std::string& full);

struct PcPath {
    std::shared_ptr<pc::Device> device;  // when it is a device's path, and else a volume's
    pc::Volume* volume = nullptr;
    char letter = 0;
    std::string inside;  // UTF-8, relative to the volume's root
};

// Empty for a null text.
std::u16string unitsOf(LPCWSTR text);

// ERROR_FILE_NOT_FOUND: a device that the PC lacks; ERROR_PATH_NOT_FOUND: no such drive, or a path of no
// drive; ERROR_NOT_READY: no medium; ERROR_INVALID_NAME: text that is none of the code page, or a literal
// path where there are none; ERROR_FILENAME_EXCED_RANGE: too long.
pc::Error findPath(LPCSTR path, PcPath& found);
pc::Error findPath(LPCWSTR path, PcPath& found);
// The same without devices: ERROR_FILE_NOT_FOUND for each.
pc::Error findFile(LPCSTR path, PcPath& found);

}  // namespace kernel

#endif
