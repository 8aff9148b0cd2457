#include "support/extraction_case.h"

#include "macfile/finder_info.h"
#include "macfile/fork_paths.h"

#include <doctest/doctest.h>

tidewell::ErrorCode extractBytes(const Bytes& source, const char* extension, char drive) {
    const std::string path = std::string("F:\\in") + extension;
    const std::string folder = std::string(1, drive) + ":\\";
    writeFile(path, source);
    DWORD flags = 0;
    const tidewell::ErrorCode error =
        ExtractOriginalMacFile(nullptr, path.c_str(), folder.c_str(), &flags, nullptr);
    CHECK(readFile(path) == source);
    return error;
}

MacFile readMacFile(const std::string& path) {
    MacFile file;
    file.data = readFile(path);
    tidewell::ForkPathBuffers paths;
    tidewell::GetForkPaths(path.c_str(), paths);
    file.hasResource = paths.resourceLength != 0 && exists(paths.resourcePath);
    if (file.hasResource) file.resource = readFile(paths.resourcePath);
    tidewell::FinderInfoRecord record;
    if (paths.finderInfoLength == 0 || !tidewell::ReadFinderInfo(paths.finderInfoPath, &record)) return file;
    const bool mac = record.kind == tidewell::VolumeKindMac;
    const tidewell::FinderFields& finder = mac ? record.mac.finder : record.afp.finder;
    file.type = finder.type;
    file.creator = finder.creator;
    file.flags = finder.flags;
    file.vertical = finder.vertical;
    file.horizontal = finder.horizontal;
    file.window = finder.window;
    file.attributes = mac ? record.mac.attributes : 0;
    return file;
}
