// Resource forks for tests, written from the format and not from its reader.
#ifndef TIDEWELL_TESTS_SUPPORT_RESOURCE_FORK_WRITER_H
#define TIDEWELL_TESTS_SUPPORT_RESOURCE_FORK_WRITER_H

#include "resources/resource_fork.h"
#include "support/test_pc.h"

#include <optional>
#include <string>
#include <vector>

// Of four characters.
tidewell::ResourceType typeOf(const std::string& code);

struct ForkResource {
    std::string type;  // four characters
    int16_t id = 0;
    std::optional<std::string> name = {};  // in the Mac character set
    uint8_t attributes = 0;
    Bytes data = {};
};

// In the order of the list, in which the resources of a type stand together. The data area begins at 256, as
// in forks that the Mac writes; the references are the fork's end. For as much as the format has room for: 64
// KB of types, names and all lists of references but the last, 32 KB of names, 16 MB of data.
Bytes resourceForkOf(const std::vector<ForkResource>& resources);

#endif
