// TIDEWELL.DLL itself, loaded into a program as the shell loads it, on a real volume of the system's.
#include "res/resource.h"
#include "support/real_mac_file.h"
#include "support/test_module_windows.h"

#include <doctest/doctest.h>

#include <string>

TEST_CASE("The library packs a Mac file of NTFS") {
    const LoadedLibrary library;
    using CreateMacBinary = DWORD(WINAPI*)(HWND, const char*, const char*, void**);
    const auto createMacBinary = reinterpret_cast<CreateMacBinary>(
        reinterpret_cast<void*>(GetProcAddress(library, "CreateMacBinaryFile")));
    const bool exported = createMacBinary != nullptr;
    REQUIRE(exported);
    const RealMacFile file("LIBRARY.TXT", 100000, 333);
    const RealFile output("LIBRARY.BIN");
    CHECK(createMacBinary(nullptr, file.path(), output.path(), nullptr) == 0);
    CHECK(output.bytes().size() == 128 + 100096 + 384);
    void* progress = nullptr;
    CHECK(createMacBinary(nullptr, file.path(), output.path(), &progress) == 0);
    CHECK(createMacBinary(nullptr, file.path(), file.path(), nullptr) == ERROR_SHARING_VIOLATION);
    CHECK(createMacBinary(nullptr, "MISSING.TXT", output.path(), nullptr) == ERROR_INVALID_PARAMETER);
}

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
