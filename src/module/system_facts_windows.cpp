#include "module/system_facts.h"

#include "module/administrator.h"
#include "module/locale_library.h"

namespace tidewell {

SystemFacts FindSystemFacts() {
    return {LoadLocaleLibrary(), IsAdministrator(), GetSystemMetrics(SM_DBCSENABLED) != 0};
}

}  // namespace tidewell
