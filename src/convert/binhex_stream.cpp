#include "convert/binhex_stream.h"

#include "base/vectors.h"
#include "convert/macbinary_crc.h"

#include <bit>
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
        *out++ = kRunMarker;
        return 0;
    }
    if (stream.last < 0) return ERROR_INVALID_DATA;
    stream.runLeft = count - 1u;
    return 0;
}

#if TIDEWELL_VECTORS

// Copies whole vectors while `most` bytes have them, and what is behind the marker in the last, which will be
// written over. Returns how many bytes before the marker were copied.
TIDEWELL_VECTOR_FUNCTION size_t copyByVector(const uint8_t* from, uint8_t* to, size_t most) {
    size_t copied = 0;
    for (; most - copied >= kVector; copied += kVector) {
        const __m256i bytes = LoadVector(from + copied);
        StoreVector(to + copied, bytes);
        const __m256i markers = _mm256_cmpeq_epi8(bytes, _mm256_set1_epi8(static_cast<char>(kRunMarker)));
        const auto found = static_cast<unsigned>(_mm256_movemask_epi8(markers));
        if (found != 0) return copied + static_cast<unsigned>(std::countr_zero(found));
    }
    return copied;
}

#endif

// Copies up to `most` bytes, those before the first marker. Returns how many.
size_t copyBeforeMarker(const uint8_t* from, uint8_t* to, size_t most) {
    size_t copied = 0;
#if TIDEWELL_VECTORS
    if (HasVectorInstructions()) copied = copyByVector(from, to, most);
#endif
    for (; copied != most && from[copied] != kRunMarker; ++copied)
        to[copied] = from[copied];
    return copied;
}

// Copies the bytes before the next marker, as many as are decoded and wanted.
void copyLiterals(BinHexStream& stream, uint8_t*& out, size_t wanted) {
    BinHexText& text = stream.text;
    const size_t most = smaller(wanted, static_cast<size_t>(text.end - text.next));
    const size_t length = copyBeforeMarker(text.next, out, most);
    if (length == 0) return;
    text.next += length;
    stream.last = text.next[-1];
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
