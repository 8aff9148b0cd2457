// The name under which a file is stored.
#ifndef TIDEWELL_UI_STORED_NAME_H
#define TIDEWELL_UI_STORED_NAME_H

namespace tidewell {

// Puts the file's name as it is stored, in its real case and long form, in place of the last component of
// `path`, of kPathCapacity bytes; a file that cannot be found keeps the one it has.
void RestoreStoredName(char* path);

}  // namespace tidewell

#endif
