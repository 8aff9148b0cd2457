#include "picture_export.h"

#include "new_file.h"
#include "png_picture.h"
#include "resource_export.h"
#include "resource_walk.h"

#include <algorithm>

namespace cli {

namespace {

using tidewell::ReferenceEntry;
using tidewell::TypeEntry;

// Of types that are pictures, whose characters are all fit for files.
std::string pictureName(const tidewell::ResourceType& type, int16_t id) {
    std::string name(reinterpret_cast<const char*>(type.bytes), sizeof type.bytes);
    name.erase(name.find_last_not_of(' ') + 1);
    return name + "_" + std::to_string(id) + ".png";
}

Result writePicture(const OutputFolder& folder, const std::string& name, const tidewell::Picture& picture) {
    if (!picture) return {{ERROR_INVALID_DATA, name + " is left out: its resource is damaged."}, {}};
    const std::string bytes = pngOf(picture);
    if (bytes.empty()) return {{ERROR_NOT_ENOUGH_MEMORY, {}}, {}};
    return writeOutput(folder, name, true, nullptr,
                       [&](const char* path) { return makeNewFile(path, bytes); });
}

// All of the fork. Returns the exit status.
int writePictures(const ForkSource& source, tidewell::ResourceForkReader& reader,
                  const OutputFolder& folder) {
    int status = kAllDone;
    // Pictures that share their data could make a small fork fill a disk.
    uint64_t room = reader.ForkSize();
    Failure stopped;
    const auto write = [&](const TypeEntry& type, const ReferenceEntry& reference) {
        uint32_t length = 0;
        if (interrupted()) stopped = {ERROR_CANCELLED, {}};
        if (reader.ReadDataLength(reference, length) && length > room)
            stopped = {ERROR_FILE_CORRUPT, "It is damaged: its pictures overlap."};
        if (stopped.error != 0) return false;
        room -= length;
        const Result result = writePicture(folder, pictureName(type.type, reference.id()),
                                           tidewell::ReadPicture(reader, type, reference));
        if (reportResult("saved", source.typed, folder, result) != kAllDone) status = kSomethingFailed;
        return result.failure.error != ERROR_CANCELLED;
    };
    Failure failure =
        walkResources(reader, [&](const TypeEntry& type, const std::vector<ReferenceEntry>& all) {
            return !tidewell::IsPictureType(type.type) ||
                   std::all_of(all.begin(), all.end(),
                               [&](const ReferenceEntry& reference) { return write(type, reference); });
        });
    if (failure.error == 0) failure = stopped;
    return failure.error == 0 ? status : reportFailure(source.typed, failure);
}

}  // namespace

int exportPictures(const ForkSource& source, const Options& options) {
    if (!canMakePng()) {
        reportNote("this tidewell was built without PNG");
        return kWrongUse;
    }
    tidewell::ResourceForkReader reader;
    if (const Failure failure = openFork(source, reader); failure.error != 0)
        return reportFailure(source.typed, failure);
    const std::string& typedFolder = options.resources.pictureFolder;
    OutputFolder folder;
    if (const Failure failure = beginOutputs(source, options, typedFolder, folder); failure.error != 0)
        return reportFailure(typedFolder, failure);
    return writePictures(source, reader, folder);
}

}  // namespace cli
