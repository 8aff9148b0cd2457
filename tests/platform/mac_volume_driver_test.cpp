// The Mac volume driver, asked by the library: Mac names to items of a folder, whatever the name.
#include "pc/devices/mac_volume_driver.h"

#include "support/mac_names.h"
#include "support/test_pc.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

using tidewell::CreateMacNamedFile;
using tidewell::LookUpMacName;

namespace {

using Names = std::vector<std::string>;

struct DriverPc : TestPc {
    pc::Volume& volume = *drive('M')->volume;

    DriverPc() {
        setCodePage(pc::kCodePageUtf8);  // most names of Macs are in no other
        folder().makeFolder("M/Work");
        folder().write("M/Work/here", "kept");
    }

    Answer find(const std::string& macName, const std::string& in = "M:\\") {
        return ask(LookUpMacName, in, macName);
    }
    Answer create(const std::string& macName, const std::string& in = "M:\\") {
        return ask(CreateMacNamedFile, in, macName);
    }
    // The Mac name in the Finder information of the item at a path with its drive.
    std::string macNameOf(const std::string& path) {
        const std::string record = contentsOf(volume, path.substr(3) + kFinderFile);
        return record.substr(608, static_cast<uint8_t>(record.at(607)));
    }
};

}  // namespace

TEST_CASE("A Mac name gets a file of its folder that keeps it, apart from the driver's own files") {
    for (const std::string name : {"R\x8Esum\x8E/ \xB7\xF0", "What? \"x\" <a|b>*\\", "ends in .",
                                   "ends in \x0D", "A name of more than 31 characters", "", "..", "../x", "/",
                                   "._here", "..\\..\\x", "M:\\x", "._here/x", "here\\._here", " ", "CON",
                                   kResourceFile + 1, "{4dd19184-ace2-11cf-bbf2-444553540000}"}) {
        CAPTURE(name);
        DriverPc pc;
        const std::string fork = std::string("Work\\here") + kResourceFile;
        REQUIRE(writeFile(pc.volume, fork, "fork") == 0);
        CHECK(pc.find(name, "M:\\Work").error == 2);
        const Answer made = pc.create(name, "M:\\Work");
        REQUIRE(made.error == 0);
        CHECK(pc.find(name, "M:\\Work") == made);
        CHECK(readFile(made.path).empty());
        CHECK(pc.macNameOf(made.path) == (name.empty() ? "_" : name.substr(0, 31)));

        CHECK(readFile("M:\\Work\\here") == bytesOf("kept"));
        CHECK(contentsOf(pc.volume, fork) == "fork");
        CHECK(pc.folder().names("M") == Names{"Work"});
        REQUIRE(DeleteFileA(made.path.c_str()));
        CHECK(pc.folder().names("M/Work") == Names{"._here", "here"});
    }
}

TEST_CASE_FIXTURE(DriverPc, "Two Mac names for one host name: the second finds the first's file") {
    const std::pair<std::string, std::string> pairs[] = {
        {".", "_"}, {"__x", "._x"}, {"a/b", "a:b"}, {std::string("c\0d", 3), "c_d"}};
    for (const auto& pair : pairs) {
        CAPTURE(pair.first);
        const Answer made = create(pair.first);
        REQUIRE(made.error == 0);
        writeFile(made.path, bytesOf("first"));
        CHECK(find(pair.second) == made);
        CHECK(create(pair.second) == made);
        CHECK(readFile(made.path).size() == 5);
        CHECK(macNameOf(made.path) == pair.first);
    }
    // A folder is an item, but no file.
    CHECK(find("Work").error == 0);
    CHECK(create("Work").error == ERROR_ACCESS_DENIED);
    // A name that shows the same on the Mac only because something of it is lost is another name.
    folder().write("M/\u65E5", "");
    folder().write("M/" + std::string(40, 'x'), "");
    CHECK(find("_x").error == 2);
    CHECK(find(std::string(31, 'x')).error == 2);
    CHECK(find(std::string(40, 'x')).error == 0);
}

TEST_CASE_FIXTURE(DriverPc, "Host names are found as macOS writes them, and by their UTF-16 names") {
    folder().write("M/Work/Re\u0301sume\u0301", "kept");
    const Answer found = {0, "M:\\Work\\Re\u0301sume\u0301"};
    CHECK(find("R\x8Esum\x8E", "M:\\Work") == found);
    CHECK(create("R\x8Esum\x8E", "M:\\Work") == found);
    CHECK(askUnicode("M:\\Work", u"Re\u0301sume\u0301") == found);
    CHECK(folder().names("M/Work").size() == 2);
    folder().write("M/\u65E5:\U0001F4BE", "");
    CHECK(askUnicode("M:\\", u"\u65E5/\U0001F4BE").error == 0);
    CHECK(askUnicode("M:\\", u"\u65E5/").error == 2);
    // The stand-in for ":" leads to it, too.
    CHECK(askUnicode("M:\\", u"\u65E5\uF022\U0001F4BE").error == 0);
}

TEST_CASE_FIXTURE(DriverPc, "What Windows programs could not name, or the disk cannot hold, is not made") {
    folder().write("M/\u2211", "");
    setCodePage(1252);
    CHECK(find("\xB7").error == 123);
    CHECK(find("\xB7\xB7").error == 2);
    CHECK(create("\xB7\xB7").error == 123);
    setPathLimit(60);
    CHECK(create(std::string(57, 'x')).error == 206);
    CHECK(create(std::string(56, 'x')).error == 0);
    volume.setFreeSpace(10);
    CHECK(create(".").error == 112);
    CHECK_FALSE(folder().has("M/_"));
}

TEST_CASE_FIXTURE(DriverPc, "The drive mask shows the Mac volumes; a malformed request is refused") {
    std::unique_ptr<pc::File> driver;
    REQUIRE(device("TIDEWELL")->open({}, driver) == 0);
    Bytes reply(513);
    size_t size = 0;
    REQUIRE(driver->control(0x0022200B, {}, std::span(reply).first(16), size) == 0);
    CHECK(size == 16);
    CHECK(Bytes(reply.begin() + 12, reply.begin() + 16) == Bytes{0, 0x10, 0, 0});  // M:
    const Bytes endless(1026, 'M');                                                // no NUL behind the folder
    CHECK(driver->control(0x00222033, endless, reply, size) == 87);
    CHECK(driver->control(0x00222033, std::span(endless).first(1025), reply, size) == 87);
    CHECK(driver->control(0x00222034, {}, {}, size) == 1);
}
