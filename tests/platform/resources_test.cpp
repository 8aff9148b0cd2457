#include "res/resource.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>
#include <string>

TEST_CASE("LoadStringA gives the texts of the library, cut to the caller's buffer") {
    char text[128];
    CHECK(LoadStringA(nullptr, IDS_SECONDS_REMAINING, text, sizeof text) == 20);
    CHECK(std::string(text) == "%d Seconds Remaining");
    std::fill(std::begin(text), std::end(text), '#');
    CHECK(LoadStringA(nullptr, IDS_MINUTES_REMAINING, text, 5) == 4);
    CHECK(std::string(text) == "%d M");
    CHECK(text[5] == '#');
    CHECK(LoadStringA(nullptr, 0xFFFF, text, sizeof text) == 0);
}
