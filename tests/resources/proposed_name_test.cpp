// The names that a save dialog proposes.
#include "resources/proposed_name.h"

#include "resources/fork_file.h"
#include "support/resource_fork_writer.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

std::string forResource(const std::string& file, const char* type, const char* name, int16_t id = 0) {
    char proposal[kPathCapacity];
    ProposeResourceName(file.c_str(), typeOf(type), name, id, proposal);
    return proposal;
}

std::string forFork(const std::string& file) {
    char proposal[kPathCapacity];
    ProposeForkName(file.c_str(), proposal);
    return proposal;
}

std::string fileOf(const std::string& forkPath) {
    char path[kPathCapacity];
    GetFileOfFork(forkPath.c_str(), path);
    return path;
}

}  // namespace

TEST_CASE("A proposed name tells the file and the resource, and is one that Windows takes") {
    TestPc pc;
    CHECK(forResource("Letter.txt", "STR ", nullptr, 128) == "Letter.txt - resource STR  00128");
    CHECK(forResource("Letter", "STR ", nullptr, 0) == "Letter - resource STR  00000");
    CHECK(forResource("Letter", "STR ", nullptr, -128) == "Letter - resource STR  -0128");
    CHECK(forResource("Letter", "STR ", nullptr, -32768) == "Letter - resource STR  -32768");
    CHECK(forResource("Letter", "a/b:", "Read\r<me>?") == "Letter - resource a_b_Read__me__");
    CHECK(forResource("Letter", "\x01\x02\x03\x04", "x. ") == "Letter - resource ($04030201)x");
    // Of long names each keeps a part, and what tells the resource stays.
    CHECK(forResource(std::string(250, 'x'), "STR ", nullptr, 5) ==
          std::string(232, 'x') + " - resource STR  00005");
    const std::string both = forResource(std::string(250, 'x'), "STR ", std::string(255, 'y').c_str());
    CHECK(both == std::string(85, 'x') + " - resource STR " + std::string(153, 'y'));
    CHECK(forFork("a.b.txt") == "a_b_txt");
    CHECK(forFork("con.txt") == "con_txt");
    pc.setCodePage(932);
    // A second byte that is no character of its own; and no half of one where the name is cut.
    CHECK(forFork("\x83\x5C.x") == "\x83\x5C_x");
    const std::string cut = forResource(std::string(231, 'x') + "\x83\x5C\x83\x5C", "STR ", nullptr, 5);
    CHECK(cut == std::string(231, 'x') + " - resource STR  00005");
}

TEST_CASE("The file of a fork is found by the fork's path") {
    TestPc pc;
    CHECK(fileOf("M:\\a\\{4dd19183-ACE2-11cf-BBF2-444553540000}") == "M:\\a");
    CHECK(fileOf("{4DD19183-ACE2-11CF-BBF2-444553540000}") == "{4DD19183-ACE2-11CF-BBF2-444553540000}");
    CHECK(fileOf("N:\\a:afp_resource") == "N:\\a");
    for (const char* const none : {"N:\\a:AFP_Resources", "N:\\AFP_Resource", "M:\\a", ""})
        CHECK(fileOf(none) == none);
}
