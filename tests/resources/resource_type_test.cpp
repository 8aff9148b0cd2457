#include "resources/resource_type.h"

#include "res/resource.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>
#include <fstream>
#include <regex>

using namespace tidewell;

namespace {

ResourceType typeOf(const std::string& code) {
    ResourceType type;
    REQUIRE(code.size() == sizeof type.bytes);
    std::memcpy(type.bytes, code.data(), sizeof type.bytes);
    return type;
}

std::string described(const std::string& code, DWORD size = 300) {
    std::string text(size + 1, '#');
    const DWORD length = GetTypeDescription(typeOf(code), text.data(), size);
    CHECK(text[size] == '#');
    return text.substr(0, length);
}

std::string codeText(const std::string& code) {
    char text[kTypeCodeCapacity];
    FormatTypeCode(typeOf(code), text);
    return text;
}

}  // namespace

TEST_CASE("Every known type is described by the string that is made for it") {
    TestPc pc;
    std::ifstream script(TIDEWELL_TYPE_STRINGS);
    const std::regex row("    (\\d+) \"(.*)\"  // '(.{4})'\r?");
    int next = IDS_FIRST_RESOURCE_TYPE;
    for (std::string line; std::getline(script, line);) {
        std::erase(line, '\xC2');  // from UTF-8 to the code page
        std::smatch parts;
        if (!std::regex_match(line, parts, row)) continue;
        CHECK(parts[1] == std::to_string(next++));
        CHECK(described(parts[3]) == parts[2]);
    }
    CHECK(next == IDS_LAST_RESOURCE_TYPE + 1);
}

TEST_CASE("A type's description takes no more room than there is: a known one is cut, another is none") {
    TestPc pc;
    const struct {
        std::string code, text;
        DWORD size = 100;
    } cases[] = {
        {"DITL", "Item list in a dialog box or an alert box"},
        {"dITL", "'dITL' resource"},
        {"STR ", "String"},
        {std::string("STR\0", 4), "'STR' resource"},
        {"%1%0", "'%1%0' resource"},
        {"\x01\x02\x03\x04", "'($04030201)' resource"},
        {"snd ", "Sound", 6},
        {"snd ", "Soun", 5},
        {"snd ", "", 1},
        {"snd ", "", 0},
        {"abcd", "'abcd' resource", 16},
        {"abcd", "", 15},
        {"abcd", "", 0},
    };
    for (const auto& test : cases)
        CHECK(described(test.code, test.size) == test.text);
}

TEST_CASE("A type's code is its characters, or a number when they are not all ASCII") {
    const struct {
        std::string code, text;
    } cases[] = {
        {"ICN#", "ICN#"},
        {" ~!Z", " ~!Z"},
        {"\t\n\v\f", "\t\n\v\f"},
        {std::string("a\r\0b", 4), "a\r"},
        {"\xA9"
         "abc",
         "($636261a9)"},
        {"abc\x80", "($80636261)"},
        {"a\bcd", "($64630861)"},
        {"ab\x0E"
         "d",
         "($640e6261)"},
        {"ab\x1F"
         "d",
         "($641f6261)"},
        {"abc\x7F", "($7f636261)"},
    };
    for (const auto& test : cases)
        CHECK(codeText(test.code) == test.text);
}
