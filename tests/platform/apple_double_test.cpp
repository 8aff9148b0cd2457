#include "support/volume_files.h"

#include <doctest/doctest.h>

namespace {

const std::string kFork = std::string("a") + kResourceFile;
const std::string kText = "TEXTttxt" + std::string(8, '\x11');
const std::string kZeros(16, '\0');

// A volume with the file "a".
struct MacFile : MacFolder {
    MacFile() { folder.write("a", "data"); }

    std::string stored() const { return folder.read("._a"); }
    std::string entry(uint32_t id) const { return entryOf(stored(), id); }
};

// As macOS writes it: the Finder information with extended attributes behind it, then the resource fork.
std::string macosFile(const std::string& settings, const std::string& fork) {
    const std::string info = settings + std::string(18, '\x22') + "ATTR" + patternText(3722);
    const uint32_t behind = 50 + 3760;
    return appleDoubleHeader({{9, 50, 3760}, {2, behind, static_cast<uint32_t>(fork.size())}}) + info + fork;
}

}  // namespace

TEST_CASE_FIXTURE(MacFile, "a new file holds name, dates, settings and the resource fork last") {
    REQUIRE(changeFinderInfo(*volume, "a", kZeros) == 0);
    CHECK(entry(2) == "none");
    REQUIRE(writeFile(*volume, kFork, "fork") == 0);
    REQUIRE(changeFinderInfo(*volume, "a", kText, 0x01) == 0);
    const std::string date = entry(8).substr(0, 4), unknown = big32(0x80000000);
    CHECK(date < unknown);  // after 2000
    CHECK(stored() == appleDoubleHeader({{3, 86, 1}, {8, 87, 16}, {9, 103, 32}, {10, 135, 4}, {2, 139, 4}}) +
                          "a" + date + date + unknown + unknown + kText + kZeros + big32(1) + "fork");
}

TEST_CASE_FIXTURE(MacFile, "short entries read as zeros and are completed") {
    folder.write("._a", appleDoubleHeader({{9, 50, 4}, {2, 54, 4}}) + "TEXT" + "fork");
    CHECK(recordOf("a").substr(523, 16) == "TEXT" + std::string(12, '\0'));
    REQUIRE(changeFinderInfo(*volume, "a", kText, 0x02) == 0);
    CHECK(entry(9) == kText + kZeros);
    CHECK(entry(10) == big32(2));
    CHECK(entry(2) == "fork");
}

TEST_CASE_FIXTURE(MacFile, "macOS' layout stays byte for byte where it was") {
    folder.write("._a", macosFile("APPLMSWD" + kZeros.substr(8), "fork"));
    // The attribute byte has no place without moving macOS' attributes.
    REQUIRE(changeFinderInfo(*volume, "a", kText, 0x01) == 0);
    CHECK(stored() == macosFile(kText, "fork"));
    CHECK(recordOf("a")[521] == 0);
    REQUIRE(writeFile(*volume, kFork, "longer fork") == 0);
    CHECK(stored() == macosFile(kText, "longer fork"));

    REQUIRE(volume->remove(kFork) == 0);
    CHECK(stored().substr(50) == macosFile(kText, "").substr(50));
    // The place the entry had in the header is free for it again.
    REQUIRE(writeFile(*volume, kFork, "back") == 0);
    CHECK(stored() == macosFile(kText, "back"));
}

TEST_CASE_FIXTURE(MacFile, "entries, gaps and bytes of no known meaning survive") {
    // The resource fork first; a gap; an unknown entry; Finder information; an empty entry; a tail.
    std::string original =
        appleDoubleHeader({{7, 110, 6}, {2, 90, 10}, {9, 120, 32}, {12, 0, 0}, {0x1234, 160, 5}});
    original[8] = 'F';
    original += "pads" + std::string("0123456789") + "gap-gap-ga" + "entry7" + "gap!" + "APPLMSWD" +
                std::string(24, '\x33') + "more-gap" + "12345" + "tail";
    folder.write("._a", original);

    SUBCASE("a new entry moves the rest") {
        REQUIRE(changeFinderInfo(*volume, "a", kText, 0x01) == 0);
        CHECK(entry(10) == big32(1));
        CHECK(entry(9) == kText + std::string(16, '\x33'));
        CHECK(stored().substr(26 + 6 * 12, 28) == original.substr(86, 28));
    }
    SUBCASE("a growing fork goes to the end") {
        pc::Opened opened;
        REQUIRE(openFile(*volume, kFork, openExisting, opened) == 0);
        REQUIRE(opened.file->write(3, "XYZ", 3) == 0);
        CHECK(stored().size() == original.size());
        REQUIRE(opened.file->write(12, patternText(500000).data(), 500000) == 0);
        CHECK(entry(2) == "012XYZ6789" + std::string(2, '\0') + patternText(500000));
        CHECK(stored().ends_with(entry(2)));
    }
    SUBCASE("a replaced or removed fork leaves nothing of the old") {
        REQUIRE(writeFile(*volume, kFork, "new") == 0);
        CHECK(entry(2) == "new");
        REQUIRE(volume->remove(kFork) == 0);
        CHECK(entry(2) == "none");
        CHECK(stored().find("012") == std::string::npos);
    }
    CHECK(entry(7) + entry(12) + entry(0x1234) == "entry712345");
    CHECK(stored()[8] == 'F');
    for (const char* const text : {"gap-gap-ga", "gap!", "more-gap12345tail"})
        CHECK_MESSAGE(stored().find(text) != std::string::npos, text);
}

