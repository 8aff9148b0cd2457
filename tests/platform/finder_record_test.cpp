#include "support/temp_folder.h"
#include "support/volume_files.h"

#include "pc/finder_record.h"
#include "pc/host_name.h"
#include "pc/utf8.h"

#include <doctest/doctest.h>

#include <memory>

namespace {

struct MacFolder {
    TempFolder folder;
    std::unique_ptr<pc::Volume> volume = pc::makeMacVolume(folder.path());

    std::string recordOf(const std::string& item) {
        return contentsOf(*volume, item.empty() ? kFinderFile + 1 : item + kFinderFile);
    }
};

uint32_t little32(const std::string& record, size_t offset) {
    uint32_t value = 0;
    for (size_t i = 4; i-- > 0;)
        value = value << 8 | static_cast<uint8_t>(record.at(offset + i));
    return value;
}

std::string pascalName(const std::string& record) {
    return record.substr(608, static_cast<uint8_t>(record.at(607)));
}

std::string unicodeName(const std::string& record) {
    return record.substr(641, little32(record, 639) & 0xFFFF);
}

std::string utf16(std::u16string_view text) {
    std::string bytes;
    for (const char16_t unit : text) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
}

}  // namespace

TEST_CASE_FIXTURE(MacFolder, "the record of a file without Mac information") {
    const std::string name = "Re\u0301sume\u0301\uF022 1";
    folder.write(pc::hostNameOf(name), std::string(70000, 'x'));
    const std::string record = recordOf(name);
    REQUIRE(record.size() == pc::kFinderRecordSize);
    CHECK(record.substr(0, 555) == std::string(555, '\0'));
    CHECK(little32(record, 555) == 70000);
    CHECK(little32(record, 571) == 0);
    CHECK(pascalName(record) == "R\x8Esum\x8E/ 1");
    CHECK(unicodeName(record) == utf16(u"Re\u0301sume\u0301/ 1"));
    CHECK(folder.names().size() == 1);
}

TEST_CASE_FIXTURE(MacFolder, "what is written is read again, and the rest of the record is not") {
    folder.write("a", "1");
    const std::string info = "TEXTttxt" + big16(0x2100) + big16(0x0102) + big16(0x0304) + big16(0x0506);
    REQUIRE(changeFinderInfo(*volume, "a", info, 0x83) == 0);
    REQUIRE(writeFile(*volume, std::string("a") + kResourceFile, std::string(300, 'r')) == 0);
    std::string record = recordOf("a");
    CHECK(record.substr(523, 16) == info);
    CHECK(static_cast<uint8_t>(record[521]) == 0x83);
    CHECK(record[522] == 0);
    CHECK(little32(record, 555) == 1);
    CHECK(little32(record, 571) == 300);

    pc::Opened opened;
    REQUIRE(openFile(*volume, std::string("a") + kFinderFile, openExisting, opened) == 0);
    std::string other(pc::kFinderRecordSize, '\x7F');
    REQUIRE(opened.file->write(0, other.data(), other.size()) == 0);
    REQUIRE(opened.file->flush() == 0);
    std::string changed = record;
    changed.replace(523, 16, 16, '\x7F');
    changed[521] = 0x7F;
    CHECK(recordOf("a") == changed);
    CHECK(opened.file->write(0, other.data(), 1154) == 87);
    CHECK(opened.file->write(1, other.data(), 1155) == 87);
    uint64_t size = 0;
    CHECK(opened.file->size(size) == 0);
    CHECK(size == 1155);
    CHECK(recordOf("a") == changed);
}

TEST_CASE_FIXTURE(MacFolder, "folders count their items, the root those of the volume") {
    for (const char* name : {"A", "A/B", "A/B/C"})
        folder.makeFolder(name);
    for (const char* name : {"x", "A/y", "A/._y", "A/B/z", "A/B/C/w", "._x"})
        folder.write(name, "1");

    const std::string record = recordOf("A");
    CHECK(record[555] == 0);
    CHECK(little32(record, 556) == 2);
    CHECK(little32(record, 513) == 0);
    CHECK(pascalName(record) == "A");

    const std::string root = recordOf("");
    CHECK(root[555] != 0);
    CHECK(little32(root, 556) == 2);
    CHECK(little32(root, 513) == 4);
    CHECK(little32(root, 517) == 3);
    const std::string leaf = folder.path().substr(folder.path().rfind('/') + 1);
    CHECK(unicodeName(root) == utf16(pc::utf16FromUtf8(leaf)));
}

TEST_CASE_FIXTURE(MacFolder, "a folder and the root keep settings beside and in them") {
    folder.makeFolder("Sub");
    const std::string info = big32(1) + big32(2) + big16(0x0400) + big16(3) + big16(4) + big16(5);
    REQUIRE(changeFinderInfo(*volume, "Sub", info) == 0);
    REQUIRE(changeFinderInfo(*volume, "Sub\\..", info) == 0);
    CHECK(recordOf("Sub").substr(523, 16) == info);
    CHECK(recordOf("").substr(523, 16) == info);
    CHECK(folder.names() == std::vector<std::string>{"._.", "._Sub", "Sub"});
    CHECK(folder.names("Sub").empty());
    CHECK(little32(recordOf(""), 556) == 1);
}

TEST_CASE_FIXTURE(MacFolder, "the real name counts until the file is renamed") {
    const auto store = [&](const std::string& file, const std::string& realName) {
        const uint32_t length = static_cast<uint32_t>(realName.size());
        folder.write(file, "");
        folder.write("._" + file, appleDoubleHeader({{3, 38, length}}) + realName);
        return pascalName(recordOf(file));
    };
    CHECK(store("__DS", "._DS") == "._DS");  // a name the host keeps for the driver
    CHECK(store("plain", "plain") == "plain");
    CHECK(store("renamed", "before") == "renamed");
    CHECK(store("long", std::string(300, 'l')) == "long");
    const std::string longest = std::string(40, 'n');
    CHECK(store(longest, longest) == longest.substr(0, 31));
}

TEST_CASE_FIXTURE(MacFolder, "names of every script") {
    folder.write("\u8868\u793A.txt", "");  // in Shift-JIS its first character ends in a backslash
    const std::string record = recordOf("\u8868\u793A.txt");
    CHECK(pascalName(record) == "__.txt");
    CHECK(unicodeName(record) == utf16(u"\u8868\u793A.txt"));
    const std::string longName(200, 'n');
    folder.write(longName, "");
    CHECK(pascalName(recordOf(longName)) == std::string(31, 'n'));
    CHECK(unicodeName(recordOf(longName)).size() == 400);
}
