#include "support/volume_files.h"

#include <doctest/doctest.h>

namespace {

using Names = std::vector<std::string>;

const std::string kFork = kResourceFile;
const std::string kInfo = kFinderFile;

}  // namespace

TEST_CASE_FIXTURE(MacFolder, "what can be opened of what there is and is not") {
    folder.write("a", "data");
    folder.makeFolder("Sub");
    folder.makeFolder("._Own");
    folder.write("._Own/x", "");
    const struct {
        std::string path;
        pc::Error existing, always, anew;
    } rows[] = {
        {"none" + kFork, 2, 2, 2},
        {"no\\none" + kFork, 3, 3, 3},
        {"none" + kInfo, 2, 2, 2},
        {"a" + kInfo, 0, 87, 80},
        {"Sub" + kInfo, 0, 87, 80},
        {"Sub" + kInfo + "\\", 123, 123, 123},
        {"Sub" + kInfo + "\\x", 3, 3, 3},
        {"What? x", 123, 123, 123},
        // The driver's own.
        {"._a", 2, 5, 5},
        {"._a" + kFork, 2, 5, 5},
        {"._Own\\x", 3, 3, 3},
        // Last, since it makes the fork.
        {"a" + kFork, 2, 0, 80},
    };
    for (const auto& row : rows) {
        CAPTURE(row.path);
        CHECK(openError(*volume, row.path) == row.existing);
        CHECK(existsOn(*volume, row.path) == (row.existing == 0));
        CHECK(openError(*volume, row.path, createAlways) == row.always);
        CHECK(openError(*volume, row.path, createNew) == row.anew);
        if (row.existing != 0 && row.always != 0) CHECK(volume->remove(row.path) == row.existing);
    }
    CHECK(folder.names() == Names{"._Own", "._a", "Sub", "a"});
    CHECK(contentsOf(*volume, "a\\{4dd19183-ace2-11cf-bbf2-444553540000}").empty());
    for (const std::string path : {"", (kInfo.c_str() + 1)})
        CHECK(volume->remove(path) == 5);
    // A host's name may hold the stand-in of a reserved character.
    folder.makeFolder("s\uF021");
    folder.write("s\uF021/t\uF021", "1");
    CHECK(contentsOf(*volume, "s\uF021\\t\uF021") == "1");
}

TEST_CASE_FIXTURE(MacFolder, "what the host cannot keep is told when a file is closed, too") {
    folder.write("a", "");
    for (const std::string& part : {kFork, kInfo}) {
        pc::Opened writer;
        REQUIRE(openFile(*volume, "a" + part, part == kFork ? createAlways : openExisting, writer) == 0);
        REQUIRE(changeFinderInfo(*volume, "a", std::string(16, part[8])) == 0);
        REQUIRE(writer.file->flush() == 0);
        folder.memory().failCloses(112);
        CHECK(writer.file->close() == 112);
        folder.memory().failCloses(0);
    }
    folder.memory().failCloses(112);
    folder.write("b", "");
    CHECK(openError(*volume, "b" + kFork, createAlways) == 112);
    CHECK(folder.names() == Names{"._a", "a", "b"});
}

TEST_CASE_FIXTURE(MacFolder, "forks and settings changed through several open files agree") {
    REQUIRE(writeFile(*volume, "a", "") == 0);
    pc::Opened writer, reader;
    REQUIRE(openFile(*volume, "a" + kFork, createAlways, writer) == 0);
    REQUIRE(openFile(*volume, ".\\a" + kFork, openExisting, reader) == 0);
    CHECK(reader.identity == writer.identity);
    CHECK(identityOf(*volume, "a" + kFork) == writer.identity);
    for (const std::string other : {"", kInfo.c_str()})
        CHECK(identityOf(*volume, "a" + other) != writer.identity);
    REQUIRE(writer.file->write(0, "one", 3) == 0);
    // This puts another file in the place of the open one.
    REQUIRE(changeFinderInfo(*volume, "a", "TEXTttxt", 1) == 0);
    REQUIRE(writer.file->write(3, "two", 3) == 0);
    char bytes[7] = "";
    size_t got = 0;
    CHECK(reader.file->read(0, bytes, 7, got) == 0);
    CHECK(std::string(bytes) == "onetwo");
    CHECK(entryOf(folder.read("._a"), 2) == "onetwo");
    CHECK(entryOf(folder.read("._a"), 9).substr(0, 8) == "TEXTttxt");
    // A file takes its Mac information with it.
    REQUIRE(volume->remove("a") == 0);
    CHECK(writer.file->write(0, "x", 1) == 2);
    CHECK(folder.names().empty());
}
