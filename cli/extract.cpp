#include "extract.h"

#include "batch.h"

#include "convert/extract_original.h"

namespace cli {

namespace {

uint64_t sizeOfFile(const std::string& path) {
    return tidewell::GetFileSizeByPath(path.c_str());
}

// What would help a user more than the system's text.
std::string explanationOf(tidewell::ErrorCode error) {
    switch (error) {
    case ERROR_INVALID_DATA: return "It is no MacBinary (.bin) or BinHex (.hqx) file, or it is damaged.";
    case ERROR_CRC: return "It is damaged: a checksum is wrong.";
    case ERROR_INSUFFICIENT_BUFFER: return "The path of the output folder is too long.";
    case ERROR_HANDLE_EOF: return "It is damaged: it ends too early.";
    default: return {};
    }
}

Result extractFile(Batch& batch, const Source& source) {
    char output[tidewell::kPathCapacity] = "";
    DWORD flags = batch.moreFollow ? tidewell::kMoreFollow : 0;
    const tidewell::ErrorCode error = tidewell::ExtractOriginal(
        {nullptr, source.windows.c_str(), batch.windowsFolder.c_str(), &flags, batch.progress, output});
    return error != 0 ? Result{{error, explanationOf(error)}, {}} : Result{{}, output};
}

}  // namespace

int extract(const Options& options) {
    return runBatch(options, {"extracted", true, sizeOfFile, checkFile, extractFile});
}

}  // namespace cli
