#include "macfile/volume_kind.h"

#include "support/test_pc.h"

#include <doctest/doctest.h>

using namespace tidewell;

namespace {

const std::string kPseudoFile = "{4DD19184-ACE2-11CF-BBF2-444553540000}";

// "kind" or "error n", by the folder and by a file in it, which agree but for paths without a drive.
std::string kindOf(const std::string& folder) {
    VolumeKind kind = VolumeKindNtfs;
    VolumeKind ofFile = VolumeKindNtfs;
    const ErrorCode error = TellVolumeKindOfFolder(folder.c_str(), kind);
    const ErrorCode fileError = TellVolumeKindOfPath((folder + "\\file").c_str(), ofFile);
    if (folder[1] == ':') CHECK((error == fileError && kind == ofFile));
    return error != 0 ? "error " + std::to_string(error) : std::to_string(kind);
}

}  // namespace

TEST_CASE("The kind of a volume") {
    TestPc pc;
    CHECK(kindOf("N:\\dir") == "2");
    CHECK(kindOf("M:\\") == "1");
    CHECK(kindOf("F:\\" + std::string(300, 'd')) == "0");
    CHECK(kindOf("Mouse") == "0");
    CHECK(kindOf("\\\\server\\share") == "0");
    CHECK(GetVolumeKind("N:\\") == VolumeKindNtfs);
    // A Mac volume is one whose root has a Finder information that is not empty.
    writeFile("F:\\" + kPseudoFile, {});
    CHECK(!IsMacVolume("F:\\"));
    writeFile("F:\\" + kPseudoFile, bytesOf("x"));
    CHECK(IsMacVolume("F:\\"));

    TestPc windows98(pc::Platform::windows98);
    CHECK(GetVolumeKind("N:\\") == VolumeKindOther);
    CHECK(GetVolumeKind("M:\\") == VolumeKindMac);
    CHECK(kindOf("N:\\") == "0");
}

TEST_CASE("A kind that cannot be told is an error, and shown as none") {
    const struct {
        const char* call;
        const char* root;
        ErrorCode error;
        const char* kind;
    } rows[] = {
        {"GetVolumeInformationA", "N:\\", ERROR_IO_DEVICE, "error 1117"},
        // A name that does not fit is not that of NTFS.
        {"GetVolumeInformationA", "F:\\", ERROR_MORE_DATA, "0"},
        {"GetVolumeInformationA", "F:\\", ERROR_BAD_LENGTH, "0"},
        // The driver's file could not be looked for: nobody knows what the volume is, unless it says so
        // itself.
        {"CreateFileA", "M:\\", ERROR_IO_DEVICE, "error 1117"},
        {"CreateFileA", "F:\\", ERROR_ACCESS_DENIED, "error 5"},
        {"CreateFileA", "N:\\", ERROR_ACCESS_DENIED, "2"},
        // Names that the file system does not take cannot be there.
        {"CreateFileA", "F:\\", ERROR_INVALID_NAME, "0"},
        {"CreateFileA", "F:\\", ERROR_PATH_NOT_FOUND, "0"},
        {"CreateFileA", "F:\\", ERROR_BAD_PATHNAME, "0"},
        {"CreateFileA", "F:\\", ERROR_FILENAME_EXCED_RANGE, "0"},
    };
    for (const auto& row : rows) {
        INFO(row.call, " ", row.root, " ", row.error);
        TestPc pc;
        const bool pseudoFile = std::string(row.call) != "GetVolumeInformationA";
        pc.faults().failAlways(row.call, row.root + (pseudoFile ? kPseudoFile : ""), row.error);
        CHECK(kindOf(row.root) == row.kind);
        if (row.kind[0] == 'e') CHECK(GetVolumeKind(row.root) == VolumeKindOther);
        CHECK(pc.nothingHeld());
    }
    TestPc windows95(pc::Platform::windows95);
    windows95.faults().failAlways("CreateFileA", "F:\\" + kPseudoFile, ERROR_NOT_READY);
    CHECK(kindOf("F:\\") == "error 21");
}
