#include "base/path_list.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

using tidewell::PathList;

TEST_CASE(
    "A list gives its paths from the last added on, keeps copies of them, and stays as it is without "
    "memory") {
    TestPc pc;
    {
        PathList list;
        CHECK(list.Next(nullptr) == nullptr);
        std::string path = "C:\\first";
        const char* const first = list.Add(path.c_str());
        path = "changed";
        const char* const empty = list.Add("");
        const std::string longest(70000, 'x');
        const char* const last = list.Add(longest.c_str());
        pc.faults().failMemory(1);
        CHECK(list.Add("more") == nullptr);
        CHECK(GetLastError() == ERROR_NOT_ENOUGH_MEMORY);
        pc.faults().clear();
        CHECK(list.Count() == 3);
        CHECK(list.Next(nullptr) == last);
        CHECK(list.Next(last) == empty);
        CHECK(list.Next(empty) == first);
        CHECK(list.Next(first) == nullptr);
        CHECK(last == longest);
        CHECK(std::string(first) == "C:\\first");
        PathList other;
        other.Add("y");
        const char* const second = other.Add("x");
        list.TakeReversed(other);
        CHECK(list.Count() == 5);
        CHECK(list.Next(nullptr) == std::string("y"));
        CHECK(list.Next(second) == last);
        CHECK(other.Count() == 0);
        CHECK(other.Next(nullptr) == nullptr);
        list.Clear();
        CHECK(pc.nothingHeld());
        CHECK(list.Count() == 0);
        CHECK(list.Next(nullptr) == nullptr);
        list.Add("C:\\again");
    }
    CHECK(pc.nothingHeld());
}
