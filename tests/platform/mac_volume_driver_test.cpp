// The Mac volume driver: Mac names to items of a folder, whatever the name. The requests are written byte by
// byte, by the interface's layout.
#include "pc/mac_volume_driver.h"

#include "pc/utf8.h"
#include "support/test_pc.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

namespace {

constexpr uint32_t kDriveMask = 0x0022200B;
constexpr uint32_t kNameToPath = 0x00222033;
constexpr size_t kOperation = 512;
constexpr size_t kForm = 513;
enum : uint8_t { create = 0, find = 1 };

void put16(Bytes& bytes, size_t offset, uint16_t value) {
    bytes[offset] = static_cast<uint8_t>(value);
    bytes[offset + 1] = static_cast<uint8_t>(value >> 8);
}

// `folder` has NULs between its components.
Bytes requestFor(std::u16string_view folder, uint8_t operation) {
    Bytes request(1026);
    for (size_t i = 0; i < folder.size(); ++i)
        put16(request, 2 * i, folder[i]);
    request[kOperation] = operation;
    return request;
}

struct DriverPc : TestPc {
    std::shared_ptr<pc::Device> driver = device("TIDEWELL");
    std::string shown;  // the name of the last reply

    // Most names of Macs are in no other code page.
    DriverPc() { setCodePage(pc::kCodePageUtf8); }

    pc::Error send(const Bytes& request, size_t room = 513) {
        Bytes reply(room, 0xEE);
        size_t size = 0;
        const pc::Error error = driver->control(kNameToPath, request, reply, size);
        CHECK(size == (error == 0 ? 513 : 0));
        std::u16string name;
        for (size_t i = 1; error == 0 && (reply[i] | reply[i + 1]) != 0; i += 2)
            name += static_cast<char16_t>(reply[i] | reply[i + 1] << 8);
        shown = pc::utf8FromUtf16(name);
        return error;
    }
    pc::Error ask(uint8_t operation, const std::string& macName, std::u16string_view folder = u"M:") {
        Bytes request = requestFor(folder, operation);
        request[518] = static_cast<uint8_t>(macName.size());
        std::copy(macName.begin(), macName.end(), request.begin() + 519);
        return send(request);
    }
    pc::Error askUnicode(uint8_t operation, std::u16string_view name, std::u16string_view folder = u"M:") {
        Bytes request = requestFor(folder, operation);
        request[kForm] = 1;
        put16(request, 514, static_cast<uint16_t>(name.size()));
        for (size_t i = 0; i < name.size(); ++i)
            put16(request, 516 + 2 * i, name[i]);
        return send(request);
    }
    // The Mac name in the Finder information.
    std::string recordName(const std::string& windowsName) {
        const std::string record = contentsOf(*drive('M')->volume, windowsName + kFinderFile);
        return record.substr(608, static_cast<uint8_t>(record.at(607)));
    }
};

const std::u16string kSub(u"M:\0Work\0Sub", 11);

void makeFolderAndFile(const DriverPc& pc) {
    pc.folder().makeFolder("M/Work/Sub");
    pc.folder().write("M/Work/Sub/here", "kept");
}

}  // namespace

TEST_CASE_FIXTURE(DriverPc, "The driver finds items and makes those that are missing") {
    makeFolderAndFile(*this);
    CHECK(ask(find, "here", kSub) == 0);
    CHECK(shown == "here");
    CHECK(ask(create, "here", kSub) == 0);
    CHECK(folder().read("M/Work/Sub/here") == "kept");
    CHECK(ask(find, "new", kSub) == 2);
    CHECK(ask(create, "new", kSub) == 0);
    CHECK(shown == "new");
    CHECK(folder().read("M/Work/Sub/new").empty());
    CHECK(askUnicode(find, u"new", kSub) == 0);
    CHECK(ask(find, "Work") == 0);  // a folder is an item
    CHECK(ask(create, "Work") == ERROR_ACCESS_DENIED);
    CHECK(folder().names("M/Work/Sub") == std::vector<std::string>{"here", "new"});
}

