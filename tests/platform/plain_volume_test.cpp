// The volumes that stand in for those of Windows, as far as the library and its tests rely on them.
#include "support/volume_files.h"

#include <doctest/doctest.h>

namespace {

struct PlainVolumes {
    MemoryFolder folder{"/Volume"};
    std::unique_ptr<pc::Volume> fat = pc::makeFatVolume(folder.host(), folder.path());
    std::unique_ptr<pc::Volume> ntfs = pc::makeNtfsVolume(folder.host(), folder.path());
};

}  // namespace

TEST_CASE_FIXTURE(PlainVolumes, "paths lead to files in any case, and never out of the volume") {
    folder.makeFolder("root/Sub");
    folder.write("secret", "1");
    for (const char* name : {"root/in", "root/locked"})
        folder.write(name, "2");
    folder.setWritable("root/locked", false);
    fat = pc::makeFatVolume(folder.host(), folder.path("root"));
    const struct {
        const char* path;
        uint32_t disposition;
        pc::Error error;
    } rows[] = {
        {"none", openExisting, 2},    {"Sub", openExisting, 5},        {"no\\none", createAlways, 3},
        {"in\\x", openExisting, 3},   {"..\\secret", openExisting, 2}, {"x/../../secret", openExisting, 2},
        {"a*", createAlways, 123},    {"a:b", createAlways, 123},      {"x|y\\a", createAlways, 123},
        {"a\x01", createAlways, 123}, {"locked", openExisting, 5},     {"locked", createAlways, 5},
    };
    for (const auto& row : rows)
        CHECK_MESSAGE(openError(*fat, row.path, row.disposition) == row.error, row.path);
    CHECK(fat->remove("locked") == 5);
    CHECK(contentsOf(*fat, "locked") + contentsOf(*fat, "..\\..\\.\\in") == "22");
    REQUIRE(writeFile(*fat, "SUB\\\u00C5rsrapport.TXT", "3") == 0);
    CHECK(contentsOf(*fat, "sub\\\u00E5RSRAPPORT.txt") == "3");
    CHECK(folder.names("root/Sub") == std::vector<std::string>{"\u00C5rsrapport.TXT"});
}

TEST_CASE_FIXTURE(PlainVolumes, "long names have 8.3 names in every component, taken once") {
    folder.makeFolder("Long folder");
    folder.write("Long folder/LONGNA~1.TXT", "taken");
    for (int i = 1; i <= 12; ++i)
        folder.write("Long folder/Long name " + std::to_string(i) + ".txt", std::to_string(i));
    CHECK(shortPathOf(*ntfs, "long folder\\long NAME 7.txt") == "LONGFO~1\\LONGNA~2.TXT");
    CHECK(shortPathOf(*ntfs, "LONGFO~1\\longna~2.txt") == "LONGFO~1\\LONGNA~2.TXT");
    CHECK(shortPathOf(*ntfs, "Long folder\\none") == "error 2");
    CHECK(contentsOf(*ntfs, "LONGFO~1\\LONGNA~1.TXT") == "taken");
    // An 8.3 name never asked for is found, too.
    CHECK(contentsOf(*ntfs, "LONGFO~1\\LONGN~10.TXT") == "5");
    const std::vector<std::string> rows[] = {{"readme.txt", "readme.txt"},
                                             {".profile", "PROFIL~1"},
                                             {"a+b=c.x[1]", "A_B_C~1.X_1"},
                                             {"archive.tar.gz", "ARCHIV~1.GZ"},
                                             {"\u00E9t\u00E9 long.txt", "\u00C9T\u00C9LON~1.TXT"}};
    for (const auto& row : rows) {
        folder.write(row[0], "1");
        CHECK(shortPathOf(*ntfs, row[0]) == row[1]);
    }
}

TEST_CASE_FIXTURE(PlainVolumes,
                  "streams go with the file that is created anew, unless the volume keeps them") {
    for (const std::string path : {"a", "a:one", "a:two", "a:ONE"})
        REQUIRE(writeFile(*ntfs, path, path) == 0);
    ntfs->setKeepsStreams(true);
    REQUIRE(openError(*ntfs, "A", createAlways) == 0);
    CHECK(contentsOf(*ntfs, "a") + contentsOf(*ntfs, "a:one") + contentsOf(*ntfs, "a:two") == "a:ONEa:two");
    REQUIRE(ntfs->remove("a:one") == 0);
    ntfs->setKeepsStreams(false);
    REQUIRE(openError(*ntfs, "A", createAlways) == 0);
    CHECK(folder.names() == std::vector<std::string>{"a"});
    REQUIRE(writeFile(*ntfs, "a:one", "1") == 0);
    REQUIRE(ntfs->remove("a") == 0);
    CHECK(folder.names().empty());
}
