#include "resources/resource_text.h"

#include "support/resource_fork_writer.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

// "(none)" for a resource without text.
std::string textOf(const std::string& code, const std::string& data) {
    const Bytes bytes = bytesOf(data);  // as long as the data, so that a byte too many is noticed
    const PageBuffer text = ReadResourceText(typeOf(code), bytes.data(), static_cast<uint32_t>(bytes.size()));
    return text ? reinterpret_cast<const char*>(text.data()) : "(none)";
}

std::string listOf(size_t count, const std::string& each) {
    std::string list = {static_cast<char>(count >> 8), static_cast<char>(count)};
    for (size_t i = 0; i < count; ++i)
        list += static_cast<char>(each.size()) + each;
    return list;
}

}  // namespace

TEST_CASE("Texts and strings of the Mac as Windows shows them") {
    TestPc pc;
    const struct {
        std::string type, data, text;
        unsigned codePage = 1252;
    } rows[] = {
        {"TEXT", "one\rtwo\nthree\r\n\r\r\n\n.", "one\r\ntwo\r\nthree\r\n\r\n\r\n\r\n."},
        {"TEXT", "\nfirst\r", "\r\nfirst\r\n"},
        {"TEXT", std::string("a\0b\tc\x7F", 6), "a b\tc\x7F"},
        {"TEXT", "Caf\x8E \xA5 \xDB \xFF\xAD", "Caf\xE9 \x95 \x80 ??"},
        {"TEXT", "\x80\xA1\xB4", "\xC3\x84\xC2\xB0\xC2\xA5", pc::kCodePageUtf8},
        {"TEXT", "\xA1.", "\x81\x8B.", 932},
        {"TEXT", "", "(none)"},
        {"STR ", "\3abcd", "abc"},
        {"STR ", std::string(1, '\0') + "abc", "(none)"},
        {"STR#", std::string("\0\3\2a\r\0\1c", 8), "a\r\n\r\n\r\nc"},
        {"STR#", std::string("\0\0\1a", 4), "(none)"},
        // Cut: before a length, or before all of its characters or of its count.
        {"STR ", "\4abc", "(none)"},
        {"STR ", "", "(none)"},
        {"STR#", std::string(1, '\0'), "(none)"},
        {"STR#", std::string("\0\2\1a", 4), "(none)"},
        {"STR#", std::string("\0\2\1a\2b", 6), "(none)"},
        {"TEXX", "abc", "(none)"},
    };
    for (const auto& row : rows) {
        pc.setCodePage(row.codePage);
        CHECK_MESSAGE(textOf(row.type, row.data) == row.text, row.data);
    }
    pc.faults().failAlways("WideCharToMultiByte", "", ERROR_INVALID_PARAMETER);
    CHECK(textOf("TEXT", "Caf\x8E!") == "Caf?!");
    pc.faults().failMemory(1);
    CHECK(textOf("TEXT", "abc") == "(none)");
    CHECK(pc.nothingHeld());
}

TEST_CASE("A text that an edit control does not hold is cut after a whole character") {
    TestPc pc;
    const std::string full(32766, 'a');
    const std::string almost(32765, 'a');
    CHECK(textOf("TEXT", full) == full);
    CHECK(textOf("TEXT", full + "b") == full);
    CHECK(textOf("TEXT", almost + "\rb") == almost);
    // The rest of a list need not be there.
    for (const std::string& each : {std::string(), std::string(255, 's'), std::string(255, '\r')}) {
        const std::string list = listOf(65535, each);
        CHECK(textOf("STR#", list.substr(0, kMostTextData)) == textOf("STR#", list));
    }
    pc.setCodePage(pc::kCodePageUtf8);
    CHECK(textOf("TEXT", almost + "\x8Ez") == almost);
    CHECK(textOf("TEXT", almost.substr(1) + "\x8E").size() == 32766);
}
