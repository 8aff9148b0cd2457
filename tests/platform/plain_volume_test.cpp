#include "support/temp_folder.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

#include <memory>

namespace {

struct PlainVolumes {
    TempFolder folder;
    std::unique_ptr<pc::Volume> fat = pc::makeFatVolume(folder.path());
    std::unique_ptr<pc::Volume> ntfs = pc::makeNtfsVolume(folder.path());
};

using Names = std::vector<std::string>;

}  // namespace

TEST_CASE_FIXTURE(PlainVolumes, "dispositions do what Win32 says, but leave truncating to the PC") {
    CHECK(std::string(fat->fileSystemName()) == "FAT");
    CHECK(openError(*fat, "a.txt") == 2);
    CHECK(openError(*fat, "a.txt", truncateExisting) == 2);
    CHECK(openError(*fat, "no\\a.txt", createAlways) == 3);
    CHECK(openError(*fat, "a.txt", 0) == 87);
    CHECK(openError(*fat, "a.txt", 6) == 87);

    pc::Opened opened;
    REQUIRE(openFile(*fat, "a.txt", createNew, opened) == 0);
    CHECK(opened.created);
    CHECK(folder.read("a.txt").empty());
    CHECK(opened.identity == identityOf(*fat, "a.txt"));
    REQUIRE(opened.file->write(3, "def", 3) == 0);
    CHECK(folder.read("a.txt") == std::string("\0\0\0def", 6));
    CHECK(openError(*fat, "a.txt", createNew) == 80);

    pc::OpenMode readOnly;
    readOnly.read = true;
    readOnly.disposition = createAlways;
    REQUIRE(fat->open("a.txt", readOnly, opened) == 0);
    CHECK_FALSE(opened.created);
    CHECK(folder.read("a.txt").size() == 6);
    CHECK(opened.file->setSize(0) == 0);
    CHECK(folder.read("a.txt").empty());
    CHECK(opened.file->write(uint64_t{1} << 63, "x", 1) == 223);
    CHECK(contentsOf(*fat, "a.txt").empty());
}

TEST_CASE_FIXTURE(PlainVolumes, "folders, and names no file can have, are refused") {
    folder.makeFolder("Sub");
    folder.write("Sub/a", "1");
    uint32_t bits = 0;
    CHECK(fat->attributes("sub\\", bits) == 0);
    CHECK(bits == 0x10);
    CHECK(fat->attributes("", bits) == 0);
    CHECK(bits == 0x10);
    CHECK(fat->attributes("Sub\\a", bits) == 0);
    CHECK(bits == 0x20);
    CHECK(openError(*fat, "Sub") == 5);
    CHECK(openError(*fat, "") == 5);
    CHECK(fat->remove("Sub") == 5);
    CHECK(fat->remove("b") == 2);
    pc::Opened opened;
    CHECK(fat->openForQuery("Sub", opened) == 0);
    CHECK(openError(*fat, "Sub\\a\\b") == 3);
    CHECK(openError(*fat, "Sub\\a\\") == 123);
    for (const char* name : {"a*", "a?", "a\"", "<a", "a>", "a|", "a:b", "a\x01", "x|y\\a"}) {
        CAPTURE(name);
        CHECK(openError(*fat, name, createAlways) == 123);
    }
    for (const char* name : {"a:", ":", "a:b:c", "a:b\\c", "Sub:s\\a", "a:b?"}) {
        CAPTURE(name);
        CHECK(openError(*ntfs, name, createAlways) == 123);
    }
    CHECK(folder.names() == Names{"Sub"});
}

TEST_CASE_FIXTURE(PlainVolumes, "no path leaves the volume") {
    folder.makeFolder("root");
    folder.write("secret", "1");
    folder.write("root/in", "2");
    const auto volume = pc::makeFatVolume(folder.path("root"));
    CHECK(openError(*volume, "..\\secret") == 2);
    CHECK(openError(*volume, "x/../../secret") == 2);
    CHECK(contentsOf(*volume, "..\\..\\.\\in") == "2");
    CHECK(contentsOf(*volume, "no\\..\\in") == "2");
}

