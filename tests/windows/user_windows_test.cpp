// Work on the PC's files, with the user in front of the system's windows.
#include "ui/user_windows.h"

#include "res/resource.h"
#include "support/archive_writer.h"
#include "support/extraction_case.h"
#include "support/modal_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("The dialog's answer decides about a file of the PC") {
    const TestPc pc;
    const ModuleState library;
    const TestWindow owner("owner");
    const Bytes data = patternOf(300'000);
    writeFile("F:\\in.bin", macBinaryFile({.file = {.data = data}, .name = bytesOf("Letter")}));
    struct {
        DWORD flags;
        int button;
        ErrorCode error;
        bool replaced;
    } const rows[] = {
        {0, IDNO, 0, false},
        {kMoreFollow, IDCANCEL, ERROR_CANCELLED, false},
        {0, IDYES, 0, true},
        {kMoreFollow, IDYESTOALL, 0, true},
    };
    for (const auto& row : rows) {
        CAPTURE(row.button);
        writeFile("N:\\Letter", bytesOf("mine"));
        DWORD flags = row.flags;
        const ModalDriver driver([&](HWND dialog) {
            CHECK(GetWindow(dialog, GW_OWNER) == owner);
            press(dialog, row.button);
        });
        CHECK(ExtractOriginalMacFile(owner, "F:\\in.bin", "N:\\", &flags, nullptr) == row.error);
        CHECK(driver.shown() == 1);
        CHECK(readFile("N:\\Letter") == (row.replaced ? data : bytesOf("mine")));
        CHECK(((flags & kReplaceAll) != 0) == (row.button == IDYESTOALL));
        CHECK(pc.nothingHeld());
    }
    CHECK(scriptedUser.asked == 0);
}
