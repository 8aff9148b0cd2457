#include "resources/resource_type.h"

#include "res/resource.h"
#include "support/resource_fork_writer.h"

#include <doctest/doctest.h>

#include <fstream>
#include <regex>

using namespace tidewell;

namespace {

std::string described(const std::string& code, DWORD size = 300) {
    std::string text(size + 1, '#');
    const DWORD length = GetTypeDescription(typeOf(code), text.data(), size);
    CHECK(text[size] == '#');
    return text.substr(0, length);
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

TEST_CASE("A description tells a known type, or the code, and takes no more room than there is") {
    TestPc pc;
    const struct {
        std::string code, text;
        DWORD size = 100;
    } cases[] = {
        {"DITL", "Item list in a dialog box or an alert box"},
        {std::string("STR\0", 4), "'STR' resource"},
        {std::string("\t\r\0b", 4), "'\t\r' resource"},
        {"%1%0", "'%1%0' resource"},
        {" ~!Z", "' ~!Z' resource"},
        // A number, unless all are ASCII.
        {"a\xA9zz", "'($7a7aa961)' resource"},
        {"zzz\x7F", "'($7f7a7a7a)' resource"},
        {"z\bzz", "'($7a7a087a)' resource"},
        {"z\x0Ezz", "'($7a7a0e7a)' resource"},
        {"\x1Fzzz", "'($7a7a7a1f)' resource"},
        {"snd ", "Sound", 6},
        {"snd ", "Soun", 5},
        {"snd ", "", 0},
        {"abcd", "'abcd' resource", 16},
        {"abcd", "", 15},
    };
    for (const auto& test : cases)
        CHECK(described(test.code, test.size) == test.text);
}
