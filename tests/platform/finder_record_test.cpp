// The Finder information that the Mac volume gives of what it holds.
#include "pc/volumes/finder_record.h"

#include "pc/names/host_name.h"
#include "pc/names/utf8.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

namespace {

uint32_t little32(const std::string& record, size_t offset) {
    uint32_t value = 0;
    for (size_t i = 4; i-- > 0;)
        value = value << 8 | static_cast<uint8_t>(record.at(offset + i));
    return value;
}

std::string macName(const std::string& record) {
    return record.substr(608, static_cast<uint8_t>(record.at(607)));
}

std::u16string unicodeName(const std::string& record) {
    std::u16string name;
    for (size_t i = 641; i < 641 + (little32(record, 639) & 0xFFFF); i += 2)
        name += static_cast<char16_t>(little32(record, i));
    return name;
}

}  // namespace

TEST_CASE_FIXTURE(MacFolder, "the record of a file without Mac information") {
    const std::string name = "Re\u0301sume\u0301\uF022 1";
    folder.write(pc::hostNameOf(name), std::string(70000, 'x'));
    const std::string record = recordOf(name);
    CHECK(record.substr(0, 555) == std::string(555, '\0'));
    CHECK(little32(record, 555) == 70000);
    CHECK(little32(record, 571) == 0);
    CHECK(macName(record) == "R\x8Esum\x8E/ 1");
    CHECK(unicodeName(record) == u"Re\u0301sume\u0301/ 1");
}

TEST_CASE_FIXTURE(MacFolder, "settings that are written are read again, and the rest of the record is not") {
    folder.write("a", "1");
    REQUIRE(writeFile(*volume, std::string("a") + kResourceFile, std::string(300, 'r')) == 0);
    pc::Opened opened;
    REQUIRE(openFile(*volume, std::string("a") + kFinderFile, openExisting, opened) == 0);
    const std::string other(sizeof(pc::FinderRecord), '\x7F');
    std::string expected = recordOf("a");
    CHECK(little32(expected, 571) == 300);
    REQUIRE(opened.file->write(0, other.data(), other.size()) == 0);
    expected.replace(523, 16, 16, '\x7F');
    expected[521] = 0x7F;
    CHECK(recordOf("a") == expected);
    CHECK(opened.file->write(0, other.data(), 1154) == 87);
    CHECK(opened.file->write(1, other.data(), 1155) == 87);
}

TEST_CASE_FIXTURE(MacFolder, "folders count their items and keep settings beside them, the root in it") {
    folder.makeFolder("A/B/C");
    for (const char* name : {"x", "A/y", "A/._y", "A/B/z", "A/B/C/w", "._x"})
        folder.write(name, "1");
    const std::string info = "settings" + std::string(8, '\x11');
    REQUIRE(changeFinderInfo(*volume, "A", info) == 0);
    REQUIRE(changeFinderInfo(*volume, "A\\..", info) == 0);
    CHECK(folder.names() == std::vector<std::string>{"._.", "._A", "._x", "A", "x"});
    for (const std::string item : {"A", ""}) {
        const bool root = item.empty();
        const std::string record = recordOf(item);
        CHECK(record.substr(523, 16) == info);
        CHECK(record[555] == root);
        CHECK(little32(record, 556) == 2);
        CHECK(little32(record, 513) == (root ? 4 : 0));
        CHECK(little32(record, 517) == (root ? 3 : 0));
    }
    const std::string leaf = folder.path().substr(folder.path().rfind('/') + 1);
    CHECK(pc::utf8FromUtf16(unicodeName(recordOf(""))) == leaf);
}

TEST_CASE_FIXTURE(MacFolder, "the real name counts until the file is renamed") {
    const std::string longest(40, 'n');
    const std::vector<std::string> rows[] = {
        // The file's, the kept and the shown name.
        {"__DS", "._DS", "._DS"},  // a name the host keeps for the driver
        {"renamed", "before", "renamed"},
        {"long", std::string(300, 'l'), "long"},
        {longest, longest, longest.substr(0, 31)},
        {"\u8868\u793A.txt", "", "__.txt"},
    };
    for (const auto& row : rows) {
        folder.write(row[0], "");
        const auto length = static_cast<uint32_t>(row[1].size());
        folder.write("._" + row[0], appleDoubleHeader({{3, 38, length}}) + row[1]);
        CHECK(macName(recordOf(row[0])) == row[2]);
        CHECK(unicodeName(recordOf(row[0])) == pc::utf16FromUtf8(row[0]));
    }
}
