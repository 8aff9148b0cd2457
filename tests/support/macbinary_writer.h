// MacBinary files for tests, byte by byte.
#ifndef TIDEWELL_TESTS_SUPPORT_MACBINARY_WRITER_H
#define TIDEWELL_TESTS_SUPPORT_MACBINARY_WRITER_H

#include "support/test_pc.h"

struct MacBinaryFile {
    Bytes name = bytesOf("Test");
    MacFile file = {};
    uint8_t writerVersion = 0;
    uint8_t readerVersion = 0;
    uint16_t secondaryHeader = 0;  // its length; it is filled with 0xEE
    bool withCrc = true;
};

// The 128 bytes of the header.
Bytes macBinaryHeader(const MacBinaryFile& file);
// Sets the CRC that belongs to the first 124 bytes.
void setMacBinaryCrc(Bytes& header);
Bytes macBinaryFile(const MacBinaryFile& file);

#endif
