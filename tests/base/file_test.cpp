#include "base/file.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("What cannot be looked at may be there, unless the error says that nothing can be") {
    TestPc pc;
    writeFile("F:\\file", {});
    CHECK(MayExist("F:\\file"));
    CHECK(!MayExist("F:\\none"));
    for (const ErrorCode error : {2, 3, 15, 21, 53, 55, 64, 67, 123, 161, 206, 1005, 1222}) {
        pc.faults().failAlways("GetFileAttributesA", "F:\\file", error);
        CHECK_MESSAGE(!MayExist("F:\\file"), error);
    }
    for (const ErrorCode error : {1, 5, 23, 31, 32, 50, 1117, 1392}) {
        pc.faults().failAlways("GetFileAttributesA", "F:\\file", error);
        CHECK_MESSAGE(MayExist("F:\\file"), error);
    }
}
