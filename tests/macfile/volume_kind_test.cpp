#include "macfile/volume_kind.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("The kind of a volume") {
    TestPc pc;
    CHECK(GetVolumeKind("X:\\") == VolumeKindOther);
    CHECK(GetVolumeKindOfPath("N:\\dir\\file") == VolumeKindNtfs);
    CHECK(GetVolumeKindOfPath("M:\\dir\\file") == VolumeKindMac);
    CHECK(GetVolumeKindOfPath("F:\\dir\\file") == VolumeKindOther);
    CHECK(GetVolumeKindOfPath("\\\\server\\share\\file") == VolumeKindOther);
    CHECK(GetVolumeKindOfPath("Mouse") == VolumeKindOther);
    CHECK(GetVolumeKindOfPath("") == VolumeKindOther);
    // A Mac volume is one whose root has a Finder information that is not empty.
    writeFile("F:\\{4DD19184-ACE2-11CF-BBF2-444553540000}", {});
    CHECK(!IsMacVolume("F:\\"));
    writeFile("F:\\{4DD19184-ACE2-11CF-BBF2-444553540000}", bytesOf("x"));
    CHECK(IsMacVolume("F:\\"));

    TestPc windows98(pc::Platform::windows98);
    CHECK(GetVolumeKind("N:\\") == VolumeKindOther);
    CHECK(GetVolumeKind("M:\\") == VolumeKindMac);
}
