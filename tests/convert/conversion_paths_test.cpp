// Conversions by whatever paths a program gives them, and of files with whatever names: what is reached, and
// what must not be.
#include "convert/create_macbinary.h"
#include "support/extraction_case.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(3000), .resource = patternOf(200, 7)};

// The current folder is N:\t, where in.bin and the Mac file "file" are.
struct PathsPc : TestPc {
    PathsPc() {
        folder().makeFolder("N/t/sub");
        folder().makeFolder("N/t/x.y");
        setCurrentFolder("N:\\t");
        writeFile("N:\\t\\in.bin", macBinaryFile({kFile}));
        writeMacFile("N:\\t\\file", kFile);
    }
};

ErrorCode pack(const char* source, const char* output) {
    return CreateMacBinaryFile(nullptr, source, output, nullptr);
}

ErrorCode extract(const char* source, const char* folder) {
    DWORD flags = 0;
    return ExtractOriginalMacFile(nullptr, source, folder, &flags, nullptr);
}

Bytes withName(const char* extension, const std::string& name) {
    if (std::string(extension) == ".bin") return macBinaryFile({.file = kFile, .name = bytesOf(name)});
    return binHexFile(BinHexFile{.file = kFile, .name = bytesOf(name)});
}

}  // namespace

TEST_CASE("Forks and Finder information arrive by every kind of path") {
    const auto check = [](const char* source, const char* folder, const std::string& written) {
        CAPTURE(folder);
        const PathsPc pc;
        CHECK(extract(source, folder) == 0);
        CHECK(readMacFile(written) == keptOn(written[0], kFile));
    };
    check("in.bin", "x.y", "N:\\t\\x.y\\Test");
    check("N:in.bin", "sub", "N:\\t\\sub\\Test");
    check("sub\\..\\in.bin", "N:", "N:\\t\\Test");
    check("\\\\?\\N:\\t\\in.bin", "\\\\?\\N:\\t\\sub", "N:\\t\\sub\\Test");
    check("n:/t/in.bin", "n:/t//sub/", "N:\\t\\sub\\Test");
    check("in.bin", "M:", "M:\\Test");
    for (const std::string source : {"file", "\\t\\file", "N:file", "\\\\?\\N:\\t\\file", "sub\\..\\file"}) {
        const PathsPc pc;
        CHECK_MESSAGE(pack(source.c_str(), (source + ".bin").c_str()) == 0, source);
        CHECK(exists("N:\\t\\file.bin"));
    }
}

TEST_CASE("What cannot be converted, and where nothing can be put") {
    PathsPc pc;
    writeMacFile("M:\\file", {.data = patternOf(200000), .resource = patternOf(200000)});
    writeFile("M:\\one.BIN", macBinaryFile({kFile}));
    writeFile("F:\\file", patternOf(10));
    writeFile("N:\\plain", patternOf(10));
    pc.folder().makeFolder("M/folder");
    pc.drive('F')->volume->setFreeSpace(300000);
    const std::string name(300, 'a');
    const std::string out = "F:\\out.bin";
    const struct {
        decltype(pack)* convert;
        std::string source, output;
        ErrorCode error;
    } rows[] = {
        {pack, "F:\\file", out, ERROR_INVALID_PARAMETER},
        {pack, "M:\\missing", out, ERROR_INVALID_PARAMETER},
        {pack, "\\\\server\\share\\file", out, ERROR_INVALID_PARAMETER},
        {pack, "M:\\" + name, out, ERROR_INVALID_PARAMETER},
        {pack, "M:\\" + name + name, out, ERROR_INVALID_PARAMETER},
        {pack, "M:\\folder", out, ERROR_ACCESS_DENIED},
        {pack, "M:\\{4DD19184-ACE2-11CF-BBF2-444553540000}", out, ERROR_INVALID_NAME},
        {pack, "M:\\file", "F:\\no folder\\out.bin", ERROR_PATH_NOT_FOUND},
        {pack, "M:\\file", "F:\\" + name, ERROR_FILENAME_EXCED_RANGE},
        {pack, "M:\\file", out, ERROR_DISK_FULL},
        {pack, "N:\\plain", out, 0},  // it has no Finder information
        {extract, "M:\\one.BIN", "F:\\file", ERROR_BAD_PATHNAME},
        {extract, "M:\\one.BIN", "F:\\no", ERROR_FILE_NOT_FOUND},
        {extract, "M:\\one.BIN", "N:\\" + name + name, ERROR_FILENAME_EXCED_RANGE},
        {extract, "F:\\no.bin", "F:\\", ERROR_FILE_NOT_FOUND},
        {extract, "F:\\no.Hqx", "F:\\", ERROR_FILE_NOT_FOUND},
        {extract, "M:\\one.bin.txt", "F:\\", ERROR_INVALID_DATA},
    };
    for (const auto& row : rows) {
        CAPTURE(row.source);
        CHECK(row.convert(row.source.c_str(), row.output.c_str()) == row.error);
        CHECK(pc.folder().names("F") == std::vector<std::string>{"file"});
    }
    CHECK(extract("M:\\one.BIN", "F:\\") == 0);
    for (const auto convert : {pack, extract}) {
        CHECK(convert(nullptr, "F:\\") == ERROR_INVALID_PARAMETER);
        CHECK(convert("M:\\one.BIN", nullptr) == ERROR_INVALID_PARAMETER);
    }
    CHECK(ExtractOriginalMacFile(nullptr, "M:\\one.BIN", "F:\\", nullptr, nullptr) ==
          ERROR_INVALID_PARAMETER);
    CHECK(pc.nothingHeld());
}

