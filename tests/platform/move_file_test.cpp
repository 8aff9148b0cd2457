#include "support/test_pc.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

TEST_CASE("A file moves with its forks, over no other, and not while one of them is open") {
    for (const std::string drive : {"F", "N", "M"}) {
        TestPc pc;
        pc.folder().makeFolder(drive + "/Sub");
        const auto in = [&](const std::string& name) {
            return name[0] == '\\' ? name : drive + ":\\" + name;
        };
        const auto move = [&](const std::string& from, const std::string& to) {
            return MoveFileA(in(from).c_str(), in(to).c_str()) ? 0 : GetLastError();
        };
        for (const char* const name : {"file2", "Sub\\c", "damaged"})
            writeFile(in(name), {});
        for (const char* const beside : {"/._damaged", "/._left", "/left:AFP_Resource"})
            pc.folder().write(drive + beside, "what is no AppleDouble file");
        writeMacFile(in("file"), {.data = patternOf(100), .resource = patternOf(300)});
        const MacFile file = readMacFile(in("file"));
        const auto before = pc.folder().names(drive);
        const std::string resource = kResourceFile, other = drive == "F" ? "N:\\b" : "F:\\b";
        for (const char* const fork : {"", ":AFP_Resource", kResourceFile, kFinderFile}) {
            tidewell::OwnedFile open;
            if (tidewell::OpenForReading((in("file") + fork).c_str(), open) == 0)
                CHECK(move("file", "b") == 32);
        }
        const struct {
            std::string from, to;
            pc::Error error;
            const char* drives = "FNM";
        } rows[] = {{"none", "b", 2},
                    {"file", "none\\b", 3},
                    {"file", "\\\\.\\NUL", 2},
                    {"file", "\\\\?\\" + other, 17},
                    {"file", "Sub\\c", 183},
                    {"Sub", "b", 5},
                    {"file", "left", 183, "NM"},
                    {"file:AFP_Resource", "b", 123, "N"},
                    {"file", "b:AFP_Resource", 123, "N"},
                    {"file", "._b", 5, "M"},
                    {"file" + resource, "b", 5, "M"},
                    {"file", "file2" + resource, 5, "M"},
                    {"damaged", "b", 1392, "M"}};
        for (const auto& row : rows) {
            if (std::string(row.drives).find(drive) == std::string::npos) continue;
            CHECK_MESSAGE(move(row.from, row.to) == row.error, drive, row.from, row.to);
        }
        CHECK(pc.folder().names(drive) == before);
        REQUIRE(move("file", "Sub\\b") == 0);
        CHECK(readMacFile(in("Sub\\b")) == file);
        CHECK(pc.folder().names(drive).size() == before.size() - (drive == "F" ? 1 : drive == "N" ? 3 : 2));
    }
}
