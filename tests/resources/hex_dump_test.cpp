#include "resources/hex_dump.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace tidewell;

namespace {

std::string dumpOf(const Bytes& data) {
    TestPc pc;
    size_t length = 0;
    PageBuffer text = HexDumpAlloc(data.data(), static_cast<uint32_t>(data.size()), &length);
    REQUIRE(text);
    const auto* const characters = reinterpret_cast<const char*>(text.data());
    const auto capacity = static_cast<size_t>(HexDumpCapacity(data.size()));
    REQUIRE(length < capacity);
    // Nothing but the text was written.
    CHECK(std::all_of(characters + length, characters + capacity, [](char c) { return c == '\0'; }));
    return {characters, length};
}

}  // namespace

TEST_CASE("A dump has offsets, digits in groups of four, and the characters that are ASCII") {
    const struct {
        Bytes data;
        std::string text;
    } cases[] = {
        {{}, "0000:"},
        {{0x7F}, "0000: 7f" + std::string(35, ' ') + "."},
        {bytesOf("\t !09AZaz~\xA9"), "0000: 09202130 39415a61 7a7ea9             . !09AZaz~."},
        {Bytes(16, 0x1F), "0000: 1f1f1f1f 1f1f1f1f 1f1f1f1f 1f1f1f1f  ................"},
        {bytesOf("0123456789:;<=>?@"),
         "0000: 30313233 34353637 38393a3b 3c3d3e3f  0123456789:;<=>?\r\n"
         "0010: 40                                   @"},
    };
    for (const auto& test : cases)
        CHECK(dumpOf(test.data) == test.text);
}

TEST_CASE("Offsets have four digits and begin again") {
    const std::string text = dumpOf(Bytes(0x10011, 'x'));
    for (const unsigned line : {0xFFu, 0x100u, 0xABCu, 0xFFFu, 0x1000u, 0x1001u}) {
        char offset[8];
        std::snprintf(offset, sizeof offset, "%04x: ", line * 16 & 0xFFFF);
        CHECK(text.substr(size_t{61} * line, 6) == offset);
    }
}

TEST_CASE("A dump that finds no room is not enough memory") {
    TestPc pc;
    pc.faults().failMemory(1);
    size_t length = 7;
    CHECK(!HexDumpAlloc(nullptr, 0, &length));
    CHECK(GetLastError() == ERROR_NOT_ENOUGH_MEMORY);
    CHECK(length == 7);
    CHECK(HexDumpCapacity(0xFFFFFFFF) == 0xFFFFFFFull * 61 + 62);
}