TEST_CASE("Devices, and paths that would become others, are refused as outputs") {
    PathsPc pc;
    writeFile("N:\\t\\a", bytesOf("another file"));
    pc.journal().clear();
    for (const char* path : {"\\\\.\\N:\\t\\a", "//./N:/t/a", "\\\\.\\PhysicalDrive0", "NUL",
                             "N:\\t\\aux.bin", "\\\\?\\N:\\t\\a.", "\\\\?\\N:/t/a", "\\\\?\\N:\\t\\.\\a",
                             "\\\\?\\a", "\\\\?\\N:\\t\\NUL", "\\\\?\\Volume{0}\\t"}) {
        CAPTURE(path);
        CHECK(pack("file", path) == ERROR_INVALID_NAME);
        CHECK(extract("in.bin", path) == ERROR_INVALID_NAME);
    }
    CHECK(pc.journal().count("CreateFileA") == 0);
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
            const ErrorCode wanted = longer ? ERROR_FILENAME_EXCED_RANGE : 0;
            CHECK(extractBytes(withName(".bin", name), ".bin", folder) == wanted);
            CHECK(exists(path) != longer);
            writeFile(path, bytesOf("old"));
            CHECK(extractBytes(withName(".bin", name), ".bin", folder) == wanted);
            CHECK(scriptedUser.asked == !longer);
            CHECK(readMacFile(path).data == (longer ? bytesOf("old") : kFile.data));
            CHECK(pc.nothingHeld());
        }
    }
    // On NT 3 may mean it, too; Windows 98 says that of every path below a file.
    for (const pc::Platform platform : {pc::Platform::nt, pc::Platform::windows98}) {
        TestPc pc(platform);
        const std::string fork = "M:\\Test\\{4DD19183-ACE2-11CF-BBF2-444553540000}";
        pc.faults().failAlways("GetFileAttributesA", fork, ERROR_PATH_NOT_FOUND);
        CHECK(extractBytes(withName(".bin", "Test"), ".bin", "M:") ==
              (platform == pc::Platform::nt ? ERROR_PATH_NOT_FOUND : 0));
    }
}

