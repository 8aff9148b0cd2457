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

// Makes sure of a next byte; `atEnd` at the text's end.
ErrorCode needByte(BinHexText& text, ErrorCode atEnd) {
    if (text.next != text.end) return 0;
    const ErrorCode error = DecodeBinHexText(text);
    if (error != 0) return error;
    return text.next != text.end ? 0 : atEnd;
}

// The marker has been taken.
ErrorCode readRun(BinHexStream& stream, uint8_t*& out) {
    const ErrorCode error = needByte(stream.text, ERROR_INVALID_DATA);
    if (error != 0) return error;
    const uint8_t count = *stream.text.next++;
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

// Copies the bytes before the next marker, as many as are decoded and wanted.
void copyLiterals(BinHexStream& stream, uint8_t*& out, size_t wanted) {
    BinHexText& text = stream.text;
    const size_t most = smaller(wanted, static_cast<size_t>(text.end - text.next));
    const void* const marker = std::memchr(text.next, kRunMarker, most);
    const size_t length =
        marker != nullptr ? static_cast<size_t>(static_cast<const uint8_t*>(marker) - text.next) : most;
    if (length == 0) return;
    std::memcpy(out, text.next, length);
    text.next += length;
    stream.last = text.next[-1];
    stream.anyProduced = true;
    out += length;
}

void copyRun(BinHexStream& stream, uint8_t*& out, size_t wanted) {
    const size_t copies = smaller(stream.runLeft, wanted);
    std::memset(out, stream.last, copies);
    out += copies;
    stream.runLeft -= static_cast<uint32_t>(copies);
}

ErrorCode expand(BinHexStream& stream, uint8_t* out, size_t count) {
    uint8_t* const end = out + count;
    while (out != end) {
        const auto wanted = static_cast<size_t>(end - out);
        if (stream.runLeft != 0) {
            copyRun(stream, out, wanted);
            continue;
        }
        ErrorCode error = needByte(stream.text, ERROR_HANDLE_EOF);
        if (error != 0) return error;
        if (*stream.text.next != kRunMarker) {
            copyLiterals(stream, out, wanted);
            continue;
        }
        ++stream.text.next;
        error = readRun(stream, out);
        if (error != 0) return error;
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
    const uint64_t left = static_cast<uint64_t>(stream.text.end - stream.text.next) + stream.text.undecoded;
    return count <= stream.runLeft + (left + 1) / 2 * kLongestRun;
}

}  // namespace tidewell