TEST_CASE_FIXTURE(PlainVolumes, "letter case is kept and ignored") {
    REQUIRE(writeFile(*fat, "\u00C5rsrapport.TXT", "1") == 0);
    folder.makeFolder("Mappe");
    REQUIRE(writeFile(*fat, "MAPPE\\Inner", "2") == 0);
    CHECK(contentsOf(*fat, "\u00E5RSRAPPORT.txt") == "1");
    CHECK(contentsOf(*fat, "mappe\\inneR") == "2");
    CHECK(openError(*fat, "mappe\\INNER", createNew) == 80);
    CHECK(folder.names() == Names{"Mappe", "\u00C5rsrapport.TXT"});
    CHECK(folder.names("Mappe") == Names{"Inner"});
    CHECK(identityOf(*fat, "mappe\\inner") == identityOf(*fat, "Mappe\\Inner"));
    CHECK(shortPathOf(*fat, "mappe\\Inner") == "mappe\\Inner");
    CHECK(shortPathOf(*fat, "mappe\\other") == "error 2");
    REQUIRE(fat->remove("MAPPE\\INNER") == 0);
    CHECK(folder.names("Mappe").empty());
}

TEST_CASE_FIXTURE(PlainVolumes, "streams belong to their file") {
    CHECK(std::string(ntfs->fileSystemName()) == "NTFS");
    CHECK(openError(*ntfs, "a.txt:AFP_Resource") == 2);
    CHECK(folder.names().empty());
    REQUIRE(writeFile(*ntfs, "a.txt:AFP_AfpInfo", "info") == 0);
    CHECK(contentsOf(*ntfs, "a.txt").empty());
    CHECK(openError(*ntfs, "a.txt:AFP_Resource") == 2);
    REQUIRE(writeFile(*ntfs, "A.TXT:afp_resource", "fork") == 0);
    CHECK(contentsOf(*ntfs, "a.txt:AFP_Resource") == "fork");
    CHECK(identityOf(*ntfs, "a.txt:AFP_Resource") == identityOf(*ntfs, "A.txt:afp_RESOURCE"));
    CHECK(identityOf(*ntfs, "a.txt:AFP_Resource") != identityOf(*ntfs, "a.txt"));
    uint32_t bits = 0;
    CHECK(ntfs->attributes("a.txt:AFP_AfpInfo", bits) == 0);
    CHECK((bits & 0x10) == 0);

    SUBCASE("they go with it") {
        folder.write("a.txt2", "stays");
        REQUIRE(ntfs->remove("A.TXT") == 0);
        CHECK(folder.names() == Names{"a.txt2"});
    }
    SUBCASE("one goes without it") {
        REQUIRE(ntfs->remove("a.txt:AFP_AfpInfo") == 0);
        CHECK_FALSE(existsOn(*ntfs, "a.txt:AFP_AfpInfo"));
        CHECK(contentsOf(*ntfs, "a.txt:AFP_Resource") == "fork");
    }
    SUBCASE("they are no files of their own, whatever stands for the colon") {
        CHECK_FALSE(existsOn(*ntfs, "a.txt\uF022AFP_AfpInfo"));
        REQUIRE(writeFile(*ntfs, "a.txt\uF022AFP_AfpInfo", "file") == 0);
        CHECK(contentsOf(*ntfs, "a.txt:AFP_AfpInfo") == "info");
    }
}

TEST_CASE_FIXTURE(PlainVolumes, "folders and the root have streams") {
    folder.makeFolder("Sub");
    REQUIRE(writeFile(*ntfs, "Sub:AFP_AfpInfo", "folder") == 0);
    REQUIRE(writeFile(*ntfs, ":AFP_AfpInfo", "root") == 0);
    CHECK(contentsOf(*ntfs, "SUB:AFP_AfpInfo") == "folder");
    CHECK(contentsOf(*ntfs, ":AFP_AfpInfo") == "root");
}

TEST_CASE_FIXTURE(PlainVolumes, "growth takes the free space, and what shrinks or goes gives it back") {
    ntfs->setFreeSpace(3);
    pc::Opened opened;
    REQUIRE(openFile(*ntfs, "a:s", createAlways, opened) == 0);
    CHECK(opened.file->write(0, "1234", 4) == 112);
    CHECK(opened.file->write(0, "123", 3) == 0);
    CHECK(opened.file->setSize(4) == 112);
    REQUIRE(opened.file->setSize(1) == 0);
    CHECK(opened.file->write(0, "abc", 3) == 0);
    opened.file.reset();
    CHECK(writeFile(*ntfs, "b", "1") == 112);
    REQUIRE(ntfs->remove("a") == 0);
    CHECK(writeFile(*ntfs, "b", "123") == 0);
}

