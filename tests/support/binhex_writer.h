// A BinHex 4.0 encoder for tests, written from the format and not from the decoder.
#ifndef TIDEWELL_TESTS_SUPPORT_BINHEX_WRITER_H
#define TIDEWELL_TESTS_SUPPORT_BINHEX_WRITER_H

#include "support/test_pc.h"

#include <string>

struct BinHexFile {
    Bytes name = bytesOf("Test");
    std::string type = "TEXT";
    std::string creator = "ttxt";
    uint16_t flags = 0x0100;
    Bytes data = {};
    Bytes resource = {};
    // What the header claims, when that is not the truth.
    bool lies = false;
    uint32_t claimedData = 0;
    uint32_t claimedResource = 0;
};

constexpr char kBinHexMarker[] = "(This file must be converted with BinHex 4.0)";

// The sections with their CRCs, before run lengths.
Bytes binHexSections(const BinHexFile& file);
// With its runs; a lone 0x90 becomes 0x90 0x00.
Bytes binHexRuns(const Bytes& sections);
// Six bits a character between colons, in lines of 64.
std::string binHexText(const Bytes& runs);
// All of it, with the marker.
Bytes binHexFile(const BinHexFile& file);

#endif
