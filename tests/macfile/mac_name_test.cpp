#include "macfile/mac_name.h"

#include "macfile/fork_paths.h"
#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>
#include <functional>

using namespace tidewell;

namespace {

// A length-prefixed Mac name.
struct MacNameBytes {
    uint8_t bytes[256] = {};
    explicit MacNameBytes(const std::string& name) {
        bytes[0] = static_cast<uint8_t>(name.size());
        std::memcpy(bytes + 1, name.data(), name.size());
    }
    operator const uint8_t*() const { return bytes; }
};

using Operation = ErrorCode (*)(const char*, const uint8_t*, uint32_t, char*, DWORD);

struct Answer {
    ErrorCode error;
    std::string path;
};

Answer ask(Operation operation, const std::string& folder, const std::string& macName) {
    char path[kPathCapacity] = "";
    const ErrorCode error = operation(folder.c_str(), MacNameBytes(macName), 0, path, sizeof path);
    return {error, error == 0 ? path : ""};
}

Answer askUnicode(const std::string& folder, std::u16string_view name) {
    uint16_t units[300] = {};
    std::copy(name.begin(), name.end(), units);
    char path[kPathCapacity] = "";
    const ErrorCode error =
        LookUpUnicodeMacName(folder.c_str(), static_cast<DWORD>(name.size()), units, path, sizeof path);
    return {error, error == 0 ? path : ""};
}

// Keeps the last request it was sent.
class Recorder final : public pc::Device {
  public:
    Bytes request;
    // The reply's name, UTF-16.
    std::u16string name = u"Shown";

