#include "support/binhex_reference.h"

#include <algorithm>
#include <cstring>

namespace {

const std::string kBlanks = "\t\n\r ";

size_t textStartIn(const std::string& file) {
    size_t best = std::string::npos;
    for (const std::string marker : {kBinHexMarker, kJapaneseBinHexMarker}) {
        const size_t at = file.find(marker);
        if (at != std::string::npos) best = std::min(best, at + marker.size());
    }
    return best == std::string::npos ? best : file.find_first_not_of(kBlanks, best);
}

}  // namespace

Bytes decodedBinHex(const Bytes& file, uint32_t& error) {
    const std::string text(file.begin(), file.end());
    size_t at = textStartIn(text);
    error = ERROR_INVALID_DATA;
    if (at == std::string::npos || text[at] != ':') return {};
    Bytes decoded;
    size_t characters = 0;
    error = ERROR_HANDLE_EOF;
    while (++at < text.size()) {
        if (kBlanks.find(text[at]) != std::string::npos) continue;
        const size_t value = std::string(kBinHexAlphabet).find(text[at]);
        if (value == std::string::npos) {
            error = text[at] == ':' ? 0 : ERROR_INVALID_DATA;
            break;
        }
        // Each character but a group's last begins a byte; each but its first ends one.
        const size_t place = characters++ % 4;
        if (place != 0) decoded.back() |= static_cast<uint8_t>(value >> (6 - 2 * place));
        if (place != 3) decoded.push_back(static_cast<uint8_t>(value << (2 + 2 * place)));
    }
    return decoded;
}

Bytes expandedBinHex(const Bytes& decoded, size_t most, uint32_t& error) {
    Bytes expanded;
    error = 0;
    for (size_t i = 0; expanded.size() < most; ++i) {
        if (i == decoded.size()) {
            error = ERROR_HANDLE_EOF;
            break;
        }
        if (decoded[i] != kBinHexRun) {
            expanded.push_back(decoded[i]);
            continue;
        }
        ++i;
        if (i == decoded.size() || (decoded[i] != 0 && expanded.empty())) {
            error = ERROR_INVALID_DATA;
            break;
        }
        if (decoded[i] == 0) {
            expanded.push_back(kBinHexRun);
        } else {
            expanded.insert(expanded.end(), decoded[i] - size_t{1}, expanded.back());
        }
    }
    if (expanded.size() > most) expanded.resize(most);
    return expanded;
}

namespace {

// The sections of a stream, one after the other.
class Sections {
  public:
    explicit Sections(const Bytes& decoded) : all_(expandedBinHex(decoded, SIZE_MAX, atEnd_)) {}

    uint32_t read(size_t size, Bytes& out) {
        if (size > all_.size() - at_) return atEnd_;
        const auto from = all_.begin() + static_cast<std::ptrdiff_t>(at_);
        out.assign(from, from + static_cast<std::ptrdiff_t>(size));
        at_ += size;
        return 0;
    }
    // The CRC of what was read since the last section's end.
    uint32_t end() {
        const uint16_t crc = crcOf(all_.data() + start_, at_ - start_);
        Bytes stored;
        if (const uint32_t error = read(2, stored)) return error;
        start_ = at_;
        return loadBig(stored.data(), 0, 2) == crc ? 0 : ERROR_CRC;
    }

  private:
    uint32_t atEnd_ = 0;
    Bytes all_;
    size_t start_ = 0;
    size_t at_ = 0;
};

}  // namespace

BinHexAnswer answerToBinHex(const Bytes& file, bool keepsResource) {
    BinHexAnswer answer;
    Sections sections(decodedBinHex(file, answer.error));
    Bytes length, name, fields;
    if (answer.error == 0) answer.error = sections.read(1, length);
    if (answer.error == 0) answer.error = sections.read(length[0], name);
    if (answer.error == 0) answer.error = sections.read(19, fields);
    if (answer.error == 0) answer.error = sections.end();
    if (answer.error == 0 && name.empty()) answer.error = ERROR_INVALID_DATA;
    if (answer.error != 0) return answer;
    answer.headerWhole = true;
    answer.name.assign(name.begin(), name.end());
    answer.error = sections.read(loadBig(fields.data(), 11), answer.data);
    if (answer.error == 0) answer.error = sections.end();
    if (answer.error != 0 || !keepsResource) return answer;
    answer.error = sections.read(loadBig(fields.data(), 15), answer.resource);
    if (answer.error == 0) answer.error = sections.end();
    return answer;
}
