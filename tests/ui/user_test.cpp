#include "ui/user.h"

#include "support/archive_writer.h"
#include "support/extraction_case.h"
#include "ui/pump_messages.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

ErrorCode extractWithProgress(bool shown) {
    ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "Extracting", nullptr, FALSE);
    REQUIRE(progress != nullptr);
    DWORD flags = 0;
    const ErrorCode error = ExtractOriginalMacFile(nullptr, "F:\\in.bin", "N:\\", &flags, &progress);
    CHECK((ProgressSetIcon(progress, reinterpret_cast<HICON>(1)) != 0) == shown);
    ProgressDestroy(progress);
    return error;
}

}  // namespace

TEST_CASE("With nobody there workers work, but replace nothing; whoever is put in charge is asked instead") {
    TestPc pc;
    const Bytes source = macBinaryFile({.file = {.data = patternOf(70000)}, .name = bytesOf("Letter")});
    writeFile("F:\\in.bin", source);
    {
        const UserInCharge nobody(nullptr);
        CHECK(extractWithProgress(false) == 0);
        CHECK(readFile("N:\\Letter") == patternOf(70000));
        writeFile("N:\\Letter", bytesOf("mine"));
        SetLastError(ERROR_CRC);
        CHECK(extractWithProgress(false) == ERROR_FILE_EXISTS);
        CHECK(readFile("N:\\Letter") == bytesOf("mine"));
        PumpMessages(nullptr);
    }
    CHECK(scriptedUser.created == 0);
    CHECK(scriptedUser.asked == 0);
    CHECK(scriptedUser.pumps == 0);
    CHECK(extractWithProgress(true) == 0);
    CHECK(scriptedUser.asked == 1);
    PumpMessages(nullptr);
    CHECK(scriptedUser.pumps == 1);
    CHECK(pc.nothingHeld());
}
