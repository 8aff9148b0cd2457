// The resource viewer and its contents window, driven over the files of a PC.
#include "resources/viewer.h"

#include "resources/fork_file.h"
#include "support/help_calls_windows.h"
#include "support/resource_fork_writer.h"
#include "support/test_module_windows.h"
#include "support/viewer_driver_windows.h"

#include <doctest/doctest.h>

#include <windows.h>
#include <windowsx.h>

#include <cderr.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace tidewell;

namespace {

const Bytes kLong = patternOf(100'000);

const std::string kOddType = std::string(1, '\xA9') + "abc";
const std::string kHello = std::string(1, '\5') + "Hello";

// Black, but for a row that is not there and a white one.
Bytes icon() {
    Bytes bytes(256, 0xFF);
    std::fill_n(&bytes[30 * 4], 8, uint8_t{0});
    std::fill_n(&bytes[128 + 30 * 4], 4, uint8_t{0});
    return bytes;
}

// A 'cicn' of one colour, 8 by 300.
Bytes tallIcon() {
    constexpr size_t kHeight = 300;
    constexpr size_t kRows = 2 * kHeight;  // bytes of a bitmap
    Bytes bytes(82 + 2 * kRows + 8 + 8 + kRows);
    const auto put = [&](size_t at, unsigned value) {
        bytes[at] = static_cast<uint8_t>(value >> 8);
        bytes[at + 1] = static_cast<uint8_t>(value);
    };
    for (const size_t map : {0, 50, 64}) {
        put(map + 4, map == 0 ? 0x8002 : 2);  // bytes of a row
        put(map + 10, kHeight);
        put(map + 12, 8);
    }
    put(32, 1);  // bits of a pixel
    put(34, 1);
    put(36, 1);
    return bytes;
}

std::vector<ForkResource> letterResources() {
    return {
        {"vers", 1, "", 0, bytesOf("1.0")},
        {"STR ", 5, {}, 0x70, bytesOf(kHello)},
        {"STR ", 128, "b", 0, bytesOf("x")},
        {"STR ", -1, {}, 0x0C, bytesOf("")},
        {"STR ", 3, {}, 0, bytesOf("")},
        {"STR ", 7, "A name of more than 43 characters, all of them seen", 0, bytesOf("")},
        {"ICN#", 128, "Letter", 0x20, icon()},
        {kOddType, 300, {}, 0, kLong},
        {"cicn", 7, {}, 0, tallIcon()},
    };
}

struct Viewer : ModuleState {
    TestPc pc;
    HWND window = nullptr;  // of the viewer that is open

    Viewer() {
        timersOf.clear();
        saveDialog = {};
        shownMenu.clear();
        writeMacFile("N:\\Letter.txt", {.resource = resourceForkOf(letterResources())});
    }
    ~Viewer() {
        CHECK(pc.nothingHeld());
        CHECK(OpenViewerCount == 0);
    }
    // Remembers the viewer.
    std::function<void(HWND)> step(const std::function<void(HWND)>& action) {
        return [this, action](HWND viewer) {
            window = viewer;
            action(viewer);
        };
    }
};

}  // namespace

REPLACE_IMPORT(GetSaveFileNameA, 4, getSaveFileName);
REPLACE_IMPORT(FindFirstFileA, 8, findFirst);
REPLACE_IMPORT(FindClose, 4, findClose);
REPLACE_IMPORT(CommDlgExtendedError, 0, saveError);
REPLACE_IMPORT(GetMessagePos, 0, getMessagePoint);
REPLACE_IMPORT(TrackPopupMenu, 28, trackMenu);

TEST_CASE_FIXTURE(Viewer, "What has no resources, or no fork, is told once, and no viewer comes up") {
    const TestWindow owner("Explorer");
    HWND none = nullptr;
    HWND explorer = owner;
    writeMacFile("N:\\Empty", {.hasResource = false});
    writeFile("F:\\Plain.txt", bytesOf("text"));
    writeMacFile("N:\\Damaged", {.resource = Bytes(45, 0)});
    const std::string absent = "' does not contain any resources.";
    CHECK_FALSE(view("N:\\Empty", {errorBox(explorer, "The file 'Empty" + absent)}, owner));
    CHECK_FALSE(view("F:\\Plain.txt", {errorBox(explorer, "The file 'Plain.txt" + absent)}, owner));
    CHECK_FALSE(view("N:\\Gone", {errorBox(explorer, "The file 'Gone" + absent)}, owner));
    CHECK_FALSE(view("N:\\Damaged", {[&](HWND box) {
                         CHECK(labelTexts(box).starts_with("An error occurred while opening 'Damaged': "));
                         CHECK(GetWindow(box, GW_OWNER) == none);
                         CHECK(iconOf(box) == LoadIconA(nullptr, IDI_HAND));
                         press(box, IDOK);
                     }},
                     owner));
    // Without its owner it is not shown either.
    CHECK_FALSE(view("N:\\Letter.txt", {}, goneWindow()));
}

TEST_CASE_FIXTURE(Viewer,
                  "The viewer shows the types in order, and the resources of a type once it is opened") {
    const TestWindow owner(CreateWindowExA(0, "STATIC", "owner", WS_POPUP | WS_CAPTION | WS_VISIBLE, 50, 60,
                                           99, 99, nullptr, nullptr, nullptr, nullptr));
    CHECK(view("N:\\Letter.txt", {[&](HWND viewer) {
                   CHECK(windowText(viewer) == "Tidewell 98 - Long Letter.txt Resources");
                   CHECK(GetWindow(viewer, GW_OWNER) == owner);
                   CHECK_FALSE(IsWindowEnabled(owner));
                   CHECK(GetFocus() == treeOf(viewer));
                   CHECK(LOWORD(SendMessageA(viewer, DM_GETDEFID, 0, 0)) == IDOK);
                   CHECK(iconOf(viewer) == LoadIconA(ModuleInstance, MAKEINTRESOURCEA(IDI_TIDEWELL)));
                   // One step from where the first window would be.
                   POINT origin = {};
                   ClientToScreen(owner, &origin);
                   POINT inside = {};
                   ClientToScreen(viewer, &inside);
                   const RECT frame = frameOf(viewer);
                   CHECK(frame.left == origin.x + 30 + inside.x - frame.left + 1);
                   CHECK(frame.top == origin.y + 35 + inside.y - frame.top + 1);

                   CHECK(labelOf(viewer, rootOf(viewer)) == "Resource fork");
                   CHECK(childrenOf(viewer, rootOf(viewer)) == "[($636261a9)][cicn][ICN#][STR ][vers]");
                   HTREEITEM const strings = childOf(viewer, rootOf(viewer), "STR ");
                   CHECK(childrenOf(viewer, strings).empty());
                   for (int i = 0; i < 2; ++i) {
                       TreeView_Expand(treeOf(viewer), strings, TVE_TOGGLE);
                       TreeView_Expand(treeOf(viewer), strings, TVE_TOGGLE);
                       CHECK(childrenOf(viewer, strings) ==
                             "[(-1)][(3)][(5)][A name of more than 43 characters, all of t (7)][b (128)]");
                   }
                   // A name of no characters is none.
                   CHECK(childrenOf(viewer, typeItem(viewer, "vers")) == "[(1)]");
                   close(viewer);
               }},
               owner) == 1);
    CHECK(IsWindowEnabled(owner));
}

TEST_CASE_FIXTURE(Viewer, "Details follow the selection when it has rested") {
    CHECK(view("N:\\Letter.txt", {[](HWND viewer) {
                   select(viewer, rootOf(viewer));
                   CHECK(buttonStates(viewer) == "save");
                   rest(viewer);
                   const std::string forkSize = windowText(GetDlgItem(viewer, IDC_VIEWER_SIZE));
                   CHECK(forkSize.starts_with("1"));
                   CHECK(detailsOf(viewer) == "Resource fork|" + forkSize + "|-.....");

                   selectResource(viewer, "STR ", "(5)");
                   CHECK(buttonStates(viewer) == "viewsave");
                   CHECK(tabOrder(viewer) == std::vector<int>{IDC_VIEWER_TREE, IDC_VIEWER_VIEW,
                                                              IDC_VIEWER_SAVE, IDOK, IDC_VIEWER_HELP});
                   // Nothing of the last item is told of this one.
                   CHECK(detailsOf(viewer) == "-|-|.....");
                   rest(viewer);
                   CHECK(detailsOf(viewer) == "String|6 bytes|***..");
                   selectResource(viewer, "STR ", "(-1)");
                   rest(viewer);
                   CHECK(detailsOf(viewer) == "String|0 bytes|...**");

                   select(viewer, childOf(viewer, rootOf(viewer), "STR "));
                   CHECK(buttonStates(viewer).empty());
                   rest(viewer);
                   CHECK(detailsOf(viewer) == "String|5 resource(s)|-.....");
                   select(viewer, childOf(viewer, rootOf(viewer), "($636261a9)"));
                   rest(viewer);
                   CHECK(detailsOf(viewer) == "'($636261a9)' resource|1 resource(s)|-.....");
                   // Another timer is not the viewer's.
                   SendMessageA(viewer, WM_TIMER, 1139, 0);
                   PostMessageA(viewer, WM_CLOSE, 0, 0);
               }}) == 1);
}

TEST_CASE_FIXTURE(Viewer, "A resource's contents come up by the button, a double click and the menu") {
    // Without a display Wine's edit control of several lines breaks at its first text.
    if (!kHasDisplay) return;
    HFONT dumpFont = nullptr;
    const auto isLong = [&](HWND contents) {
        CHECK(GetWindow(contents, GW_OWNER) == window);
        CHECK_FALSE(IsWindowEnabled(window));
        CHECK(windowText(contents) == "($636261a9) (300)");
        CHECK((GetWindowLongA(contents, GWL_EXSTYLE) & WS_EX_CONTEXTHELP) != 0);
        CHECK(windowText(GetDlgItem(contents, IDC_CONTENTS_SIZE)) == "8.4KB of 97.7KB");
        CHECK(windowText(GetDlgItem(contents, IDC_CONTENTS_TYPE)) == "'($636261a9)' resource");
        CHECK(buttonTexts(contents).find("&Close") != std::string::npos);
        CHECK(LOWORD(SendMessageA(contents, DM_GETDEFID, 0, 0)) == IDOK);
        HWND const dump = GetDlgItem(contents, IDC_CONTENTS_DUMP);
        CHECK(GetWindowTextLengthA(dump) == 537 * 61 - 2);
        CHECK(SendMessageA(dump, EM_GETLINECOUNT, 0, 0) == 537);
        CHECK(GetFocus() == dump);
        CHECK(SendMessageA(dump, EM_GETSEL, 0, 0) == 0);
        // What the user selects stays selected.
        SendMessageA(dump, EM_SETSEL, 3, 9);
        SetFocus(GetDlgItem(contents, IDOK));
        SetFocus(dump);
        CHECK(SendMessageA(dump, EM_GETSEL, 0, 0) == MAKELONG(3, 9));
        LOGFONTA font = {};
        dumpFont = GetWindowFont(dump);
        GetObjectA(dumpFont, sizeof font, &font);
        CHECK(font.lfHeight < 0);
        CHECK(font.lfWidth == 0);
        CHECK(font.lfCharSet == ANSI_CHARSET);
        HELPINFO request = {sizeof request, HELPINFO_WINDOW, IDC_CONTENTS_DUMP, dump, 0, {}};
        SendMessageA(contents, WM_HELP, 0, reinterpret_cast<LPARAM>(&request));
        CHECK((std::get<0>(lastHelpCall) == dump && std::get<2>(lastHelpCall) == HELP_WM_HELP));
        HWND const label = GetDlgItem(contents, IDC_CONTENTS_SIZE);
        SendMessageA(contents, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(label), 0);
        CHECK((std::get<0>(lastHelpCall) == label && std::get<2>(lastHelpCall) == HELP_CONTEXTMENU));
        CHECK_FALSE(IsWindowVisible(GetDlgItem(contents, IDC_CONTENTS_PICTURE)));
        CHECK_FALSE(IsWindowVisible(GetDlgItem(contents, IDC_CONTENTS_TEXT)));
        typeKey(dump, VK_ESCAPE);
    };
    CHECK(view("N:\\Letter.txt", {step([](HWND viewer) {
                                      selectResource(viewer, "($636261a9)", "(300)");
                                      press(viewer, IDC_VIEWER_VIEW);
                                  }),
                                  isLong,
                                  [](HWND viewer) {
                                      NMHDR notification = {treeOf(viewer), IDC_VIEWER_TREE, NM_DBLCLK};
                                      const auto doubleClick = [&](HTREEITEM item, LONG beside) {
                                          POINT point = placeOf(viewer, item);
                                          point.x += beside;
                                          messagePoint = static_cast<DWORD>(MAKELPARAM(point.x, point.y));
                                          SendMessageA(viewer, WM_NOTIFY, IDC_VIEWER_TREE,
                                                       reinterpret_cast<LPARAM>(&notification));
                                      };
                                      // A type has no contents; neither has what is beside an item, or is
                                      // another one.
                                      doubleClick(select(viewer, childOf(viewer, rootOf(viewer), "STR ")), 0);
                                      selectResource(viewer, "($636261a9)", "(300)");
                                      doubleClick(rootOf(viewer), 0);
                                      HTREEITEM const item = TreeView_GetSelection(treeOf(viewer));
                                      doubleClick(item, 100);
                                      doubleClick(item, 0);
                                  },
                                  isLong,
                                  [](HWND viewer) {
                                      menuAnswer = IDC_VIEWER_VIEW;
                                      openMenu(viewer);
                                  },
                                  isLong,
                                  [&](HWND viewer) {
                                      CHECK(GetObjectType(dumpFont) == 0);
                                      CHECK(GetFocus() == treeOf(viewer));
                                      CHECK(IsWindowEnabled(viewer));
                                      close(viewer);
                                  }}) == 1);
}

TEST_CASE_FIXTURE(Viewer, "Contents that are a picture or a text are shown above their dump") {
    if (!kHasDisplay) return;
    const auto showsAbove = [](HWND contents, int control) {
        HWND const above = GetDlgItem(contents, control);
        CHECK(IsWindowVisible(above));
        const RECT dump = frameOf(GetDlgItem(contents, IDC_CONTENTS_DUMP));
        CHECK(frameOf(above).bottom < dump.top);
        CHECK(dump.bottom < frameOf(GetDlgItem(contents, IDOK)).top);
        return above;
    };
    CHECK(view("N:\\Letter.txt", {step([](HWND viewer) {
                                      selectResource(viewer, "ICN#", "Letter (128)");
                                      press(viewer, IDC_VIEWER_VIEW);
                                  }),
                                  [&](HWND contents) {
                                      HWND const picture = showsAbove(contents, IDC_CONTENTS_PICTURE);
                                      CHECK(sizeOf(frameOf(picture)).y == 32);
                                      HDC const dc = GetDC(picture);
                                      if (kHasDisplay) {
                                          CHECK(GetPixel(dc, 0, 0) == RGB(0, 0, 0));
                                          CHECK(GetPixel(dc, 31, 30) == GetSysColor(COLOR_3DFACE));
                                          CHECK(GetPixel(dc, 31, 31) == RGB(255, 255, 255));
                                          CHECK(GetPixel(dc, 32, 31) == GetSysColor(COLOR_3DFACE));
                                      }
                                      ReleaseDC(picture, dc);
                                      close(contents);
                                  },
                                  [](HWND viewer) {
                                      selectResource(viewer, "cicn", "(7)");
                                      press(viewer, IDC_VIEWER_VIEW);
                                  },
                                  [&](HWND contents) {
                                      // The dump keeps its half.
                                      const LONG height =
                                          sizeOf(frameOf(showsAbove(contents, IDC_CONTENTS_PICTURE))).y;
                                      const LONG dump =
                                          sizeOf(frameOf(GetDlgItem(contents, IDC_CONTENTS_DUMP))).y;
                                      CHECK(height < 300);
                                      CHECK((height - dump < 12 && dump <= height));
                                      close(contents);
                                  },
                                  [](HWND viewer) {
                                      selectResource(viewer, "STR ", "(5)");
                                      press(viewer, IDC_VIEWER_VIEW);
                                  },
                                  [&](HWND contents) {
                                      HWND const text = showsAbove(contents, IDC_CONTENTS_TEXT);
                                      CHECK(windowText(text) == "Hello");
                                      CHECK(GetFocus() == text);
                                      CHECK(SendMessageA(text, EM_GETSEL, 0, 0) == 0);
                                      CHECK(windowText(GetDlgItem(contents, IDC_CONTENTS_DUMP)) ==
                                            "0000: 0548656c 6c6f                        .Hello");
                                      CHECK(windowText(GetDlgItem(contents, IDC_CONTENTS_SIZE)) == "6 bytes");
                                      typeKey(GetFocus(), VK_RETURN);
                                  },
                                  close}) == 1);
}

TEST_CASE_FIXTURE(Viewer, "Save As saves a resource's bytes, its dump, or the fork, where the user says") {
    const std::string resourceFilters = "[Binary Resource Data][*.*][Hex Resource Data (*.txt)][*.txt]";
    const auto checkQuestion = [&](const std::string& filters, const std::string& extension,
                                   const std::string& proposed) {
        CHECK(saveDialog.asked.hwndOwner == window);
        CHECK(saveDialog.asked.lStructSize == OPENFILENAME_SIZE_VERSION_400A);
        CHECK(saveDialog.asked.Flags == (OFN_PATHMUSTEXIST | OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT));
        CHECK(saveDialog.asked.nMaxFile == 520);
        CHECK(saveDialog.asked.nFilterIndex == 1);
        CHECK(saveDialog.asked.lpstrInitialDir == nullptr);
        REQUIRE(saveDialog.asked.lpstrDefExt != nullptr);
        CHECK(saveDialog.title == "Save Resource Data As");
        CHECK(saveDialog.filters == filters);
        CHECK(saveDialog.proposed == proposed);
        CHECK(extension == (filters == resourceFilters ? "" : "rsf"));
    };
    const auto save = [&](HWND viewer, const std::string& path, DWORD filter) {
        saveDialog.chosen = path;
        saveDialog.filter = filter;
        SendMessageA(viewer, WM_COMMAND, IDC_VIEWER_SAVE, 0);
    };
    CHECK(view("N:\\Letter.txt", {step([&](HWND viewer) {
                   selectResource(viewer, "ICN#", "Letter (128)");
                   save(viewer, "F:\\icon.bin", 1);
                   checkQuestion(resourceFilters, "", "Long Letter.txt - resource ICN#Letter");
                   CHECK(readFile("F:\\icon.bin") == icon());
                   selectResource(viewer, "STR ", "(-1)");
                   save(viewer, "F:\\icon.bin", 2);  // replaces
                   checkQuestion(resourceFilters, "", "Long Letter.txt - resource STR  -0001");
                   CHECK(readFile("F:\\icon.bin") == bytesOf("0000:"));
                   CHECK(pc.journal().countOn("SHChangeNotify", "F:\\icon.bin") == 0);
                   selectResource(viewer, "($636261a9)", "(300)");
                   save(viewer, "F:\\long", 1);
                   CHECK(readFile("F:\\long") == kLong);

                   select(viewer, rootOf(viewer));
                   save(viewer, "F:\\fork.rsf", 1);
                   checkQuestion("[Resource fork data (*.rsf)][*.rsf]", "rsf", "Long Letter_txt");
                   CHECK(readFile("F:\\fork.rsf") == resourceForkOf(letterResources()));
                   CHECK(pc.journal().countOn("SHChangeNotify", "F:\\fork.rsf") == 1);

                   menuAnswer = IDC_VIEWER_SAVE;
                   saveDialog.chosen = "F:\\menu";
                   openMenu(viewer);
                   CHECK(readFile("F:\\menu") == resourceForkOf(letterResources()));

                   // Cancelled, and not asked for a type.
                   save(viewer, "", 1);
                   const int asked = saveDialog.times;
                   select(viewer, typeItem(viewer, "STR "));
                   save(viewer, "F:\\type", 1);
                   CHECK(saveDialog.times == asked);
                   CHECK_FALSE(exists("F:\\type"));
                   close(viewer);
               })}) == 1);
}

TEST_CASE_FIXTURE(Viewer, "A save that fails is told of once; the file itself is not saved in") {
    const auto saveIn = [&](const std::string& path) {
        return step([path](HWND viewer) {
            saveDialog.chosen = path;
            press(viewer, IDC_VIEWER_SAVE);
        });
    };
    const auto told = [&](const std::string& reason) {
        return errorBox(window, "An error occurred while saving the resource: " + reason);
    };
    const std::string inUse = "Sharing violation.";
    const auto failing = [&](DWORD error) {
        return step([this, error](HWND viewer) {
            saveDialog.chosen.clear();
            saveDialogError = error;
            press(viewer, IDC_VIEWER_SAVE);
        });
    };
    CHECK(view("N:\\Letter.txt",
               {failing(CDERR_INITIALIZATION), told("General failure."), failing(FNERR_INVALIDFILENAME),
                [&](HWND box) {
                    // Asked once more, without a name.
                    CHECK(saveDialog.times == 3);
                    CHECK(saveDialog.proposed.empty());
                    saveDialogError = 0;
                    press(box, IDOK);
                },
                saveIn("n:\\LETTER.TXT"), told(inUse), saveIn("F:\\no\\folder"), told("Path not found."),
                step([&](HWND viewer) {
                    selectResource(viewer, "STR ", "(5)");
                    saveIn("N:\\Letter.txt")(viewer);
                }),
                told(inUse), close}) == 1);
    CHECK(readMacFile("N:\\Letter.txt").resource == resourceForkOf(letterResources()));
}

TEST_CASE_FIXTURE(
    Viewer, "Every call fails, once or for good: what cannot be shown is told once, and the viewer stays") {
    const auto fail = [&](int n, bool forGood) {
        if (forGood)
            pc.faults().failFromCall(n, ERROR_CRC);
        else
            pc.faults().failCall(n, ERROR_CRC);
    };
    // Opening: the viewer, or one message.
    for (int n = 0;; ++n) {
        int viewers = 0;
        CAPTURE(n);
        fail(n / 2 + 1, n % 2 != 0);
        const BOOL shown = view("N:\\Letter.txt", {[&](HWND came) {
                                    viewers += GetDlgItem(came, IDC_VIEWER_TREE) != nullptr ? 1 : 0;
                                    press(came, IDOK);
                                }});
        CHECK(shown == viewers);
        const bool hit = pc.faults().hit();
        pc.faults().clear();
        CHECK(pc.nothingHeld());
        if (!hit) break;
    }
    if (!kHasDisplay) return;
    // Viewing: the contents, or one message.
    bool more = true;
    for (int n = 0; more; ++n) {
        CAPTURE(n);
        const auto begin = [&](HWND viewer) {
            window = viewer;
            selectResource(viewer, "STR ", "(5)");
            fail(n / 2 + 1, n % 2 != 0);
            press(viewer, IDC_VIEWER_VIEW);
        };
        const auto came = [&](HWND box) {
            more = pc.faults().hit();
            pc.faults().clear();
            const bool contents = GetDlgItem(box, IDC_CONTENTS_DUMP) != nullptr;
            // A text above the dump may be missing.
            if (!more) CHECK(contents);
            if (!contents)
                CHECK(labelTexts(box).starts_with("An error occurred while viewing the resource: "));
            CHECK(GetWindow(box, GW_OWNER) == window);
            press(box, IDOK);
        };
        CHECK(view("N:\\Letter.txt", {begin, came, close}) == 1);
    }
}

TEST_CASE_FIXTURE(Viewer, "The menu of an item has its buttons' commands, other places have help") {
    CHECK(view("N:\\Letter.txt", {[](HWND viewer) {
                   menuAnswer = ID_WHATS_THIS;
                   select(viewer, rootOf(viewer));
                   openMenu(viewer);
                   CHECK(shownMenu == "[&Save As...][-][&What's This?]");
                   // Right below the item.
                   if (kHasDisplay) CHECK(menuPoint.x == placeOf(viewer, rootOf(viewer)).x - 2);
                   if (kHasDisplay) CHECK(menuPoint.y > placeOf(viewer, rootOf(viewer)).y);
                   CHECK(lastHelpCall == HelpCall(treeOf(viewer), "TIDEWELL.HLP", HELP_CONTEXTPOPUP, 50));
                   CHECK(TreeView_GetDropHilight(treeOf(viewer)) == nullptr);
                   selectResource(viewer, "STR ", "(5)");
                   openMenu(viewer);
                   CHECK(shownMenu == "[&View...][&Save As...][-][&What's This?]");

                   shownMenu.clear();
                   select(viewer, typeItem(viewer, "STR "));
                   openMenu(viewer);
                   CHECK(shownMenu.empty());
                   CHECK(std::get<2>(lastHelpCall) == HELP_CONTEXTMENU);
                   CHECK(std::get<0>(lastHelpCall) == treeOf(viewer));
                   HWND const button = GetDlgItem(viewer, IDC_VIEWER_SAVE);
                   SendMessageA(viewer, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(button), 0);
                   CHECK(std::get<0>(lastHelpCall) == button);

                   // The buttons are those of the selection, the item is the one that was clicked. Items have
                   // no place without a display.
                   TreeView_EnsureVisible(treeOf(viewer), rootOf(viewer));
                   const POINT point = placeOf(viewer, rootOf(viewer));
                   SendMessageA(viewer, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(treeOf(viewer)),
                                MAKELPARAM(point.x, point.y));
                   if (kHasDisplay) {
                       CHECK(shownMenu == "[&Save As...-][-][&What's This?]");
                       CHECK(highlit == rootOf(viewer));
                   }

                   // The menu of the window is the system's.
                   lastHelpCall = {};
                   SendMessageA(viewer, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(viewer), 0);
                   CHECK(lastHelpCall == HelpCall());
                   SendMessageA(viewer, WM_COMMAND, IDC_VIEWER_HELP, 0);
                   CHECK(lastHelpCall == HelpCall(viewer, "TIDEWELL.HLP", HELP_CONTEXT, 103));
                   HELPINFO request = {
                       sizeof request, HELPINFO_WINDOW, IDC_VIEWER_TREE, treeOf(viewer), 0, {}};
                   SendMessageA(viewer, WM_HELP, 0, reinterpret_cast<LPARAM>(&request));
                   CHECK(std::get<2>(lastHelpCall) == HELP_WM_HELP);
                   const auto* topics = reinterpret_cast<const DWORD*>(std::get<3>(lastHelpCall));
                   std::string pairs;
                   for (; topics[0] != 0; topics += 2)
                       if (topics[1] != static_cast<DWORD>(-1))
                           pairs += std::to_string(topics[0]) + " " + std::to_string(topics[1]) + ";";
                   CHECK(pairs ==
                         "1000 50;1003 51;1001 52;1045 53;1039 53;1046 54;1038 54;1047 55;1041 55;1040 "
                         "55;1042 55;1043 55;1044 55;1010 60;1011 61;1049 62;1054 56;");
                   close(viewer);
               }}) == 1);
}

TEST_CASE_FIXTURE(Viewer, "A large fork costs a few reads for what is opened, and none for the rest") {
    std::vector<ForkResource> resources;
    for (int type = 0; type < 500; ++type) {
        const std::string code = "T" + std::to_string(100 + type);
        const int count = type < 499 ? 9 : 10'000 - 499 * 9;
        for (int id = 0; id < count; ++id)
            resources.push_back({code, static_cast<int16_t>(id), {}, 0, bytesOf("data")});
    }
    writeMacFile("N:\\Large", {.resource = resourceForkOf(resources)});
    CHECK(view("N:\\Large", {[&](HWND viewer) {
                   CHECK(pc.journal().count("ReadFile") <= 500 + 3);
                   pc.journal().clear();
                   HTREEITEM const item = typeItem(viewer, "T599");
                   CHECK(pc.journal().count("ReadFile") == 10'000 - 499 * 9);
                   pc.journal().clear();
                   TreeView_Expand(treeOf(viewer), item, TVE_COLLAPSE);
                   TreeView_Expand(treeOf(viewer), item, TVE_EXPAND);
                   CHECK(pc.journal().count("ReadFile") == 0);
                   close(viewer);
               }}) == 1);
}

TEST_CASE("A file that has gone is known by the path that it had") {
    const TestPc pc;
    char path[kPathCapacity] = "?";
    GetLongFileOfFork("M:\\Gone\\{4DD19183-ACE2-11CF-BBF2-444553540000}", path);
    CHECK(path == std::string("M:\\Gone"));
}
