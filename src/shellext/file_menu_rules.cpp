#include "shellext/file_menu_rules.h"

#include "base/text.h"
#include "convert/archive_kind.h"

namespace tidewell {

namespace {

// Each drive is asked once: a look at a floppy disk is heard.
bool areOnMacVolumes(const PathList& selection) {
    uint32_t asked = 0;  // one bit a letter
    for (const char* path = nullptr; (path = selection.Next(path)) != nullptr;) {
        char root[] = "A:\\";
        root[0] = upperCase(path[0]);
        if (root[0] < 'A' || root[0] > 'Z') return false;
        const uint32_t bit = uint32_t{1} << (root[0] - 'A');
        if ((asked & bit) == 0 && !IsMacVolume(root)) return false;
        asked |= bit;
    }
    return true;
}

bool exists(const char* path) {
    return GetFileAttributesA(path) != INVALID_FILE_ATTRIBUTES;
}

}  // namespace

bool OffersPacking(const PathList& selection, const ForkPaths& first) {
    if (areOnMacVolumes(selection)) return true;
    return first.finderInfoLength != 0 && exists(first.dataPath) && exists(first.finderInfoPath);
}

bool OffersExtraction(const PathList& selection) {
    for (const char* path = nullptr; (path = selection.Next(path)) != nullptr;) {
        if (ArchiveKindOf(path) == ArchiveKind::none) return false;
    }
    return true;
}

Offer OfferOfViewing(const ForkPaths& file) {
    if (file.resourceLength != 0 && GetFileSizeByPath(file.resourcePath) != 0) return Offer::enabled;
    return file.kind == VolumeKindMac ? Offer::disabled : Offer::none;
}

}  // namespace tidewell
