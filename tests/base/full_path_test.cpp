#include "base/full_path.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace tidewell;

TEST_CASE("A path is made full, and loses no meaning with its prefix") {
    TestPc pc;
    pc.setCurrentFolder("N:\\t");
    const struct {
        const char* path;
        const char* full;
        ErrorCode error;
    } rows[] = {
        {"a", "N:\\t\\a", 0},
        {"F:/a/../b", "F:\\b", 0},
        {"\\\\server\\share\\a", "\\\\server\\share\\a", 0},
        {"\\\\?\\UNC\\server\\share\\a", "\\\\server\\share\\a", 0},
        {"\\\\?\\F:\\a b\\c", "F:\\a b\\c", 0},
        {"\\\\?\\UNC\\server\\share\\a/b", "", ERROR_INVALID_NAME},
        {"\\\\?\\F:", "", ERROR_INVALID_NAME},
        {"\\\\?\\", "", ERROR_INVALID_NAME},
        {"\\\\?\\F", "", ERROR_INVALID_NAME},
        {"//?/F:\\a", "F:\\a", 0},
    };
    for (const auto& row : rows) {
        CAPTURE(row.path);
        char full[kPathCapacity] = "";
        const ErrorCode error = GetFullPath(row.path, full);
        CHECK(error == row.error);
        if (error == 0) CHECK(std::string(full) == row.full);
    }
}

TEST_CASE("A path that does not fit is told") {
    TestPc pc;
    for (const std::string prefix : {"", "\\\\?\\"}) {
        for (const size_t beyond : {0u, 1u}) {
            const std::string path = prefix + "F:\\" + std::string(kPathCapacity - 4 + beyond, 'a');
            char full[kPathCapacity + 1];
            std::memset(full, '#', sizeof full);
            CHECK(GetFullPath(path.c_str(), full) == (beyond == 0 ? 0 : ERROR_FILENAME_EXCED_RANGE));
            CHECK(full[kPathCapacity] == '#');
        }
    }
}
