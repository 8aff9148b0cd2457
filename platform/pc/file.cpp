#include "pc/file.h"

#include <windows.h>

namespace pc {

Error File::read(uint64_t, void*, size_t, size_t& got) {
    got = 0;
    return ERROR_INVALID_FUNCTION;
}

Error File::write(uint64_t, const void*, size_t) {
    return ERROR_INVALID_FUNCTION;
}

Error File::size(uint64_t&) {
    return ERROR_INVALID_FUNCTION;
}

Error File::setSize(uint64_t) {
    return ERROR_INVALID_FUNCTION;
}

Error File::flush() {
    return ERROR_INVALID_FUNCTION;
}

Error File::control(uint32_t, std::span<const uint8_t>, std::span<uint8_t>, size_t& returned) {
    returned = 0;
    return ERROR_INVALID_FUNCTION;
}

}  // namespace pc
