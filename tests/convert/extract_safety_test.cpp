// What an extraction must not reach, whatever a file asks for.
#include "support/archive_writer.h"
#include "support/extraction_case.h"
#include "support/scripted_user.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(300), .resource = patternOf(20)};

Bytes withName(const char* extension, const std::string& name) {
    if (std::string(extension) == ".bin") return macBinaryFile({.file = kFile, .name = bytesOf(name)});
    return binHexFile(BinHexFile{.file = kFile, .name = bytesOf(name)});
}

}  // namespace

TEST_CASE("A file that holds one of its own name stays what it is") {
    for (const char drive : {'F', 'N', 'M'}) {
        for (const char* const extension : {".bin", ".hqx"}) {
            for (const bool damaged : {false, true}) {
                TestPc pc;
                const std::string folder = std::string(1, drive) + ":\\";
                const std::string path = folder + "in" + extension;
                const Bytes whole = withName(extension, std::string("in") + extension);
                const Bytes source = damaged ? cutTo(whole, whole.size() - 30) : whole;
                writeFile(path, source);
                DWORD flags = kReplaceAll;
                const ErrorCode error =
                    ExtractOriginalMacFile(nullptr, path.c_str(), folder.c_str(), &flags, nullptr);
                CHECK(error == (damaged ? ERROR_HANDLE_EOF : ERROR_SHARING_VIOLATION));
                CHECK(readFile(path) == source);
                CHECK(pc.nothingHeld());
            }
        }
    }
}

TEST_CASE("Names that Windows takes for something else") {
    const struct {
        const char* macName;
        const char* file;  // that is made of it
    } names[] = {
        {"NUL", "NUL_"},
        {"lpt1.bin", "lpt1_.bin"},
        {"AUX .txt", "AUX_ .txt"},
        {"conin$", "conin$_"},
        {"COM\xB2", "COM\xB2_"},
        {"lpt\xB3", "lpt\xB3_"},
        {"LPT\xB9", "LPT\xB9_"},
        {"COM0", "COM0"},
        {"CONOUT$s", "CONOUT$s"},
        {"COM10", "COM10"},
        {"CONSOLE", "CONSOLE"},
        {"Dr.", "Dr"},
        {"Read Me . ", "Read Me"},
        {"..", "__"},
        {"Icon\r", "Icon_"},
        {"\x01"
         "a\x1F\x7F",
         "_a_\x7F"},
        {" ", "_"},
        {"{4DD19184-ace2-11CF-BBF2-444553540000}", "_4DD19184-ace2-11CF-BBF2-444553540000}"},
        {"{4DD19183-ACE2-11CF-BBF2-444553540000}. ", "_4DD19183-ACE2-11CF-BBF2-444553540000}"},
    };
    for (const char drive : {'F', 'N'}) {
        for (const auto& name : names) {
            CAPTURE(name.macName);
            TestPc pc;
            CHECK(extractBytes(withName(".bin", name.macName), ".bin", drive) == 0);
            CHECK(readFile(std::string(1, drive) + ":\\" + name.file) == kFile.data);
        }
    }
}

TEST_CASE("A name that ends in half a character takes nothing of what follows it") {
    TestPc pc;
    pc.setCodePage(932);
    CHECK(extractBytes(withName(".bin", "Resum\x8E. "), ".bin", 'N') == 0);
    CHECK(readMacFile("N:\\Resum_").resource == kFile.resource);
}

TEST_CASE("A name that begins with NUL is none, and nobody is asked") {
    for (const char drive : {'F', 'N', 'M'}) {
        for (const char* const extension : {".bin", ".hqx"}) {
            TestPc pc;
            CHECK(extractBytes(withName(extension, std::string("\0name", 5)), extension, drive) ==
                  ERROR_INVALID_DATA);
            CHECK(pc.journal().count("DeviceIoControl") == 0);
            CHECK(scriptedUser.asked == 0);
        }
    }
}

TEST_CASE("A caller without the arguments gets 87") {
    TestPc pc;
    DWORD flags = 0;
    CHECK(ExtractOriginalMacFile(nullptr, nullptr, "F:\\", &flags, nullptr) == ERROR_INVALID_PARAMETER);
    CHECK(ExtractOriginalMacFile(nullptr, "F:\\in.bin", nullptr, &flags, nullptr) == ERROR_INVALID_PARAMETER);
    CHECK(ExtractOriginalMacFile(nullptr, "F:\\in.bin", "F:\\", nullptr, nullptr) == ERROR_INVALID_PARAMETER);
}
