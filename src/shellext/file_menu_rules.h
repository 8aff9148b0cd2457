// For which selections the commands of the file menu are offered.
#ifndef TIDEWELL_SHELLEXT_FILE_MENU_RULES_H
#define TIDEWELL_SHELLEXT_FILE_MENU_RULES_H

#include "base/path_list.h"
#include "macfile/fork_paths.h"

namespace tidewell {

enum class Offer { none, disabled, enabled };

// Whether all files are on Mac volumes; or the first, whose paths are given, has Finder information
// elsewhere.
bool OffersPacking(const PathList& selection, const ForkPaths& first);

// Whether all files are named as MacBinary or BinHex files.
bool OffersExtraction(const PathList& selection);

// Of the file with these paths: one without resources is shown as such where every file could have some.
Offer OfferOfViewing(const ForkPaths& file);

}  // namespace tidewell

#endif
