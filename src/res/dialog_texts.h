// Texts of the dialogs and menus. The templates are in dialogs.rc, once for every language: a locale library
// compiles them with texts of its own. An ampersand stands before the letter that works with Alt; within one
// dialog each letter is used once.
#ifndef TIDEWELL_RES_DIALOG_TEXTS_H
#define TIDEWELL_RES_DIALOG_TEXTS_H

// Buttons
#define TEXT_START "&Start"
#define TEXT_CLOSE "&Close"
#define TEXT_HELP "&Help"
#define TEXT_VIEW "&View..."
#define TEXT_SAVE_AS "&Save As..."
#define TEXT_WHATS_THIS "&What's This?"

// Format Mac Disk. %1: the drive as Explorer shows it.
#define TEXT_FORMAT_TITLE "Format Mac Disk - %1"
#define TEXT_FORMAT_TYPE "Format &type:"
#define TEXT_FORMAT_QUICK "&Quick format"
#define TEXT_FORMAT_LABEL "Volume &label:"

// Copy Mac Disk
#define TEXT_COPY_TITLE "Tidewell 98 Copy Disk"
#define TEXT_COPY_FROM "Copy f&rom:"
#define TEXT_COPY_TO "Copy &to:"
#define TEXT_COPY_FORMAT "&Format destination disk before copying"

// The resource viewer
#define TEXT_VIEWER_TITLE "Tidewell 98 Resource Viewer"
#define TEXT_VIEWER_TREE "&Resources:"
#define TEXT_VIEWER_TYPE "Type:"
#define TEXT_VIEWER_SIZE "Size:"
#define TEXT_VIEWER_ATTRIBUTES "Attributes:"
#define TEXT_VIEWER_SYSTEM_HEAP "System Heap"
#define TEXT_VIEWER_PURGEABLE "Purgeable"
#define TEXT_VIEWER_LOCKED "Locked"
#define TEXT_VIEWER_PROTECTED "Protected"
#define TEXT_VIEWER_PRELOAD "Preload"
#define TEXT_CONTENTS_TITLE "Resource Contents"

// Property pages
#define TEXT_PAGE_MAC_NAME "Mac name:"
#define TEXT_PAGE_DATA_SIZE "Data size:"
#define TEXT_PAGE_RESOURCE_SIZE "Resource size:"
#define TEXT_PAGE_TYPE "File &type:"
#define TEXT_PAGE_CREATOR "File c&reator:"
#define TEXT_PAGE_FILES "Files on disk:"
#define TEXT_PAGE_FOLDERS "Folders on disk:"
#define TEXT_PAGE_ITEMS "Items in folder:"
#define TEXT_PAGE_ATTRIBUTES "Attributes"
#define TEXT_PAGE_NAME_LOCKED "Name &locked"
#define TEXT_PAGE_HAS_BUNDLE "Has bundle"
#define TEXT_PAGE_STATIONERY "Stationery"
#define TEXT_PAGE_CUSTOM_ICON "Custom icon"
#define TEXT_PAGE_INITED "Inited"
#define TEXT_PAGE_SHARED "Shared"

#endif
