#include "macfile/mac_name.h"

#include "macfile/driver.h"
#include "support/mac_names.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>
#include <functional>

using namespace tidewell;

namespace {

// Keeps the last request it was sent.
class Recorder final : public pc::ControlDevice {
  public:
    Bytes request;
    // The reply's name, UTF-16.
    std::u16string name = u"Shown";
    std::function<void()> creating = [] {};

    pc::Error control(uint32_t code, std::span<const uint8_t> input, std::span<uint8_t> output,
                      size_t& returned) override {
        CHECK(code == 0x00222033);
        CHECK(output.size() == 513);
        request.assign(input.begin(), input.end());
        if (request[512] == 0) creating();
        std::memcpy(&output[1], name.data(), 2 * name.size());
        returned = output.size();
        return 0;
    }
};

struct RecordingPc : TestPc {
    std::shared_ptr<Recorder> driver = std::make_shared<Recorder>();
    RecordingPc() {
        folder().makeFolder("M/Work/Sub");
        addDevice("TIDEWELL", driver);
    }
};

// What folder the request M:\Work\Sub names, in it the operation, the form and the name.
Bytes requestOf(uint8_t operation, uint8_t form, size_t nameOffset, const Bytes& name) {
    Bytes request(1026);
    const char16_t folder[] = u"M:\0Work\0Sub";
    std::memcpy(request.data(), folder, sizeof folder);
    request[512] = operation;
    request[513] = form;
    for (size_t i = 0; form == 0 && i < 4; ++i)
        request[514 + i] = static_cast<uint8_t>(1 + i);  // what the caller said
    std::copy(name.begin(), name.end(), request.begin() + static_cast<int>(nameOffset));
    return request;
}

}  // namespace

TEST_CASE("Names outside Mac volumes: forbidden characters become _") {
    TestPc pc;
    for (const std::string drive : {"F:\\", "N:\\"}) {
        CHECK(ask(LookUpMacName, drive, "1/2<3>4\"").error == ERROR_FILE_NOT_FOUND);
        const Answer made = {0, drive + "1_2_3_4_"};
        CHECK(ask(CreateMacNamedFile, drive, "1/2<3>4\"") == made);
        writeFile(made.path, bytesOf("kept"));
        // Another Mac name with the same name here finds it, and making it keeps it.
        CHECK(ask(LookUpMacName, drive, "1:2\\3|4?") == made);
        CHECK(ask(CreateMacNamedFile, drive, "1*2_3_4_") == made);
        CHECK(readFile(made.path) == bytesOf("kept"));
        CHECK(ask(LookUpMacName, drive + "None", "a").error == ERROR_PATH_NOT_FOUND);
        CHECK(askUnicode(drive, u"Read").error == ERROR_INVALID_FUNCTION);
        // Bytes of the Mac's character set stay, and read as other characters.
        CHECK(ask(CreateMacNamedFile, drive, "\x81ngstr\x9Am").path == drive + "\x81ngstr\x9Am");
    }
    CHECK(pc.nothingHeld());
}

TEST_CASE("Names outside Mac volumes: a name never leads out of its folder") {
    TestPc pc;
    pc.folder().makeFolder("N/Sub");
    for (const std::string& name : {std::string("."), std::string(""), std::string("..\0x", 4),
                                    std::string("..\\..\\x"), std::string("C:\\x")}) {
        ask(CreateMacNamedFile, "N:\\Sub", name);
        CHECK_MESSAGE(pc.folder().names("N") == std::vector<std::string>{"Sub"}, name);
    }
    CHECK(pc.folder().names("F").empty());
    for (const size_t capacity : {6u, 7u, 9u, 10u}) {
        const ErrorCode wanted = capacity == 6   ? ERROR_INSUFFICIENT_BUFFER
                                 : capacity < 10 ? ERROR_FILENAME_EXCED_RANGE
                                                 : ERROR_FILE_NOT_FOUND;
        CHECK_MESSAGE(ask(LookUpMacName, "N:\\Sub", "a", capacity).error == wanted, capacity);
    }
}

TEST_CASE("The Windows form of a name needs room for its NUL") {
    const uint8_t name[] = {3, 'a', ':', 'b'};
    char out[8] = "unsaid";
    CHECK(MacNameToWindowsName(name, out, 3) == 0);
    CHECK(GetLastError() == ERROR_MORE_DATA);
    CHECK(std::string(out) == "unsaid");
    CHECK(MacNameToWindowsName(name, out, 4) == 1);
    CHECK(std::string(out) == "a_b");
}

