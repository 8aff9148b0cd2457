#include "base/file.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("What cannot be looked at may be there, unless the error says that nothing can be") {
    TestPc pc;
    writeFile("F:\\file", {});
    CHECK(MayExist("F:\\file"));
    CHECK(!MayExist("F:\\none"));
    for (const ErrorCode error : {2u, 3u, 15u, 21u, 53u, 55u, 64u, 67u, 123u, 161u, 206u, 1005u, 1222u}) {
        pc.faults().failAlways("GetFileAttributesA", "F:\\file", error);
        CHECK_MESSAGE(!MayExist("F:\\file"), error);
    }
    for (const ErrorCode error : {1u, 5u, 23u, 31u, 32u, 50u, 1117u, 1392u}) {
        pc.faults().failAlways("GetFileAttributesA", "F:\\file", error);
        CHECK_MESSAGE(MayExist("F:\\file"), error);
    }
}
