// TIDEWELL.DLL itself, loaded into a program as the shell loads it.
#include "res/resource.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <string>

TEST_CASE("The library carries its resources and can be loaded again and again") {
    for (int i = 0; i < 3; ++i) {
        const LoadedLibrary library;
        char text[128] = "";
        LoadStringA(library, IDS_MINUTES_REMAINING, text, sizeof text);
        CHECK(std::string(text) == "%d Minutes Remaining");
        for (const int icon : {IDI_CREATE_MACBINARY, IDI_EXTRACT})
            CHECK(FindResourceA(library, MAKEINTRESOURCEA(icon), RT_GROUP_ICON) != nullptr);
        CHECK(FindResourceA(library, "FILEPROGRESS", RT_DIALOG) != nullptr);
        CHECK(FindResourceA(library, MAKEINTRESOURCEA(1), RT_VERSION) != nullptr);
    }
}
