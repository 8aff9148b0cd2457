// tidewell.exe as a user runs it.
#include "support/real_file.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>

#include <cstdio>
#include <fstream>
#include <string>

namespace {

// As NTFS keeps it, in a stream.
const std::string kFinderInformation = std::string("AFP\0\0\0\1", 7) + std::string(53, '\0');

struct Run {
    intptr_t status;
    std::string output;
};

Run run(const char* arguments) {
    const RealFile output("COMMAND.OUT");
    std::fflush(stdout);
    const int ownOutput = _dup(1);
    const int file = _open(output.path(), _O_WRONLY | _O_CREAT | _O_BINARY, _S_IREAD | _S_IWRITE);
    _dup2(file, 1);
    const intptr_t status =
        _spawnl(_P_WAIT, besideProgram("tidewell.exe").c_str(), "tidewell.exe", arguments, nullptr);
    _dup2(ownOutput, 1);
    _close(ownOutput);
    _close(file);
    return {status, output.bytes()};
}

}  // namespace

TEST_CASE("The command packs files and tells how it went") {
    const RealFile file("COMMAND.TXT", std::string(1000, 'd'));
    const RealFile information("COMMAND.TXT:AFP_AfpInfo", kFinderInformation);
    const RealFile packed("COMMAND.BIN");
    const char told[] = "packed COMMAND.TXT -> COMMAND.bin\n";
    struct {
        const char* arguments;
        intptr_t status;
        const char* output;
    } const rows[] = {
        {"pack COMMAND.TXT", 0, told},
        {"pack --replace=no COMMAND.TXT", 0, ""},
        {"pack --replace=yes MISSING.TXT COMMAND.TXT", 1, told},
        {"pack", 2, ""},
    };
    for (const auto& row : rows) {
        CAPTURE(row.arguments);
        const Run result = run(row.arguments);
        CHECK(result.status == row.status);
        CHECK(result.output == row.output);
        CHECK(packed.bytes().size() == 128 + 1024);
    }
    CHECK(run("--version").output.substr(0, 9) == "tidewell ");
}

TEST_CASE("The command extracts files, and brings back what it cannot replace") {
    const std::string original(1000, 'd');
    const RealFile file("COMMAND.TXT", original);
    const RealFile information("COMMAND.TXT:AFP_AfpInfo", kFinderInformation);
    const RealFile packed("COMMAND.BIN");
    REQUIRE(run("pack COMMAND.TXT").status == 0);
    std::ofstream(file.path(), std::ios::binary) << "another";
    const Run replaced = run("extract --replace=yes COMMAND.BIN");
    CHECK(replaced.status == 0);
    CHECK(replaced.output == "extracted COMMAND.BIN -> COMMAND.TXT\n");
    CHECK(file.bytes() == original);

    // The secondary header that it claims moves the forks behind the file's end; it has no CRC to tell.
    std::string damaged = packed.bytes();
    damaged[121] = 100;
    damaged[124] = damaged[125] = 0;
    const RealFile cut("CUT.BIN", damaged);
    CHECK(run("extract --replace=yes CUT.BIN").status == 1);
    CHECK(file.bytes() == original);
    WIN32_FIND_DATAA found;
    CHECK(FindFirstFileA("tw*.tmp", &found) == INVALID_HANDLE_VALUE);
}
