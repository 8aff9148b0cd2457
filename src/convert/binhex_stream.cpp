#include "convert/binhex_stream.h"

#include "convert/macbinary_crc.h"

#include <cstring>

namespace tidewell {

namespace {

constexpr uint8_t kRunMarker = 0x90;
constexpr uint64_t kLongestRun = 255;

// So much is expanded before its CRC is taken, while the processor still has it at hand.
constexpr size_t kChunk = size_t{16} * 1024;

size_t smaller(size_t a, size_t b) {
    return a < b ? a : b;
}

// The marker stands at the stream's next byte.
ErrorCode readRun(BinHexStream& stream, uint8_t*& out) {
    if (stream.end - stream.next < 2) return ERROR_INVALID_DATA;
    const uint8_t count = stream.next[1];
    stream.next += 2;
    if (count == 0) {
        stream.last = kRunMarker;
        stream.anyProduced = true;
        *out++ = kRunMarker;
        return 0;
    }
    if (!stream.anyProduced) return ERROR_INVALID_DATA;
    stream.runLeft = count - 1u;
    return 0;
}

void copyLiterals(BinHexStream& stream, uint8_t*& out, size_t limit) {
    const void* const marker = std::memchr(stream.next, kRunMarker, limit);
    const size_t length =
        marker != nullptr ? static_cast<size_t>(static_cast<const uint8_t*>(marker) - stream.next) : limit;
    if (length == 0) return;
    std::memcpy(out, stream.next, length);
    stream.next += length;
    stream.last = stream.next[-1];
    stream.anyProduced = true;
    out += length;
}

ErrorCode expand(BinHexStream& stream, uint8_t* out, size_t count) {
    uint8_t* const end = out + count;
    while (out != end) {
        const auto wanted = static_cast<size_t>(end - out);
        if (stream.runLeft != 0) {
            const size_t copies = smaller(stream.runLeft, wanted);
            std::memset(out, stream.last, copies);
            out += copies;
            stream.runLeft -= static_cast<uint32_t>(copies);
            continue;
        }
        const auto left = static_cast<size_t>(stream.end - stream.next);
        if (left == 0) return ERROR_HANDLE_EOF;
        if (*stream.next == kRunMarker) {
            if (const ErrorCode error = readRun(stream, out)) return error;
        } else {
            copyLiterals(stream, out, smaller(left, wanted));
        }
    }
    return 0;
}

}  // namespace

ErrorCode ReadRunLength(BinHexStream& stream, void* out, size_t count, uint16_t* crc) {
    auto* to = static_cast<uint8_t*>(out);
    while (count != 0) {
        const size_t chunk = smaller(count, kChunk);
        if (const ErrorCode error = expand(stream, to, chunk)) return error;
        if (crc != nullptr) *crc = ContinueCrc(*crc, to, chunk);
        to += chunk;
        count -= chunk;
    }
    return 0;
}

bool CouldExpandTo(const BinHexStream& stream, uint64_t count) {
    const auto left = static_cast<uint64_t>(stream.end - stream.next);
    return count <= stream.runLeft + (left + 1) / 2 * kLongestRun;
}

}  // namespace tidewell
