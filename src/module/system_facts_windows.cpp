#include "module/system_facts.h"

#include "module/administrator.h"
#include "module/locale_library.h"

namespace tidewell {

namespace {

bool hasDoubleByteCharacters() {
    return GetSystemMetrics(SM_DBCSENABLED) != 0;
}

}  // namespace

const SystemFacts WindowsFacts = {hasDoubleByteCharacters, LoadLocaleLibrary, IsAdministrator};

}  // namespace tidewell
