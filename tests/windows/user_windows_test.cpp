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
    for (const int button : {IDCANCEL, IDYESTOALL}) {
        const bool replaced = button == IDYESTOALL;
        writeFile("N:\\Letter", bytesOf("mine"));
        DWORD flags = kMoreFollow;
        const ModalDriver driver([&](HWND dialog) {
            CHECK(GetWindow(dialog, GW_OWNER) == owner);
            press(dialog, button);
        });
        const ErrorCode error = ExtractOriginalMacFile(owner, "F:\\in.bin", "N:\\", &flags, nullptr);
        CHECK(error == (replaced ? 0 : ERROR_CANCELLED));
        CHECK(driver.shown() == 1);
        CHECK(readFile("N:\\Letter") == (replaced ? data : bytesOf("mine")));
        CHECK(((flags & kReplaceAll) != 0) == replaced);
        CHECK(pc.nothingHeld());
    }
    CHECK(scriptedUser.asked == 0);
}
