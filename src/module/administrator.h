// Who uses the process, on Windows NT.
#ifndef TIDEWELL_MODULE_ADMINISTRATOR_H
#define TIDEWELL_MODULE_ADMINISTRATOR_H

namespace tidewell {

// Whether the groups of the process's token contain the built-in Administrators, enabled or not. False when
// that cannot be found out, as for a user of very many groups.
bool IsAdministrator();

}  // namespace tidewell

#endif
