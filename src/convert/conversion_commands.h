// The commands of the file menu that convert what the user has selected. They ask and tell the user whatever
// there is to ask and to tell, run on the calling thread, and return when all is done or given up.
#ifndef TIDEWELL_CONVERT_CONVERSION_COMMANDS_H
#define TIDEWELL_CONVERT_CONVERSION_COMMANDS_H

#include "base/path_list.h"

namespace tidewell {

// Restores the Mac file from each selected MacBinary or BinHex file into `hereFolder`, or into a folder that
// the user chooses when that is null. From then on the process is told of drives without a medium by errors,
// with no prompt of the system's.
void ExtractOriginalMacFiles(HWND owner, const PathList& selection, const char* hereFolder);

// The same for packing each selected Mac file into a MacBinary file.
void CreateMacBinaryFiles(HWND owner, const PathList& selection, const char* hereFolder);

// Whether Mac files may be restored into the folder: its disk keeps their Mac information, or the user agrees
// to lose it.
bool ConfirmExtractDestination(HWND owner, const char* folder);

}  // namespace tidewell

#endif
