#include "ui/display_title.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

#include <cstring>

using namespace tidewell;

TEST_CASE("A path without a title shows as it is, as far as there is room") {
    TestPc pc;
    for (const std::string& path : {std::string("F:\\"), std::string(600, 'a') + "\\"}) {
        char title[kPathCapacity + 1];
        std::memset(title, '#', sizeof title);
        GetDisplayTitle(path.c_str(), title);
        CHECK(std::string(title) == path.substr(0, kPathCapacity - 1));
        CHECK(title[kPathCapacity] == '#');
    }
}
