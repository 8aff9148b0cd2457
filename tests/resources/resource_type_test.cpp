#include "resources/resource_type.h"

#include "res/resource.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>
#include <fstream>
#include <map>
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
    if (length != 0) CHECK(text.find('\0') == length);
    return text.substr(0, length);
}

std::string codeText(const std::string& code) {
    char text[kTypeCodeCapacity + 1];
    text[kTypeCodeCapacity] = '#';
    FormatTypeCode(typeOf(code), text);
    CHECK(text[kTypeCodeCapacity] == '#');
    return text;
}

// Of the resource script: each text by the type in its comment.
std::map<std::string, std::string> scriptedTexts() {
    std::ifstream script(TIDEWELL_TYPE_STRINGS);
    const std::regex row("    (\\d+) \"(.*)\"  // '(.{4})'\r?");
    std::map<std::string, std::string> texts;
    int next = IDS_FIRST_RESOURCE_TYPE;
    for (std::string line; std::getline(script, line);) {
        std::smatch parts;
        if (!std::regex_match(line, parts, row)) continue;
        CHECK(parts[1] == std::to_string(next++));
        texts[parts[3]] = parts[2];
    }
    return texts;
}

}  // namespace

TEST_CASE("Every known type is described by the string that is made for it") {
    TestPc pc;
    pc.setCodePage(pc::kCodePageUtf8);  // that of the script
    const auto texts = scriptedTexts();
    CHECK(texts.size() == 102);
    for (const auto& [code, text] : texts)
        CHECK(described(code) == text);
}

TEST_CASE("A type's description") {
    TestPc pc;
    const struct {
        std::string code, text;
    } cases[] = {
        {"DITL", "Item list in a dialog box or an alert box"},
        {"dITL", "'dITL' resource"},
        {"FONT", "Bitmapped font"},
        {"NFNT", "Bitmapped font"},
        {"CDEV", "Control device function for control panel"},
        {"cdev", "Control device code"},
        {"STR ", "String"},
        {std::string("STR\0", 4), "'STR' resource"},
        {"FMTR", "3\xBD floppy formatting code"},
        {"%1%0", "'%1%0' resource"},
        {"\x01\x02\x03\x04", "'($04030201)' resource"},
    };
    for (const auto& test : cases)
        CHECK(described(test.code) == test.text);
}

TEST_CASE("A description takes no more room than there is: a known one is cut, another is none") {
    TestPc pc;
    const struct {
        const char* code;
        DWORD size;
        const char* text;
    } cases[] = {{"snd ", 6, "Sound"},
                 {"snd ", 5, "Soun"},
                 {"snd ", 1, ""},
                 {"snd ", 0, ""},
                 {"abcd", 0, ""},
                 {"abcd", 15, ""},
                 {"abcd", 16, "'abcd' resource"}};
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
