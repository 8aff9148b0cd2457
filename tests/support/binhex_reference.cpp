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
    for (size_t i = 0; error == 0 && expanded.size() < most; ++i) {
        if (i == decoded.size()) {
            error = ERROR_HANDLE_EOF;
        } else if (decoded[i] != kBinHexRun) {
            expanded.push_back(decoded[i]);
        } else if (++i == decoded.size() || (decoded[i] != 0 && expanded.empty())) {
            error = ERROR_INVALID_DATA;
        } else if (decoded[i] == 0) {
            expanded.push_back(kBinHexRun);
        } else {
            expanded.insert(expanded.end(), decoded[i] - size_t{1}, expanded.back());
        }
    }
    if (expanded.size() > most) expanded.resize(most);
    return expanded;
}

BinHexAnswer answerToBinHex(const Bytes& file, bool keepsResource) {
    BinHexAnswer answer;
    uint32_t atEnd = 0;
    const Bytes all = expandedBinHex(decodedBinHex(file, answer.error), SIZE_MAX, atEnd);
    size_t at = 0;
    // The next section, which its CRC follows.
    const auto read = [&](size_t size, Bytes& section) {
        const size_t left = all.size() - at;
        if (answer.error == 0 && (left < 2 || left - 2 < size)) answer.error = atEnd;
        if (answer.error != 0) return;
        section.assign(&all[at], &all[at] + size);
        at += size + 2;
        if (loadBig(all.data(), at - 2, 2) != crcOf(section.data(), size)) answer.error = ERROR_CRC;
    };
    constexpr size_t kFields = 19;
    Bytes header;
    read(1 + (all.empty() ? 0 : all[0]) + kFields, header);
    if (answer.error == 0 && header[0] == 0) answer.error = ERROR_INVALID_DATA;
    if (answer.error != 0) return answer;
    answer.headerWhole = true;
    answer.name.assign(header.begin() + 1, header.end() - kFields);
    read(loadBig(header.data(), header.size() - 8), answer.data);
    if (keepsResource) read(loadBig(header.data(), header.size() - 4), answer.resource);
    return answer;
}