TEST_CASE("A source never becomes its own output") {
    TestPc pc;
    const std::string mac = "M:\\file.bin";
    const std::string ntfs = "N:\\A long name.bin";
    writeMacFile(mac, kFile);
    writeMacFile(ntfs, kFile);
    pc.folder().link("M/file.bin", "M/link");
    const auto check = [&](const std::string& output, ErrorCode error) {
        const std::string& source = output[0] == 'M' ? mac : ntfs;
        CHECK_MESSAGE(pack(source.c_str(), output.c_str()) == error, output);
    };
    check("M:\\link", ERROR_SHARING_VIOLATION);
    check("N:\\a LONG name.BIN", ERROR_SHARING_VIOLATION);
    check(ntfs + ":AFP_AfpInfo", ERROR_INVALID_NAME);
    check(ntfs + ":AFP_Resource", ERROR_INVALID_NAME);
    check(mac + "\\{4DD19184-ACE2-11CF-BBF2-444553540000}", ERROR_INVALID_NAME);
    check("M:\\._file.bin", ERROR_ACCESS_DENIED);
    CHECK(readMacFile(mac) == kFile);
    CHECK(readMacFile(ntfs) == keptOn('N', kFile));
    CHECK(pc.nothingHeld());
}

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
            }
        }
    }
}

TEST_CASE("Names that Windows takes for something else") {
    TestPc pc;
    const auto check = [](const std::string& macName, const std::string& file) {
        CAPTURE(macName);
        for (const std::string drive : {"F:", "N:"}) {
            CHECK(extractBytes(withName(".bin", macName), ".bin", drive) == 0);
            CHECK(readMacFile(drive + "\\" + file) == keptOn(drive[0], kFile));
        }
    };
    for (const std::string device :
         {"NUL", "Con", "prn", "com9", "com\xB3", "conin$", "CONOUT$", "lpt\xB2", "LPT\xB9"})
        check(device, device + "_");
    for (const std::string file : {"COM0", "COM10", "COMX"})
        check(file, file);
    check("Clock$.x", "Clock$_.x");
    check("lpt1.bin", "lpt1_.bin");
    check("AUX .txt", "AUX_ .txt");
    check("Read Me . ", "Read Me");
    check("..", "__");
    check("\x01z\x1F\x7F", "_z_\x7F");
    check(" ", "_");
    check("{4DD19184-ace2-11CF-BBF2-444553540000}", "_4DD19184-ace2-11CF-BBF2-444553540000}");
    check("{4DD19183-ACE2-11CF-BBF2-444553540000}. ", "_4DD19183-ACE2-11CF-BBF2-444553540000}");
    check("Resum\x8E. ", "Resum\x8E");
    // Half a character takes nothing of what follows the name.
    pc.setCodePage(932);
    check("Resum\x8E. ", "Resum_");
    check("\x93\xFA", "\x93\xFA");
}

TEST_CASE("A name that begins with NUL is none, and nobody is asked") {
    for (const char* const extension : {".bin", ".hqx"}) {
        TestPc pc;
        const Bytes source = withName(extension, std::string("\0name", 5));
        CHECK(extractBytes(source, extension, "M:") == ERROR_INVALID_DATA);
        CHECK(pc.journal().count("DeviceIoControl") == 0);
    }
}

TEST_CASE("A file that appears after it was looked for is asked about, and a failure leaves it alone") {
    const Bytes whole = binHexFile(BinHexFile{.file = {.data = patternOf(5000)}});
    Bytes damaged = whole;
    damaged[900] = damaged[900] == 'A' ? 'B' : 'A';
    for (const std::string& folder : {std::string("F:\\"), std::string("N:\\")}) {
        for (const Bytes& archive : {whole, damaged}) {
            int looks = 0;
            bool hit = true;
            for (int n = 1; hit; ++n) {
                TestPc pc;
                const std::string output = folder + "Test";
                writeFile(output, bytesOf("somebody else's"));
                writeFile("F:\\in.hqx", archive);
                scriptedUser.answer = IDNO;
                DWORD flags = 0;
                pc.faults().failCall(n, ERROR_FILE_NOT_FOUND);
                ExtractOriginalMacFile(nullptr, "F:\\in.hqx", folder.c_str(), &flags, nullptr);
                hit = pc.faults().hit();
                // The first look; the second is the question's own.
                const bool look =
                    pc.faults().hitCall() == "GetFileAttributesA" && pc.faults().hitSubject() == output;
                pc.faults().clear();
                if (!look || ++looks != 1) continue;
                CHECK(scriptedUser.asked == 1);
                CHECK(readFile(output) == bytesOf("somebody else's"));
                CHECK(pc.nothingHeld());
            }
            CHECK(looks == 2);
        }
    }
}
