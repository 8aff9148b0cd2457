#include "support/temp_folder.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

#include <memory>

namespace {

struct MacFolder {
    TempFolder folder;
    std::unique_ptr<pc::Volume> volume = pc::makeMacVolume(folder.path());
};

using Names = std::vector<std::string>;

const std::string kFork = kResourceFile;
const std::string kInfo = kFinderFile;

}  // namespace

TEST_CASE_FIXTURE(MacFolder, "the resource fork exists once it is created") {
    CHECK(std::string(volume->fileSystemName()) == "HFS");
    CHECK(openError(*volume, "a" + kFork, createAlways) == 2);
    CHECK(openError(*volume, "no\\a" + kFork, createAlways) == 3);
    folder.write("a", "data");
    CHECK(openError(*volume, "a" + kFork) == 2);
    CHECK(openError(*volume, "a" + kFork, truncateExisting) == 2);
    CHECK_FALSE(existsOn(*volume, "a" + kFork));
    CHECK(identityOf(*volume, "a" + kFork) == "error 2");
    CHECK(shortPathOf(*volume, "a" + kFork) == "error 2");
    CHECK(volume->remove("a" + kFork) == 2);
    CHECK(folder.names() == Names{"a"});

    pc::Opened opened;
    REQUIRE(openFile(*volume, "a" + kFork, openAlways, opened) == 0);
    CHECK(opened.created);
    CHECK(contentsOf(*volume, "a\\{4dd19183-ace2-11cf-bbf2-444553540000}").empty());
    CHECK(openError(*volume, "a" + kFork, createNew) == 80);
    CHECK(shortPathOf(*volume, "a" + kFork) == "a" + kFork);
    REQUIRE(opened.file->write(2, "xyz", 3) == 0);
    CHECK(contentsOf(*volume, "a" + kFork) == std::string("\0\0xyz", 5));
    CHECK(contentsOf(*volume, "a") == "data");
    REQUIRE(openFile(*volume, "a" + kFork, openAlways, opened) == 0);
    CHECK_FALSE(opened.created);

    CHECK(volume->remove("a" + kInfo) == 5);
    REQUIRE(volume->remove("a" + kFork) == 0);
    CHECK(openError(*volume, "a" + kFork) == 2);
}

TEST_CASE_FIXTURE(MacFolder, "Finder information is there for whatever there is") {
    CHECK(openError(*volume, "a" + kInfo) == 2);
    CHECK_FALSE(existsOn(*volume, "a" + kInfo));
    folder.makeFolder("Sub");
    uint32_t bits = 0;
    CHECK(volume->attributes("Sub" + kInfo, bits) == 0);
    CHECK((bits & 0x10) == 0);
    CHECK(openError(*volume, "Sub" + kInfo, createNew) == 80);
    for (const std::string& path : {kInfo.substr(1), "Sub" + kInfo}) {
        pc::Opened opened;
        uint64_t size = 0;
        REQUIRE(volume->openForQuery(path, opened) == 0);
        CHECK(opened.file->size(size) == 0);
        CHECK(size == 1155);
    }
    CHECK(openError(*volume, "Sub" + kInfo + "\\") == 123);
    CHECK(openError(*volume, "Sub" + kInfo + "\\x") == 3);
    CHECK(folder.names() == Names{"Sub"});
}

TEST_CASE_FIXTURE(MacFolder, "names beginning with ._ are the driver's") {
    folder.write("a", "");
    REQUIRE(writeFile(*volume, "a" + kFork, "fork") == 0);
    folder.makeFolder("._Sub");
    folder.write("._Sub/x", "");
    for (const std::string& path :
         {std::string("._a"), std::string("._none"), "._a" + kInfo, "._a" + kFork}) {
        CAPTURE(path);
        CHECK(openError(*volume, path) == 2);
        CHECK(openError(*volume, path, createAlways) == 5);
        CHECK(volume->remove(path) == 2);
        CHECK_FALSE(existsOn(*volume, path));
    }
    CHECK(openError(*volume, "._Sub\\x") == 3);
    CHECK(contentsOf(*volume, "a" + kFork) == "fork");
}

