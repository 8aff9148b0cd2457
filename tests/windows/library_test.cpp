// TIDEWELL.DLL itself, loaded into a program as the shell loads it, on a real volume of the system's.
#include "res/resource.h"
#include "support/real_mac_file.h"

#include <doctest/doctest.h>

#include <windows.h>

#include <string>

namespace {

// The library is built beside the test program.
std::string libraryPath() {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string program = path;
    return program.substr(0, program.rfind('\\') + 1) + "TIDEWELL.DLL";
}

using CreateMacBinary = DWORD(WINAPI*)(HWND, const char*, const char*, void**);

class Library {
  public:
    Library() : module_(LoadLibraryA(libraryPath().c_str())) {
        REQUIRE_MESSAGE(module_ != nullptr, libraryPath() << ": error " << GetLastError());
    }
    ~Library() { FreeLibrary(module_); }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;

    HMODULE module() const { return module_; }
    CreateMacBinary createMacBinary() const {
        FARPROC const function = GetProcAddress(module_, "CreateMacBinaryFile");
        const bool exported = function != nullptr;
        REQUIRE(exported);
        return reinterpret_cast<CreateMacBinary>(reinterpret_cast<void*>(function));
    }

  private:
    HMODULE module_;
};

}  // namespace

TEST_CASE("The library packs a Mac file of NTFS") {
    const Library library;
    const CreateMacBinary createMacBinary = library.createMacBinary();
    const RealMacFile file("LIBRARY.TXT", 100000, 333);
    const RealFile output("LIBRARY.BIN");
    CHECK(createMacBinary(nullptr, file.path(), output.path(), nullptr) == 0);
    CHECK(output.size() == 128 + 100096 + 384);
    void* progress = nullptr;
    CHECK(createMacBinary(nullptr, file.path(), output.path(), &progress) == 0);
    CHECK(createMacBinary(nullptr, file.path(), file.path(), nullptr) == ERROR_SHARING_VIOLATION);
    CHECK(createMacBinary(nullptr, "MISSING.TXT", output.path(), nullptr) == ERROR_INVALID_PARAMETER);
}

TEST_CASE("The library carries its resources and can be loaded again and again") {
    for (int i = 0; i < 3; ++i) {
        const Library library;
        char text[128];
        CHECK(LoadStringA(library.module(), IDS_MINUTES_REMAINING, text, sizeof text) > 0);
        CHECK(std::string(text) == "%d Minutes Remaining");
        for (const int icon : {IDI_CREATE_MACBINARY, IDI_EXTRACT})
            CHECK(FindResourceA(library.module(), MAKEINTRESOURCEA(icon), RT_GROUP_ICON) != nullptr);
        CHECK(FindResourceA(library.module(), "FILEPROGRESS", RT_DIALOG) != nullptr);
        CHECK(FindResourceA(library.module(), MAKEINTRESOURCEA(1), RT_VERSION) != nullptr);
    }
}
