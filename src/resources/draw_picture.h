// Pictures on the screen.
#ifndef TIDEWELL_RESOURCES_DRAW_PICTURE_H
#define TIDEWELL_RESOURCES_DRAW_PICTURE_H

#include "resources/picture.h"

namespace tidewell {

// Draws the picture at the top left of a control that its owner draws, on the colour of windows; nothing for
// an empty picture, and without memory.
void DrawPicture(const Picture& picture, const DRAWITEMSTRUCT& control);

}  // namespace tidewell

#endif