TEST_CASE_FIXTURE(DriverPc, "A folder that is not on a Mac volume has no Mac names") {
    makeFolderAndFile(*this);
    addDrive('E', DRIVE_REMOVABLE, nullptr);
    const struct {
        std::u16string folder;
        pc::Error error;
    } kCases[] = {
        {std::u16string(u"M:\0None", 7), 3},
        {std::u16string(u"M:\0None\0Sub", 11), 3},
        {std::u16string(u"F:", 2), 3},
        {std::u16string(u"Q:", 2), 3},
        {std::u16string(u"E:", 2), 21},
        {std::u16string(u"", 0), 3},
        {std::u16string(u"M", 1), 3},
        {std::u16string(u"M:\0Work\0Sub\0here", 16), 3},
        {std::u16string(u"M:\0._Work", 9), 3},
        {std::u16string(u"M:\0Work\0?", 9), 123},
        {std::u16string(u"\\\\server\\x", 10), 3},
    };
    for (const auto& test : kCases) {
        CAPTURE(pc::utf8FromUtf16(test.folder));
        for (const uint8_t operation : {find, create})
            CHECK(ask(operation, "x", test.folder) == test.error);
    }
    CHECK(ask(create, "x", std::u16string(u"M:\0..\0..\0Work", 14)) == 0);  // the root has nothing above
    CHECK(folder().has("M/Work/x"));
}

TEST_CASE_FIXTURE(DriverPc, "A malformed request is refused") {
    const Bytes good = requestFor(u"M:", create);
    for (const size_t size : {size_t{0}, size_t{1025}, size_t{1027}}) {
        Bytes request = good;
        request.resize(size);
        CHECK(send(request) == 87);
    }
    CHECK(send(good, 512) == 87);
    for (const size_t offset : {kOperation, kForm}) {
        Bytes request = good;
        request[offset] = 2;
        CHECK(send(request) == 87);
    }
    CHECK(send(requestFor(std::u16string(256, u'M'), find)) == 87);  // no NUL
    Bytes longName = requestFor(u"M:", create);
    longName[kForm] = 1;
    put16(longName, 514, 256);
    CHECK(send(longName) == 87);
    size_t size = 0;
    CHECK(driver->control(0x00222034, {}, {}, size) == 1);
    CHECK(folder().names("M").empty());
}

TEST_CASE_FIXTURE(DriverPc, "Mac names go to host names and come back") {
    for (const std::string& name :
         {std::string("Read Me/ part"), std::string("R\x8Esum\x8E \xB7\xF0"),
          std::string("What? \"x\" <a|b>*\\"), std::string("ends in ."), std::string("ends in \x0D"),
          std::string(" "), std::string(63, 'n'), std::string(80, '\x8E')}) {
        CAPTURE(name);
        CHECK(ask(find, name) == 2);
        REQUIRE(ask(create, name) == 0);
        const std::string windowsName = shown;
        CHECK(exists("M:\\" + windowsName));
        CHECK(ask(find, name) == 0);
        CHECK(shown == windowsName);
        CHECK(recordName(windowsName) == name.substr(0, 31));
    }
#ifndef _WIN32
    CHECK(folder().has("M/Read Me: part"));
    CHECK(folder().has("M/What? \"x\" <a|b>*\\"));
#endif
    CHECK(folder().has("M/R\u00E9sum\u00E9 \u2211\uF8FF"));
}

TEST_CASE("A hostile name stays in its folder, apart from the driver's own files") {
    const std::string kNames[] = {"",
                                  ".",
                                  "..",
                                  "../x",
                                  "/",
                                  "//",
                                  "._here",
                                  "._",
                                  std::string(1, '\0'),
                                  "..\\..\\x",
                                  "M:\\x",
                                  "._here/x",
                                  "here\\._here",
                                  "a:b",
                                  "_",
                                  " ",
                                  "CON",
                                  "{4DD19183-ACE2-11CF-BBF2-444553540000}",
                                  "{4dd19184-ace2-11cf-bbf2-444553540000}"};
    for (const std::string& name : kNames) {
        CAPTURE(name);
        DriverPc pc;
        makeFolderAndFile(pc);
        const std::string item = "Work\\Sub\\here";
        pc::Volume& volume = *pc.drive('M')->volume;
        REQUIRE(writeFile(volume, item + kResourceFile, "fork") == 0);
        CHECK(pc.ask(find, name, kSub) == 2);
        REQUIRE(pc.ask(create, name, kSub) == 0);
        CHECK(pc.ask(find, name, kSub) == 0);
        CHECK(contentsOf(volume, "Work\\Sub\\" + pc.shown).empty());
        CHECK(pc.recordName("Work\\Sub\\" + pc.shown) == (name.empty() ? "_" : name.substr(0, 31)));

        CHECK(contentsOf(volume, item) == "kept");
        CHECK(contentsOf(volume, item + kResourceFile) == "fork");
        CHECK(pc.folder().names("M") == std::vector<std::string>{"Work"});
        CHECK(pc.folder().names("M/Work") == std::vector<std::string>{"Sub"});
        REQUIRE(volume.remove("Work\\Sub\\" + pc.shown) == 0);
        CHECK(pc.folder().names("M/Work/Sub") == std::vector<std::string>{"._here", "here"});
    }
}