TEST_CASE_FIXTURE(RecordingPc,
                  "Names on Mac volumes: the driver is sent the folder's components and the name") {
    const Answer shown = {0, "M:\\Work\\Sub\\Shown"};
    CHECK(ask(LookUpMacName, "M:\\Work\\Sub", "a/b") == shown);
    CHECK(driver->request == requestOf(1, 0, 518, {3, 'a', '/', 'b'}));
    driver->creating = [this] { folder().write("M/Work/Sub/Shown", ""); };
    CHECK(ask(CreateMacNamedFile, "M:\\Work\\Sub", "a/b") == shown);
    CHECK(driver->request == requestOf(0, 0, 518, {3, 'a', '/', 'b'}));
    {
        // Another program's.
        const OwnedFile other(CreateFileA("\\\\.\\TIDEWELL", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, OPEN_EXISTING, 0, nullptr));
        CHECK(other);
        CHECK(askUnicode("M:\\Work\\Sub", u"a\u65E5") == shown);
    }
    CHECK(driver->request == requestOf(1, 1, 514, {2, 0, 'a', 0, 0xE5, 0x65}));
    CHECK(nothingHeld());

    {
        OwnedFile device;
        REQUIRE(OpenMacDriver(device) == 0);
        Bytes reply(513);
        DWORD returned = 0;
        const Bytes request = driver->request;
        CHECK(SendDriverRequest(device.get(), 0x00222033, request.data(), 1026, reply.data(), 513,
                                &returned) == 0);
        CHECK(returned == 513);
    }
    CHECK(ask(LookUpMacName, "M:\\Work\\", "a").path == "M:\\Work\\Shown");
    CHECK(ask(LookUpMacName, "M:\\", "a").path == "M:\\Shown");
    CHECK(askUnicode("M:\\", std::u16string(255, u'x')).error == 0);
    CHECK(askUnicode("M:\\", std::u16string(256, u'x')).error == ERROR_INVALID_PARAMETER);
}

TEST_CASE_FIXTURE(RecordingPc, "Names on Mac volumes: what does not fit is told") {
    const std::string work = "M:\\Work\\Sub";
    for (const size_t room : {0u, 1u, 6u, 7u}) {
        const ErrorCode wanted = room == 7 ? 0 : ERROR_INSUFFICIENT_BUFFER;
        CHECK(ask(LookUpMacName, work, "a", work.size() + room).error == wanted);
    }
    // The nearest that the code page has could be the name of another file.
    driver->name = u"\u221E";
    CHECK(ask(LookUpMacName, work, "a").error == ERROR_INVALID_NAME);
    driver->name = std::u16string(256, u'x');  // a reply without a NUL
    CHECK(ask(LookUpMacName, work, "a").path == work + "\\" + std::string(256, 'x'));
    // A folder of 256 units with its NUL fits the request, a longer one does not.
    setPathLimit(600);
    driver->name = u"Shown";
    const std::string part(126, 'd');
    for (const size_t last : {125u, 126u}) {
        folder().makeFolder("M/" + part + "/" + std::string(last, 'd'));
        CHECK(ask(LookUpMacName, "M:\\" + part + "\\" + std::string(last, 'd'), "a").error ==
              (last == 125 ? 0 : ERROR_INSUFFICIENT_BUFFER));
    }
    CHECK(nothingHeld());
}

TEST_CASE_FIXTURE(RecordingPc, "A file that the driver made, but no path can name, does not stay") {
    const std::string work = "M:\\Work\\Sub";
    const struct {
        std::u16string name;
        std::string hostName;
        size_t room;
        ErrorCode error;
    } rows[] = {
        {u"\u221E", "\u221E", 300, ERROR_INVALID_NAME},
        {u"\u221E", "\u221E", 1, ERROR_INSUFFICIENT_BUFFER},
        // Its path is too long for programs.
        {std::u16string(255, u'x'), std::string(255, 'x'), 300, ERROR_FILENAME_EXCED_RANGE},
    };
    for (const auto& row : rows) {
        driver->name = row.name;
        driver->creating = [&] { folder().write("M/Work/Sub/" + row.hostName, ""); };
        CHECK(ask(CreateMacNamedFile, work, "a", work.size() + row.room).error == row.error);
        CHECK(folder().names("M/Work/Sub").empty());
        // One that was there already does.
        driver->creating();
        CHECK(ask(LookUpMacName, work, "a", work.size() + row.room).error != ERROR_FILE_NOT_FOUND);
        CHECK(folder().names("M/Work/Sub").size() == 1);
        folder().remove("M/Work/Sub/" + row.hostName);
    }
    driver->name = u"\u65E5";
    driver->creating = [&] { folder().write("M/\u65E5", ""); };
    CHECK(ask(CreateMacNamedFile, "M:\\", "a").error == ERROR_INVALID_NAME);
    CHECK(journal().countOn("DeleteFileW", "\\\\?\\M:\\?") == 1);
}

TEST_CASE("Names on Mac volumes are in the PC's code page, and need the driver") {
    TestPc pc;
    const Answer made = {0, "M:\\Caf\xE9"};
    CHECK(ask(CreateMacNamedFile, "M:\\", "Caf\x8E") == made);
    CHECK(ask(LookUpMacName, "M:\\", "Caf\x8E") == made);
    CHECK(askUnicode("M:\\", u"Caf\u00E9") == made);
    CHECK(askUnicode("M:\\", u"Cafe").error == ERROR_FILE_NOT_FOUND);
    CHECK(pc.folder().names("M") == std::vector<std::string>{"Caf\u00E9"});
    pc.addDevice("TIDEWELL", nullptr);
    CHECK(ask(LookUpMacName, "M:\\", "Caf\x8E").error == ERROR_FILE_NOT_FOUND);
}