TEST_CASE_FIXTURE(MacFile, "a fork of many sizes keeps its header right") {
    REQUIRE(writeFile(*volume, kFork, "") == 0);
    pc::Opened opened;
    REQUIRE(openFile(*volume, kFork, openExisting, opened) == 0);
    for (const size_t size : {1u, 65536u, 100u}) {
        REQUIRE(opened.file->write(size, "end", 3) == 0);
        CHECK(entry(2) == std::string(size, '\0') + "end");
        CHECK(stored().size() == 139 + size + 3);
        REQUIRE(opened.file->truncate() == 0);
        CHECK(entry(2).empty());
        CHECK(stored().size() == 139);
    }
    CHECK(opened.file->write(0xFFFFFFFF, "x", 1) == 223);
    CHECK(stored().size() == 139);
}

TEST_CASE_FIXTURE(MacFile, "damaged files give 1392 and are left alone") {
    const std::string sound = appleDoubleHeader({{9, 50, 32}, {2, 82, 4}}) + std::string(32, 'i') + "fork";
    const auto with = [&](size_t offset, const std::string& bytes) {
        return std::string(sound).replace(offset, bytes.size(), bytes);
    };
    std::vector<RawEntry> entries;
    for (uint32_t id = 100; id <= 1100; ++id)
        entries.push_back({id, 0, 0});
    for (const std::string& damaged : {
             appleDoubleHeader(entries), sound.substr(0, 25),  // shorter than the fixed part
             sound.substr(0, 49),                              // shorter than its entries
             sound.substr(0, 85),                              // cut within an entry
             with(0, big32(0x00051600)),                       // other magic number
             with(4, big32(0x00010000)),                       // other version
             with(38, big32(9)),                               // same identifier twice
             with(42, big32(87)),                              // offset behind the end
             with(46, big32(0xFFFFFFFC)),                      // length near 4 GB
             with(42, big32(49)),                              // entry in the header
             with(42, big32(60)),                              // entry within another
         }) {
        CAPTURE(damaged);
        folder.write("._a", damaged);
        CHECK(openError(*volume, kFork, createAlways) == 1392);
        CHECK(openError(*volume, "a", createAlways) == 1392);
        CHECK(changeFinderInfo(*volume, "a", kText) == 1392);
        CHECK(volume->remove(kFork) == 1392);
        CHECK(stored() == damaged);
        CHECK(contentsOf(*volume, "a") == "data");
    }
    // What only asks for sizes does not need them: the volume stays a Mac volume.
    CHECK(existsOn(*volume, std::string("a") + kFinderFile));
    // Nor is it known whose it is: it stays without the file.
    REQUIRE(volume->remove("a") == 0);
    CHECK(folder.names() == std::vector<std::string>{"._a"});
}

TEST_CASE_FIXTURE(MacFile, "a full disk leaves the old information as it was, and nothing beside it") {
    volume->setFreeSpace(100);
    CHECK(writeFile(*volume, kFork, "fork") == 112);
    CHECK(folder.names() == std::vector<std::string>{"a"});
    volume->setFreeSpace(1000);
    REQUIRE(writeFile(*volume, kFork, "fork") == 0);
    const std::string before = stored();
    for (uint64_t space = 0; space < before.size(); space += 10) {
        volume->setFreeSpace(space);
        CHECK(changeFinderInfo(*volume, "a", kText, 0x01) == 112);
        CHECK(stored() == before);
        CHECK(folder.names().size() == 2);
    }
    // What fits in place needs no room.
    volume->setFreeSpace(0);
    REQUIRE(changeFinderInfo(*volume, "a", kText) == 0);
    const std::string full = stored();
    pc::Opened opened;
    REQUIRE(openFile(*volume, kFork, openExisting, opened) == 0);
    CHECK(opened.file->write(0, "more-", 5) == 112);
    CHECK(stored() == full);
}