TEST_CASE_FIXTURE(DriverPc, "Two Mac names for one host name: the second finds the first's file") {
    const struct {
        std::string first, second;
    } kPairs[] = {{".", "_"}, {"__x", "._x"}, {"a/b", "a:b"}, {std::string("c\0d", 3), "c_d"}};
    for (const auto& pair : kPairs) {
        const std::string& first = pair.first;
        const std::string& second = pair.second;
        CAPTURE(first);
        REQUIRE(ask(create, first) == 0);
        const std::string windowsName = shown;
        REQUIRE(writeFile(*drive('M')->volume, windowsName, "first") == 0);
        CHECK(ask(find, second) == 0);
        CHECK(shown == windowsName);
        CHECK(ask(create, second) == 0);
        CHECK(contentsOf(*drive('M')->volume, windowsName) == "first");
        CHECK(recordName(windowsName) == first);
    }
    // A name that shows the same on the Mac only because something of it is lost is another name.
    folder().write("M/\u65E5", "");
    folder().write("M/" + std::string(40, 'x'), "");
    CHECK(ask(find, "_x") == 2);
    CHECK(ask(find, std::string(31, 'x')) == 2);
    CHECK(ask(find, std::string(40, 'x')) == 0);
}

TEST_CASE_FIXTURE(DriverPc, "Host names are found as macOS writes them, and by their UTF-16 names") {
    folder().write("M/Re\u0301sume\u0301", "kept");
    CHECK(ask(find, "R\x8Esum\x8E") == 0);
    CHECK(shown == "Re\u0301sume\u0301");
    CHECK(askUnicode(find, u"Re\u0301sume\u0301") == 0);
    CHECK(ask(create, "R\x8Esum\x8E") == 0);
    CHECK(folder().names("M").size() == 1);
    CHECK(askUnicode(create, u"\u65E5/\U0001F4BE") == 0);
    CHECK(askUnicode(find, u"\u65E5/\U0001F4BE") == 0);
    CHECK(askUnicode(find, u"\u65E5/") == 2);
    // The stand-in for ":" leads to the file whose name holds the ":".
    CHECK(askUnicode(find, u"\u65E5\uF022\U0001F4BE") == 0);
    CHECK(askUnicode(create, std::u16string{0xD800, 'x'}) == 0);
    CHECK(folder().has("M/\uFFFDx"));
}

TEST_CASE_FIXTURE(DriverPc, "What Windows programs could not name is not made") {
    setCodePage(1252);
    CHECK(ask(find, "\xB7") == 2);
    CHECK(ask(create, "\xB7") == 123);
    CHECK(askUnicode(create, u"\u65E5") == 123);
    CHECK(ask(create, "\x8E") == 0);
    setPathLimit(40);
    CHECK(ask(create, std::string(37, 'x')) == 206);
    CHECK(ask(create, std::string(36, 'x')) == 0);
    CHECK(exists("M:\\" + std::string(36, 'x')));
    setCodePage(pc::kCodePageUtf8);
    folder().write("M/\u2211", "");
    setCodePage(1252);
    CHECK(ask(find, "\xB7") == 123);
}

TEST_CASE_FIXTURE(DriverPc, "A full disk leaves nothing behind") {
    drive('M')->volume->setFreeSpace(10);
    CHECK(ask(create, ".x/") == 0);
    CHECK(ask(create, ".") == 112);
    CHECK(folder().names("M").size() == 1);
}

TEST_CASE_FIXTURE(DriverPc, "The drive mask shows the Mac volumes") {
    addDrive('E', DRIVE_REMOVABLE, nullptr);
    Bytes reply(16, 0xEE);
    size_t size = 0;
    REQUIRE(driver->control(kDriveMask, {}, reply, size) == 0);
    CHECK(size == 16);
    CHECK(Bytes(reply.begin() + 12, reply.end()) == Bytes{0, 0x10, 0, 0});  // M:
    CHECK(driver->control(kDriveMask, {}, std::span(reply).first(15), size) == 87);
}
