// Resource forks for tests and fuzzers, written from the format and not from its reader.
#ifndef TIDEWELL_TESTS_SUPPORT_RESOURCE_FORK_WRITER_H
#define TIDEWELL_TESTS_SUPPORT_RESOURCE_FORK_WRITER_H

#include "support/test_pc.h"

#include <optional>
#include <string>
#include <vector>

struct ForkResource {
    std::string type;  // four characters
    int16_t id = 0;
    std::optional<std::string> name = {};  // in the Mac character set
    uint8_t attributes = 0;
    Bytes data = {};
};

// Types, and the resources of a type, in the order of the list. The data area begins at 256, as in forks that
// the Mac writes. Names may take 32 KB. Throws where the format has no room: for types, names and all lists
// of references but the last of more than 64 KB, for data of more than 16 MB.
Bytes resourceForkOf(const std::vector<ForkResource>& resources);

#endif
