#include "png_picture.h"

#include <png.h>

namespace cli {

bool canMakePng() {
    return true;
}

std::string pngOf(const tidewell::Picture& picture) {
    static_assert(sizeof(tidewell::Pixel) == PNG_IMAGE_PIXEL_SIZE(PNG_FORMAT_RGBA));
    png_image image = {};
    image.version = PNG_IMAGE_VERSION;
    image.width = picture.width;
    image.height = picture.height;
    image.format = PNG_FORMAT_RGBA;
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    std::string bytes(size, '\0');
    const bool made =
        png_image_write_to_memory(&image, bytes.data(), &size, 0, picture.pixels(), 0, nullptr) != 0;
    bytes.resize(made ? size : 0);
    return bytes;
}

}  // namespace cli
