#include "explanations.h"

namespace cli {

std::string explanationOf(tidewell::ErrorCode error) {
    switch (error) {
    case ERROR_INVALID_DATA: return "It is no MacBinary (.bin) or BinHex (.hqx) file, or it is damaged.";
    case ERROR_CRC: return "It is damaged: a checksum is wrong.";
    case ERROR_INSUFFICIENT_BUFFER: return "The path of the output folder is too long.";
    case ERROR_HANDLE_EOF: return "It is damaged: it ends too early.";
    default: return {};
    }
}

}  // namespace cli
