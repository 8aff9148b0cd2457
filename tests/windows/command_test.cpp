// tidewell.exe as a user runs it.
#include "support/real_mac_file.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>

#include <cstdio>
#include <string>

namespace {

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
    const RealMacFile file("COMMAND.TXT", 1000, 10);
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
        CHECK(packed.bytes().size() == 128 + 1024 + 128);
    }
    CHECK(run("--version").output.substr(0, 9) == "tidewell ");
}
