// The exported conversions by whatever paths a program gives them: a whole Mac file, or an error.
#include "convert/create_macbinary.h"
#include "support/extraction_case.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(3000), .resource = patternOf(200, 7)};

// The current folder is N:\t, where in.bin is.
struct PathsPc : TestPc {
    PathsPc() {
        folder().makeFolder("N/t/sub");
        folder().makeFolder("N/t/x.y");
        setCurrentFolder("N:\\t");
        writeFile("N:\\t\\in.bin", macBinaryFile({kFile}));
    }
};

ErrorCode extract(const char* source, const char* folder) {
    DWORD flags = 0;
    return ExtractOriginalMacFile(nullptr, source, folder, &flags, nullptr);
}

}  // namespace

TEST_CASE("Forks and Finder information arrive by every kind of path") {
    const struct {
        const char* source;
        const char* folder;
        const char* file;  // that is written
    } rows[] = {
        {"in.bin", ".", "N:\\t\\Test"},
        {"N:in.bin", "sub", "N:\\t\\sub\\Test"},
        {"\\t\\in.bin", "\\t\\x.y", "N:\\t\\x.y\\Test"},
        {"sub\\..\\in.bin", "N:", "N:\\t\\Test"},
        {"\\\\?\\N:\\t\\in.bin", "\\\\?\\N:\\t\\sub", "N:\\t\\sub\\Test"},
        {"n:/t/in.bin", "n:/t//sub/", "N:\\t\\sub\\Test"},
        {"in.bin", "M:", "M:\\Test"},
    };
    for (const auto& row : rows) {
        CAPTURE(row.folder);
        const PathsPc pc;
        CHECK(extract(row.source, row.folder) == 0);
        CHECK(readMacFile(row.file) == keptOn(row.file[0], kFile));
    }
    for (const std::string source : {"file", "\\t\\file", "N:file", "\\\\?\\N:\\t\\file", "sub\\..\\file"}) {
        const PathsPc pc;
        writeMacFile("N:\\t\\file", kFile);
        const Conversion pack = {source, source + ".bin"};
        CHECK_MESSAGE(pack.run() == 0, source);
        CHECK(exists("N:\\t\\file.bin"));
    }
}

TEST_CASE("Devices, and paths that would become others, are refused as outputs") {
    PathsPc pc;
    writeMacFile("N:\\t\\file", kFile);
    writeFile("N:\\t\\a", bytesOf("another file"));
    pc.journal().clear();
    const std::string paths[] = {
        "\\\\.\\N:\\t\\a", "//./N:/t/a",        "\\\\.\\PhysicalDrive0", "NUL",
        "N:\\t\\aux.bin",  "\\\\?\\N:\\t\\a.",  "\\\\?\\N:/t/a",         "\\\\?\\N:\\t\\.\\a",
        "\\\\?\\a",        "\\\\?\\N:\\t\\NUL", "\\\\?\\Volume{0}\\t"};
    for (const std::string& path : paths) {
        CAPTURE(path);
        CHECK(CreateMacBinaryFile(nullptr, "N:\\t\\file", path.c_str(), nullptr) == ERROR_INVALID_NAME);
        CHECK(extract("in.bin", path.c_str()) == ERROR_INVALID_NAME);
    }
    CHECK(pc.journal().count("CreateFileA") == 0);
    CHECK(extract("in.bin", ("N:\\" + std::string(600, 'a')).c_str()) == ERROR_FILENAME_EXCED_RANGE);
    CHECK(extract("in.bin", ("\\\\?\\N:\\" + std::string(600, 'a')).c_str()) == ERROR_FILENAME_EXCED_RANGE);
    CHECK(readFile("N:\\t\\a") == bytesOf("another file"));
}

TEST_CASE("A path too long for a fork is told as one too long for the file, before anything is done") {
    for (const std::string drive : {"N", "M"}) {
        // The longest path of all is that of a fork.
        const size_t forkPart =
            drive == "N" ? sizeof ":AFP_Resource" : sizeof "\\{4DD19183-ACE2-11CF-BBF2-444553540000}";
        std::string folder = drive + ":";
        std::string hostFolder = drive;
        for (int i = 0; i < 22; ++i) {  // names that are their own short names
            folder += "\\deepdeep";
            hostFolder += "/deepdeep";
        }
        for (const bool longer : {false, true}) {
            TestPc pc;
            pc.folder().makeFolder(hostFolder);
            const std::string name(MAX_PATH - folder.size() - 1 - forkPart + longer, 'n');
            const std::string path = folder + "\\" + name;
            const Bytes source = macBinaryFile({.file = kFile, .name = bytesOf(name)});
            const ErrorCode wanted = longer ? ERROR_FILENAME_EXCED_RANGE : 0;
            CHECK(extractBytes(source, ".bin", folder) == wanted);
            CHECK(exists(path) != longer);
            writeFile(path, bytesOf("old"));
            CHECK(extractBytes(source, ".bin", folder) == wanted);
            CHECK(scriptedUser.asked == !longer);
            CHECK(readMacFile(path).data == (longer ? bytesOf("old") : kFile.data));
            CHECK(pc.nothingHeld());
        }
    }
}