TEST_CASE_FIXTURE(MacFolder, "a file takes its Mac information with it") {
    REQUIRE(writeFile(*volume, "a", "data") == 0);
    REQUIRE(writeFile(*volume, "a" + kFork, "fork") == 0);
    REQUIRE(writeFile(*volume, "b", "data") == 0);
    CHECK(folder.names() == Names{"._a", "a", "b"});
    pc::Opened opened;
    REQUIRE(openFile(*volume, "a" + kFork, openExisting, opened) == 0);
    REQUIRE(volume->remove("a") == 0);
    CHECK(opened.file->write(0, "x", 1) == 2);
    CHECK(folder.names() == Names{"b"});
    CHECK(volume->remove("a") == 2);
    CHECK(volume->remove("b") == 0);
    CHECK(volume->remove("") == 5);
    CHECK(folder.names().empty());
}

TEST_CASE_FIXTURE(MacFolder, "characters that Windows reserves are kept in names") {
    const std::string shown = "What\uF025 \uF020a\uF022b\uF020";
    REQUIRE(writeFile(*volume, shown, "data") == 0);
    REQUIRE(changeFinderInfo(*volume, shown, "TEXTttxt") == 0);
#ifndef _WIN32
    CHECK(folder.names() == Names{"._What? \"a:b\"", "What? \"a:b\""});
#endif
    CHECK(contentsOf(*volume, shown) == "data");
    CHECK(openError(*volume, "What? x", createAlways) == 123);
    // A host may hold the stand-in itself.
    folder.makeFolder("s\uF021");
    folder.write("s\uF021/t\uF021", "1");
    CHECK(contentsOf(*volume, "s\uF021\\t\uF021") == "1");
}

TEST_CASE_FIXTURE(MacFolder, "identities tell files and their forks apart, whatever the path") {
    folder.makeFolder("Sub");
    folder.write("Sub/a", "");
    folder.write("b", "");
    pc::Opened data, fork, info, again;
    REQUIRE(openFile(*volume, "Sub\\a", openExisting, data) == 0);
    REQUIRE(openFile(*volume, "Sub\\a" + kFork, createAlways, fork) == 0);
    REQUIRE(openFile(*volume, "Sub\\a" + kInfo, openExisting, info) == 0);
    REQUIRE(openFile(*volume, "Sub\\..\\Sub\\.\\a" + kFork, openExisting, again) == 0);
    CHECK(again.identity == fork.identity);
    CHECK(identityOf(*volume, "Sub\\a") == data.identity);
    CHECK(identityOf(*volume, "Sub\\a" + kFork) == fork.identity);
    CHECK(identityOf(*volume, "Sub\\a" + kInfo) == info.identity);
    CHECK(data.identity != fork.identity);
    CHECK(data.identity != info.identity);
    CHECK(fork.identity != info.identity);
    CHECK(identityOf(*volume, "b") != data.identity);
    CHECK(identityOf(*volume, "b" + kInfo) != info.identity);
}

TEST_CASE_FIXTURE(MacFolder, "forks and settings changed through several open files agree") {
    REQUIRE(writeFile(*volume, "a", "") == 0);
    pc::Opened writer, reader;
    REQUIRE(openFile(*volume, "a" + kFork, createAlways, writer) == 0);
    REQUIRE(openFile(*volume, "a" + kFork, openExisting, reader) == 0);
    REQUIRE(writer.file->write(0, "one", 3) == 0);
    // This puts another file in the place of the open one.
    REQUIRE(changeFinderInfo(*volume, "a", "TEXTttxt", 1) == 0);
    REQUIRE(writer.file->write(3, "two", 3) == 0);
    uint64_t size = 0;
    CHECK(reader.file->size(size) == 0);
    CHECK(size == 6);
    CHECK(contentsOf(*volume, "a" + kFork) == "onetwo");
    CHECK(entryOf(folder.read("._a"), 2) == "onetwo");
    CHECK(entryOf(folder.read("._a"), 9).substr(0, 8) == "TEXTttxt");
}