TEST_CASE_FIXTURE(PlainVolumes, "long names have 8.3 names in every component") {
    folder.makeFolder("Long folder");
    folder.write("Long folder/Long name.txt", "1");
    folder.write("Long folder/Long name two.txt", "2");
    CHECK(shortPathOf(*ntfs, "Long folder\\Long name.txt") == "LONGFO~1\\LONGNA~1.TXT");
    CHECK(shortPathOf(*ntfs, "long folder\\long NAME TWO.txt") == "LONGFO~1\\LONGNA~2.TXT");
    CHECK(shortPathOf(*ntfs, "LONGFO~1\\longna~1.txt") == "LONGFO~1\\LONGNA~1.TXT");
    CHECK(shortPathOf(*ntfs, "Long folder\\") == "LONGFO~1\\");
    CHECK(shortPathOf(*ntfs, "").empty());
    CHECK(shortPathOf(*ntfs, "Long folder\\none") == "error 2");
    CHECK(contentsOf(*ntfs, "LONGFO~1\\LONGNA~2.TXT") == "2");
    REQUIRE(writeFile(*ntfs, "LONGFO~1\\LONGNA~1.TXT:AFP_Resource", "fork") == 0);
    CHECK(contentsOf(*ntfs, "Long folder\\Long name.txt:AFP_Resource") == "fork");
    CHECK(openError(*ntfs, "LONGFO~1\\LONGNA~1.TXT", createNew) == 80);
    REQUIRE(ntfs->remove("LONGFO~1\\LONGNA~1.TXT") == 0);
    CHECK(folder.names("Long folder") == Names{"Long name two.txt"});
    CHECK(contentsOf(*ntfs, "LONGFO~1\\LONGNA~2.TXT") == "2");
}

TEST_CASE_FIXTURE(PlainVolumes, "the forms of 8.3 names") {
    const struct {
        const char* name;
        const char* alias;
    } forms[] = {
        {"readme.txt", "readme.txt"},
        {"MixedCas.E", "MixedCas.E"},
        {".profile", "PROFIL~1"},
        {"a b", "AB~1"},
        {"a+b=c.x[1]", "A_B_C~1.X_1"},
        {"archive.tar.gz", "ARCHIV~1.GZ"},
        {"\u65E5\u672C\u8A9E\u306E\u540D\u524D\u306E\u9577\u3044.txt",
         "\u65E5\u672C\u8A9E\u306E\u540D\u524D~1.TXT"},
        {"\u65E5\u672C\u8A9E.txt", "\u65E5\u672C\u8A9E.txt"},
        {"\u00E9t\u00E9 long.txt", "\u00C9T\u00C9LON~1.TXT"},
    };
    for (const auto& form : forms) {
        CAPTURE(form.name);
        folder.write(form.name, "1");
        CHECK(shortPathOf(*ntfs, form.name) == form.alias);
    }
}

TEST_CASE_FIXTURE(PlainVolumes, "an 8.3 name is taken once, and kept while its file exists") {
    folder.write("LONGNA~1.TXT", "taken");
    for (int i = 1; i <= 12; ++i)
        folder.write("Long name " + std::to_string(i) + ".txt", std::to_string(i));
    CHECK(shortPathOf(*ntfs, "Long name 7.txt") == "LONGNA~2.TXT");
    CHECK(contentsOf(*ntfs, "LONGNA~1.TXT") == "taken");
    // An 8.3 name never asked for is found, too.
    CHECK(contentsOf(*ntfs, "LONGNA~3.TXT") == "1");
    CHECK(contentsOf(*ntfs, "LONGN~10.TXT") == "5");
    CHECK(shortPathOf(*ntfs, "Long name 7.txt") == "LONGNA~2.TXT");
    CHECK(openError(*ntfs, "LONGNA~2.TEX") == 2);

    REQUIRE(ntfs->remove("LONGNA~2.TXT") == 0);
    folder.remove("Long name 1.txt");
    CHECK(openError(*ntfs, "LONGNA~2.TXT") == 2);
    CHECK(openError(*ntfs, "LONGNA~3.TXT") == 2);
    folder.write("Long name new.txt", "new");
    CHECK(shortPathOf(*ntfs, "Long name new.txt") == "LONGNA~2.TXT");
}
