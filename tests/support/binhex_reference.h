// What a BinHex 4.0 file holds, told byte by byte from the format and with all of it in memory: what readers
// are held against, and what mutators take files apart with.
#ifndef TIDEWELL_TESTS_SUPPORT_BINHEX_REFERENCE_H
#define TIDEWELL_TESTS_SUPPORT_BINHEX_REFERENCE_H

#include "support/archive_writer.h"

struct BinHexAnswer {
    uint32_t error = 0;
    bool headerWhole = false;  // nothing before the forks is wrong
    std::string name = {};
    Bytes data = {};
    Bytes resource = {};
};

// The answer for a volume that keeps resource forks, or for one that does not.
BinHexAnswer answerToBinHex(const Bytes& file, bool keepsResource = true);

// The bytes that the text stands for, as far as there is no error.
Bytes decodedBinHex(const Bytes& file, uint32_t& error);

// What they are once their runs are expanded, the first `most` of it; short when `error` is not 0.
Bytes expandedBinHex(const Bytes& decoded, size_t most, uint32_t& error);

#endif
