// tidewell.exe as a user runs it.
#include "support/real_mac_file.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <string>

namespace {

struct Run {
    DWORD status;
    std::string output;
};

HANDLE openForChild(const char* path, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
    return CreateFileA(path, access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, disposition, 0, nullptr);
}

std::string textOf(const RealFile& file) {
    const HANDLE handle = openForChild(file.path(), GENERIC_READ, OPEN_EXISTING);
    std::string text(GetFileSize(handle, nullptr), '\0');
    DWORD got = 0;
    ReadFile(handle, text.data(), static_cast<DWORD>(text.size()), &got, nullptr);
    CloseHandle(handle);
    return text;
}

Run run(const std::string& arguments) {
    const RealFile output("COMMAND.OUT");
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = openForChild("NUL", GENERIC_READ, OPEN_EXISTING);
    startup.hStdError = openForChild("NUL", GENERIC_WRITE, OPEN_EXISTING);
    startup.hStdOutput = openForChild(output.path(), GENERIC_WRITE, CREATE_ALWAYS);
    std::string line = "tidewell.exe " + arguments;
    PROCESS_INFORMATION process = {};
    REQUIRE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                           &process));
    WaitForSingleObject(process.hProcess, 30000);
    Run result = {STILL_ACTIVE, {}};
    GetExitCodeProcess(process.hProcess, &result.status);
    for (const HANDLE handle :
         {process.hProcess, process.hThread, startup.hStdInput, startup.hStdError, startup.hStdOutput})
        CloseHandle(handle);
    result.output = textOf(output);
    return result;
}

}  // namespace

TEST_CASE("The command packs files and tells how it went") {
    const RealMacFile file("COMMAND.TXT", 1000, 10);
    const RealFile output("COMMAND.BIN");
    Run result = run("pack COMMAND.TXT");
    CHECK(result.status == 0);
    CHECK(result.output == "packed COMMAND.TXT -> COMMAND.bin\n");
    CHECK(output.size() == 128 + 1024 + 128);

    result = run("pack --replace=no COMMAND.TXT");
    CHECK(result.status == 0);
    CHECK(result.output.empty());
    result = run("pack --replace=yes MISSING.TXT COMMAND.TXT");
    CHECK(result.status == 1);
    CHECK(result.output == "packed COMMAND.TXT -> COMMAND.bin\n");
    CHECK(run("pack").status == 2);
    CHECK(run("--version").output.substr(0, 9) == "tidewell ");
}
