// What an extraction must not reach, whatever a file asks for.
#include "support/extraction_case.h"

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
    for (const std::string folder : {"F:\\", "N:\\", "M:\\"}) {
        for (const std::string name : {"in.bin", "in.hqx"}) {
            for (const bool damaged : {false, true}) {
                TestPc pc;
                const std::string path = folder + name;
                const Bytes whole = withName(name.c_str() + 2, name);
                const Bytes source = damaged ? cutTo(whole, whole.size() - 30) : whole;
                writeFile(path, source);
                const ErrorCode error = Conversion{path, path}.run(nullptr, kReplaceAll);
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
        {"lpt\xB2", "lpt\xB2_"},
        {"LPT\xB9", "LPT\xB9_"},
        {"COM0", "COM0"},
        {"COM10", "COM10"},
        {"COMX", "COMX"},
        {"Read Me . ", "Read Me"},
        {"..", "__"},
        {"\x01z\x1F\x7F", "_z_\x7F"},
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
    for (const char* const extension : {".bin", ".hqx"}) {
        TestPc pc;
        CHECK(extractBytes(withName(extension, std::string("\0name", 5)), extension, 'M') ==
              ERROR_INVALID_DATA);
        CHECK(pc.journal().count("DeviceIoControl") == 0);
    }
}
