// Pictures as PNG files.
#ifndef TIDEWELL_CLI_PNG_PICTURE_H
#define TIDEWELL_CLI_PNG_PICTURE_H

#include "resources/picture.h"

#include <string>

namespace cli {

// Whether this build of the command can.
bool canMakePng();

// The bytes of the file; none when memory runs out.
std::string pngOf(const tidewell::Picture& picture);

}  // namespace cli

#endif
