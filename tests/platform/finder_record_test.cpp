// The Finder information that the Mac volume gives of what it holds.
#include "macfile/finder_info.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

namespace {

struct InfoFolder : MacFolder {
    std::string macNameOf(const std::string& item) const {
        const std::string record = recordOf(item);
        return record.substr(608, static_cast<uint8_t>(record.at(607)));
    }
};

}  // namespace

TEST_CASE_FIXTURE(InfoFolder, "settings that are written are read again, and the rest of the record is not") {
    folder.write("a", std::string(70000, 'x'));
    CHECK(recordOf("a").substr(0, 555) == std::string(555, '\0'));
    CHECK(recordOf("a").substr(555, 4) == std::string("\x70\x11\x01", 4));
    REQUIRE(writeFile(*volume, std::string("a") + kResourceFile, std::string(300, 'r')) == 0);
    pc::Opened opened;
    REQUIRE(openFile(*volume, std::string("a") + kFinderFile, openExisting, opened) == 0);
    const std::string other(sizeof(tidewell::MacVolumeInfo), '\x7F');
    std::string expected = recordOf("a");
    REQUIRE(opened.file->write(0, other.data(), other.size()) == 0);
    expected.replace(523, 16, 16, '\x7F');
    expected[521] = 0x7F;
    CHECK(recordOf("a") == expected);
    CHECK(opened.file->write(0, other.data(), 1154) == 87);
    CHECK(opened.file->write(1, other.data(), 1155) == 87);
}

TEST_CASE_FIXTURE(InfoFolder, "folders count their items and keep settings beside them, the root in it") {
    folder.makeFolder("A/B/C");
    for (const char* name : {"x", "A/y", "A/._y", "A/B/z", "A/B/C/w", "._x"})
        folder.write(name, "1");
    REQUIRE(changeFinderInfo(*volume, "A", "TEXTttxt") == 0);
    REQUIRE(changeFinderInfo(*volume, "A\\..", "TEXTttxt") == 0);
    CHECK(folder.names() == std::vector<std::string>{"._.", "._A", "._x", "A", "x"});
    for (const std::string item : {"A", ""}) {
        const bool root = item.empty();
        CHECK(recordOf(item).substr(523, 8) == "TEXTttxt");
        CHECK(recordOf(item).substr(555, 5) == std::string(1, root) + std::string("\2\0\0\0", 4));
        const std::string files(1, root ? 4 : 0), folders(1, root ? 3 : 0), zeros(3, '\0');
        CHECK(recordOf(item).substr(513, 8) == files + zeros + folders + zeros);
    }
    CHECK(macNameOf("") == "Volume");
}

TEST_CASE_FIXTURE(InfoFolder, "the real name counts until the file is renamed") {
    const std::string longest(40, 'n');
    const std::vector<std::string> rows[] = {
        // The file's, the kept and the shown name.
        {"__DS", "._DS", "._DS"},  // a name the host keeps for the driver
        {"renamed", "before", "renamed"},
        {"long", std::string(300, 'l'), "long"},
        {longest, longest, longest.substr(0, 31)},
        {"\u8868 e\u0301.txt", "", "_ \x8E.txt"},
    };
    for (const auto& row : rows) {
        folder.write(row[0], "");
        const auto length = static_cast<uint32_t>(row[1].size());
        folder.write("._" + row[0], appleDoubleHeader({{3, 38, length}}) + row[1]);
        CHECK(macNameOf(row[0]) == row[2]);
    }
    folder.write("a:b", "");
    CHECK(macNameOf("a\uF022b") == "a/b");
}
