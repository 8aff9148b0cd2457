#include "extract.h"

#include "batch.h"
#include "explanations.h"
#include "replace_policy.h"

#include "convert/extract_original.h"

namespace cli {

namespace {

uint64_t sizeOfFile(const std::string& path) {
    return tidewell::GetFileSizeByPath(path.c_str());
}

Result extractFile(Batch& batch, const Source& source) {
    char output[tidewell::kPathCapacity] = "";
    DWORD flags = batch.moreFollow ? tidewell::kMoreFollow : 0;
    const tidewell::ErrorCode error = tidewell::ExtractOriginal(
        {nullptr, source.windows.c_str(), batch.folder.windows.c_str(), &flags, batch.progress, output});
    if (error == 0) return {{}, output};
    const std::string refusal = takeRefusal();
    return {{error, refusal.empty() ? explanationOf(error) : refusal}, {}};
}

}  // namespace

int extract(const Options& options) {
    return runBatch(options, {"extracted", true, sizeOfFile, checkFile, extractFile});
}

}  // namespace cli
