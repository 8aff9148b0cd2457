// Names that Windows takes in a way of its own.
#ifndef TIDEWELL_MACFILE_USABLE_NAME_H
#define TIDEWELL_MACFILE_USABLE_NAME_H

#include <windows.h>

namespace tidewell {

// Changes a file name, which has no forbidden characters, into one that names a file and is the file's real
// name. The periods and blanks at its end go, since Windows passes over them in the name of a file but not
// before that of a stream; a name of nothing else becomes one of "_", and so does half a double-byte
// character at the end. A "_" follows the name of a device ("NUL_.txt"), which would else be written to, and
// is first in that of one of the driver's pseudo-files. The result has at most one byte more.
void MakeNameUsable(char* name);

}  // namespace tidewell

#endif
