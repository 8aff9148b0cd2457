// The window with what a resource contains: its dump, and its picture or its text where it is one.
#ifndef TIDEWELL_RESOURCES_CONTENTS_DIALOG_H
#define TIDEWELL_RESOURCES_CONTENTS_DIALOG_H

#include "resources/picture.h"
#include "resources/resource_tree.h"

namespace tidewell {

struct ContentsRequest {
    uint32_t fullLength;  // of the resource's data, in bytes
    const char* hexText;
    uint32_t shownLength;  // of the data that the dump shows, in bytes
    TypeEntry type;
    char label[kNodeLabelCapacity];
    const Picture* picture;  // may be empty
    const char* text;        // null for none
};

// The procedure of the dialog IDD_CONTENTS, which begins with a pointer to a ContentsRequest that outlives
// it.
INT_PTR CALLBACK ContentsProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace tidewell

#endif
