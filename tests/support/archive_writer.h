// MacBinary and BinHex 4.0 files for tests and fuzzers, written from the formats and not from their readers.
#ifndef TIDEWELL_TESTS_SUPPORT_ARCHIVE_WRITER_H
#define TIDEWELL_TESTS_SUPPORT_ARCHIVE_WRITER_H

#include "support/test_pc.h"

#include <optional>
#include <string>

// CRC-16/XMODEM of bytes, bit by bit.
uint16_t crcOf(const uint8_t* bytes, size_t count);
uint32_t loadBig(const void* bytes, size_t offset, size_t size = 4);
void storeBig(Bytes& bytes, size_t offset, size_t size, uint32_t value);
void append(Bytes& to, const Bytes& bytes);
void appendBig(Bytes& to, size_t size, size_t value);

struct MacBinaryFile {
    MacFile file = {};
    Bytes name = bytesOf("Test");
    uint8_t writerVersion = 0;
    uint8_t readerVersion = 0;
    uint16_t secondaryHeader = 0;  // its length; it is filled with 0xEE
    bool withCrc = true;
};

Bytes macBinaryFile(const MacBinaryFile& file);
// Sets the CRC that belongs to the first 124 bytes.
void setMacBinaryCrc(Bytes& header);

struct BinHexFile {
    MacFile file = {};
    Bytes name = bytesOf("Test");
    // What the header claims, when that is not the truth.
    std::optional<uint32_t> claimedData = {};
    std::optional<uint32_t> claimedResource = {};
};

constexpr char kBinHexMarker[] = "(This file must be converted with BinHex 4.0)";
constexpr char kJapaneseBinHexMarker[] =
    "\x81\x69\x82\xB1\x82\xCC\x83\x74\x83\x40\x83\x43\x83\x8B\x82\xCD BinHex4.0 \x82\xC5\x95\xCF\x8A\xB7"
    "\x82\xB3\x82\xEA\x82\xE9\x95\x4B\x97\x76\x82\xAA\x82\xA0\x82\xE8\x82\xDC\x82\xB7\x81\x42\x81\x6A";
constexpr char kBinHexAlphabet[] = "!\"#$%&'()*+,-012345689@ABCDEFGHIJKLMNPQRSTUVXYZ[`abcdefhijklmpqr";
constexpr uint8_t kBinHexRun = 0x90;

// The sections with their CRCs, before run lengths.
Bytes binHexSections(const BinHexFile& file);
// With its runs; a lone 0x90 becomes 0x90 0x00.
Bytes binHexRuns(const Bytes& sections);
// Six bits a character between colons, in lines of 64.
std::string binHexText(const Bytes& runs);
// Behind the marker, a file of these sections.
Bytes binHexFile(const Bytes& sections);
inline Bytes binHexFile(const BinHexFile& file) {
    return binHexFile(binHexSections(file));
}

#endif