    pc::Error control(uint32_t code, std::span<const uint8_t> input, std::span<uint8_t> output,
                      size_t& returned) override {
        CHECK(code == 0x00222033);
        CHECK(output.size() == 513);
        request.assign(input.begin(), input.end());
        for (size_t i = 0; i < name.size(); ++i) {
            output[1 + 2 * i] = static_cast<uint8_t>(name[i]);
            output[2 + 2 * i] = static_cast<uint8_t>(name[i] >> 8);
        }
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

}  // namespace

TEST_CASE("Names outside Mac volumes: forbidden characters become _") {
    TestPc pc;
    for (const std::string& drive : {std::string("F:\\"), std::string("N:\\")}) {
        CAPTURE(drive);
        CHECK(ask(LookUpMacName, drive, "Read Me: part/2").error == ERROR_FILE_NOT_FOUND);
        const Answer made = ask(CreateMacNamedFile, drive, "Read Me: part/2");
        REQUIRE(made.error == 0);
        CHECK(made.path == drive + "Read Me_ part_2");
        writeFile(made.path, bytesOf("kept"));
        // Other Mac names with the same name here find it, and making one of them keeps it.
        for (const char* other : {"Read Me: part/2", "Read Me_ part?2", "Read Me< part>2", "Read Me\" part*2",
                                  "Read Me| part\\2"}) {
            CHECK(ask(LookUpMacName, drive, other).path == made.path);
            CHECK(ask(CreateMacNamedFile, drive, other).path == made.path);
        }
        CHECK(readFile(made.path) == bytesOf("kept"));
        CHECK(ask(LookUpMacName, drive + "None", "a").error == ERROR_FILE_NOT_FOUND);
        CHECK(askUnicode(drive, u"Read").error == ERROR_INVALID_FUNCTION);
        // Bytes of the Mac's character set stay, and read as other characters.
        CHECK(ask(CreateMacNamedFile, drive, "\x81ngstr\x9Am").path == drive + "\x81ngstr\x9Am");
    }
    CHECK(pc.folder().has("F/\u0081ngstr\u0161m"));
    CHECK(pc.journal().count("DeviceIoControl") == 0);
    CHECK(pc.nothingHeld());
}

TEST_CASE("Names outside Mac volumes: a name never leads out of its folder") {
    TestPc pc;
    pc.folder().makeFolder("N/Sub");
    for (const std::string& name :
         {std::string(".."), std::string("."), std::string(""), std::string("..\0x", 4),
          std::string("..\\..\\x"), std::string("C:\\x")}) {
        CAPTURE(name);
        ask(CreateMacNamedFile, "N:\\Sub", name);
        CHECK(pc.folder().names("N") == std::vector<std::string>{"Sub"});
    }
    CHECK(pc.folder().names("F").empty());
    CHECK(ask(CreateMacNamedFile, "N:\\Sub", std::string(255, 'x')).error != 0);
}

TEST_CASE("The Windows form of a name needs room for its NUL") {
    const MacNameBytes name("a:b");
    char out[8] = "unsaid";
    SetLastError(0);
    CHECK(MacNameToWindowsName(name, out, 3) == 0);
    CHECK(GetLastError() == ERROR_MORE_DATA);
    CHECK(std::string(out) == "unsaid");
    CHECK(MacNameToWindowsName(name, out, 4) == 1);
    CHECK(std::string(out) == "a_b");
    CHECK(MacNameToWindowsName(MacNameBytes(""), out, 1) == 1);
    CHECK(out[0] == '\0');
}

TEST_CASE_FIXTURE(RecordingPc,
                  "Names on Mac volumes: the driver is sent the folder's components and the name") {
    CHECK(ask(LookUpMacName, "M:\\Work\\Sub", "a/b").path == "M:\\Work\\Sub\\Shown");
    Bytes expected(1026);
    const char16_t folder[] = u"M:\0Work\0Sub";
    for (size_t i = 0; i < std::size(folder); ++i)
        expected[2 * i] = static_cast<uint8_t>(folder[i]);
    expected[512] = 1;
    expected[518] = 3;
    std::copy_n("a/b", 3, expected.begin() + 519);
    CHECK(driver->request == expected);

    CHECK(ask(CreateMacNamedFile, "M:\\Work\\Sub", "a/b").error == 0);
    expected[512] = 0;
    CHECK(driver->request == expected);

    CHECK(askUnicode("M:\\Work\\Sub", u"a\u65E5").path == "M:\\Work\\Sub\\Shown");
    std::fill(expected.begin() + 514, expected.end(), uint8_t{0});
    expected[512] = 1;
    expected[513] = 1;
    expected[514] = 2;
    expected[516] = 'a';
    expected[518] = 0xE5;
    expected[519] = 0x65;
    CHECK(driver->request == expected);
    CHECK(nothingHeld());

    CHECK(ask(LookUpMacName, "M:\\Work\\", "a").path == "M:\\Work\\Shown");
    CHECK(ask(LookUpMacName, "M:\\", "a").path == "M:\\Shown");
    CHECK(askUnicode("M:\\", std::u16string(255, u'x')).error == 0);
    CHECK(askUnicode("M:\\", std::u16string(256, u'x')).error == ERROR_INVALID_PARAMETER);
}

TEST_CASE_FIXTURE(RecordingPc, "Names on Mac volumes: what does not fit is told") {
    char path[kPathCapacity];
    const MacNameBytes name("a");
    const std::string folder = "M:\\Work\\Sub";
    for (const size_t capacity : {folder.size(), folder.size() + 1, folder.size() + 6}) {
        CHECK(LookUpMacName(folder.c_str(), name, 0, path, static_cast<DWORD>(capacity)) ==
              ERROR_INSUFFICIENT_BUFFER);
    }
    CHECK(LookUpMacName(folder.c_str(), name, 0, path, static_cast<DWORD>(folder.size() + 7)) == 0);
    // The nearest that the code page has could be the name of another file.
    driver->name = u"\u221E";
    CHECK(ask(LookUpMacName, folder, "a").error == ERROR_INVALID_NAME);
    driver->name = std::u16string(256, u'x');  // a reply without a NUL
    CHECK(ask(LookUpMacName, folder, "a").path == folder + "\\" + std::string(256, 'x'));
    // A folder of 256 units with its NUL fits the request, a longer one does not.
    setPathLimit(600);
    std::string deep = "M:\\" + std::string(126, 'd');
    this->folder().makeFolder("M/" + std::string(126, 'd') + "/" + std::string(126, 'd'));
    deep += "\\" + std::string(125, 'd');
    this->folder().makeFolder("M/" + std::string(126, 'd') + "/" + std::string(125, 'd'));
    driver->name = u"Shown";
    CHECK(ask(LookUpMacName, deep, "a").error == 0);
    CHECK(ask(LookUpMacName, deep + "d", "a").error == ERROR_INSUFFICIENT_BUFFER);
    CHECK(nothingHeld());
}

TEST_CASE("Names on Mac volumes: a file is made under its Mac name, and found") {
    TestPc pc;
    const std::string folder = "M:\\";
    CHECK(ask(LookUpMacName, folder, "Caf\x8E").error == ERROR_FILE_NOT_FOUND);
    const Answer made = ask(CreateMacNamedFile, folder, "Caf\x8E");
    REQUIRE(made.error == 0);
    CHECK(made.path == "M:\\Caf\xE9");  // in the PC's code page
    writeFile(made.path, bytesOf("kept"));
    CHECK(ask(LookUpMacName, folder, "Caf\x8E").path == made.path);
    CHECK(ask(CreateMacNamedFile, folder, "Caf\x8E").path == made.path);
    CHECK(askUnicode(folder, u"Caf\u00E9").path == made.path);
    CHECK(askUnicode(folder, u"Cafe").error == ERROR_FILE_NOT_FOUND);
    CHECK(readFile(made.path) == bytesOf("kept"));
    CHECK(pc.folder().names("M") == std::vector<std::string>{"Caf\u00E9"});

    ForkPathBuffers paths;
    GetForkPaths(made.path.c_str(), paths);
    writeFile(paths.resourcePath, bytesOf("fork"));
    CHECK(pc.folder().has("M/._Caf\u00E9"));
}

TEST_CASE("Names in a folder whose characters end in a backslash") {
    TestPc pc;
    pc.setCodePage(932);
    const std::string so = "\x83\x5C";  // its second byte is a backslash
    for (const char drive : {'F', 'N', 'M'}) {
        pc.folder().makeFolder(std::string(1, drive) + "/\u30BD");
        const std::string folder = drive + (":\\" + so);
        CAPTURE(folder);
        CHECK(ask(LookUpMacName, folder, "a").error == ERROR_FILE_NOT_FOUND);
        CHECK(ask(CreateMacNamedFile, folder, "a").path == folder + "\\a");
        CHECK(ask(LookUpMacName, folder, "a").path == folder + "\\a");
        CHECK(pc.folder().has(std::string(1, drive) + "/\u30BD/a"));
    }
}

TEST_CASE("A PC without the driver cannot map names on Mac volumes") {
    TestPc pc;
    pc.addDevice("TIDEWELL", nullptr);
    CHECK(ask(LookUpMacName, "M:\\", "a").error == ERROR_FILE_NOT_FOUND);
    CHECK(ask(CreateMacNamedFile, "M:\\", "a").error == ERROR_FILE_NOT_FOUND);
    CHECK(ask(CreateMacNamedFile, "F:\\", "a").error == 0);
}

namespace {

// A volume whose kind cannot be told is treated as one of another kind: then the name is made without the
// driver. What fails behind that is the result.
void sweep(const std::string& folder, const std::function<Answer()>& operation, bool missing) {
    for (int n = 1;; ++n) {
        TestPc pc;
        if (!missing) ask(CreateMacNamedFile, folder, "Name");
        pc.journal().clear();
        pc.faults().failCall(n, ERROR_CRC);
        const Answer answer = operation();
        CAPTURE(folder);
        CAPTURE(n);
        CAPTURE(pc.faults().hitCall());
        CAPTURE(pc.journal().text());
        CHECK(pc.nothingHeld());
        if (!pc.faults().hit()) {
            CHECK(n > 2);
            return;
        }
        if (answer.error == pc.faults().injected()) continue;
        const std::string& call = pc.faults().hitCall();
        CHECK((call == "GetVolumeInformationA" || call == "CreateFileA" || call == "CloseHandle" ||
               call == "GetFileSize"));
        if (answer.error == 0) CHECK(exists(answer.path));
    }
}

}  // namespace

TEST_CASE("Names: every system call fails in turn") {
    for (const std::string& folder : {std::string("F:\\"), std::string("N:\\"), std::string("M:\\")}) {
        sweep(
            folder, [&] { return ask(LookUpMacName, folder, "Name"); }, false);
        sweep(
            folder, [&] { return ask(CreateMacNamedFile, folder, "Name"); }, true);
        sweep(
            folder, [&] { return ask(CreateMacNamedFile, folder, "Name"); }, false);
    }
    sweep(
        "M:\\", [&] { return askUnicode("M:\\", u"Name"); }, false);
}
