// The name under which a file is stored.
#ifndef TIDEWELL_UI_STORED_NAME_H
#define TIDEWELL_UI_STORED_NAME_H

namespace tidewell {

// Puts the file's name as it is stored, in its real case and long form, in place of the last component of
// `path`, of kPathCapacity bytes. A file keeps the one it has when it cannot be found, or when its stored
// name has characters that the code page lacks.
void RestoreStoredName(char* path);

}  // namespace tidewell

#endif
