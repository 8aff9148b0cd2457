// The registry key of the product's settings, below HKEY_CURRENT_USER and HKEY_LOCAL_MACHINE.
#ifndef TIDEWELL_MODULE_SETTINGS_KEY_H
#define TIDEWELL_MODULE_SETTINGS_KEY_H

#define TIDEWELL_SETTINGS_KEY "Software\\Brinefield Software\\Tidewell\\CurrentVersion"

#endif
