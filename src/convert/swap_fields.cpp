#include "convert/swap_fields.h"

#include <cstddef>
#include <cstring>

namespace tidewell {

void SwapFields(const void* record, void* destination, const uint8_t* widths) {
    const auto* from = static_cast<const uint8_t*>(record);
    auto* to = static_cast<uint8_t*>(destination);
    for (; *widths != 0; ++widths) {
        const size_t width = *widths;
        uint8_t field[4];
        if (width == 2 || width == 4) {
            for (size_t i = 0; i < width; ++i)
                field[width - 1 - i] = from[i];
            std::memcpy(to, field, width);
        } else if (to != from) {
            std::memcpy(to, from, width);
        }
        from += width;
        to += width;
    }
}

}  // namespace tidewell
