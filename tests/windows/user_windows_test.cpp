// Work on the PC's files, with the user in front of the system's windows.
#include "ui/user_windows.h"

#include "res/resource.h"
#include "support/archive_writer.h"
#include "support/extraction_case.h"
#include "support/modal_windows.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <windows.h>
#include <commctrl.h>

using namespace tidewell;

namespace {

const MacFile kFile = {.data = patternOf(300'000), .resource = patternOf(100'000, 5)};

// A PC with a MacBinary file, and whoever sits before it.
struct PcWithWindows {
    PcWithWindows() { writeFile("F:\\in.bin", macBinaryFile({.file = kFile, .name = bytesOf("Letter")})); }

    TestPc pc;
    const ModuleState library;
    DWORD flags = 0;

    ErrorCode extract(ProgressDialog* progress = nullptr) {
        return ExtractOriginalMacFile(nullptr, "F:\\in.bin", "N:\\", &flags, &progress);
    }
};

// A progress window whose Cancel button is clicked when its bar has moved for so many blocks; 0: never.
class ClickAfterBlocks {
  public:
    explicit ClickAfterBlocks(int blocks)
        : dialog_(ProgressCreate(ModuleInstance, "Extracting...", nullptr, FALSE)) {
        REQUIRE(dialog_ != nullptr);
        ProgressPause(dialog_);  // shows it
        ProgressResume(dialog_);
        blocksLeft = blocks;
        HWND const bar = GetDlgItem(ProgressWindow(dialog_), IDC_PROGRESS_BAR);
        barProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(bar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(clickAtBlock)));
    }
    ~ClickAfterBlocks() { ProgressDestroy(dialog_); }
    ClickAfterBlocks(const ClickAfterBlocks&) = delete;
    ClickAfterBlocks& operator=(const ClickAfterBlocks&) = delete;
    operator ProgressDialog*() const { return dialog_; }

  private:
    static LRESULT CALLBACK clickAtBlock(HWND bar, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == PBM_SETPOS && blocksLeft > 0 && --blocksLeft == 0)
            PostMessageA(GetDlgItem(GetParent(bar), IDCANCEL), BM_CLICK, 0, 0);
        return CallWindowProcA(barProcedure, bar, message, wParam, lParam);
    }

    static inline int blocksLeft;
    static inline WNDPROC barProcedure;
    ProgressDialog* dialog_;
};

}  // namespace

TEST_CASE_FIXTURE(PcWithWindows, "The dialog's answer decides about a file of the PC") {
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
        flags = row.flags;
        const ModalDriver driver([&](HWND dialog) {
            CHECK(windowText(GetDlgItem(dialog, IDC_REPLACE_NAME)) ==
                  "This folder already contains a file named 'Letter'.");
            press(dialog, row.button);
        });
        CHECK(extract() == row.error);
        CHECK(driver.shown() == 1);
        CHECK(readFile("N:\\Letter") == (row.replaced ? kFile.data : bytesOf("mine")));
        CHECK(((flags & kReplaceAll) != 0) == (row.button == IDYESTOALL));
        CHECK(pc.nothingHeld());
    }
    CHECK(scriptedUser.asked == 0);
}

TEST_CASE_FIXTURE(PcWithWindows, "The window's Cancel button stops an extraction, which leaves nothing") {
    flags = kReplaceAll;  // no question, even after a failed check
    for (const int blocks : {1, 3, 6, 0}) {
        CAPTURE(blocks);
        const ClickAfterBlocks progress(blocks);
        CHECK(extract(progress) == (blocks != 0 ? ERROR_CANCELLED : 0));
        CHECK(exists("N:\\Letter") == (blocks == 0));
        CHECK(exists("N:\\Letter:AFP_Resource") == (blocks == 0));
        CHECK(IsWindow(ProgressWindow(progress)));
    }
    CHECK(readMacFile("N:\\Letter").resource == kFile.resource);
    CHECK(scriptedUser.created == 0);
    CHECK(pc.nothingHeld());
}
