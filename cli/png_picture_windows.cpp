// There is no libpng.
#include "png_picture.h"

namespace cli {

bool canMakePng() {
    return false;
}

std::string pngOf(const tidewell::Picture& /*picture*/) {
    return {};
}

}  // namespace cli
