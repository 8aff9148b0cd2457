#include "macfile/volume_kind.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

using namespace tidewell;

TEST_CASE("The kind of a volume") {
    {
        TestPc pc;
        CHECK(GetVolumeKind("F:\\") == VolumeKindOther);
        CHECK(GetVolumeKind("N:\\") == VolumeKindNtfs);
        CHECK(GetVolumeKind("M:\\") == VolumeKindMac);
        CHECK(GetVolumeKind("X:\\") == VolumeKindOther);
        CHECK(GetVolumeKindOfPath("N:\\dir\\file") == VolumeKindNtfs);
        CHECK(GetVolumeKindOfPath("\\\\server\\share\\file") == VolumeKindOther);
        CHECK(GetVolumeKindOfPath("Mouse") == VolumeKindOther);
        CHECK(GetVolumeKindOfPath("") == VolumeKindOther);
    }
    TestPc windows98(pc::Platform::windows98);
    CHECK(GetVolumeKind("N:\\") == VolumeKindOther);
    CHECK(GetVolumeKind("M:\\") == VolumeKindMac);
}

TEST_CASE("A Mac volume is one whose root has a Finder information") {
    TestPc pc;
    writeFile("F:\\{4DD19184-ACE2-11CF-BBF2-444553540000}", {});
    CHECK(!IsMacVolume("F:\\"));
    writeFile("F:\\{4DD19184-ACE2-11CF-BBF2-444553540000}", bytesOf("x"));
    CHECK(IsMacVolume("F:\\"));
}

TEST_CASE("A volume whose kind cannot be told keeps no Mac information") {
    for (const char* root : {"N:\\", "M:\\"}) {
        for (int n = 1;; ++n) {
            TestPc pc;
            pc.faults().failCall(n, ERROR_CRC);
            const VolumeKind kind = GetVolumeKind(root);
            CHECK(pc.nothingHeld());
            if (!pc.faults().hit()) {
                CHECK(n > 1);
                break;
            }
            // On NTFS the driver's pseudo-file is missing anyway.
            if (root[0] == 'M' || pc.faults().hitCall() == "GetVolumeInformationA")
                CHECK(kind == VolumeKindOther);
        }
    }
}
