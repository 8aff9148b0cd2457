#include "resources.h"

#include "buffered_output.h"
#include "picture_export.h"
#include "resource_export.h"
#include "resource_listing.h"

namespace cli {

namespace {

int list(const ForkSource& source, bool json) {
    tidewell::ResourceForkReader reader;
    BufferedOutput output;
    Failure failure = openFork(source, reader);
    if (failure.error == 0) failure = json ? listAsJson(reader, output) : listAsText(reader, output);
    const bool taken = output.flush();
    if (failure.error != 0) reportFailure(source.typed, failure);
    return failure.error == 0 && taken ? kAllDone : kSomethingFailed;
}

}  // namespace

int resources(const Options& options) {
    const std::string& file = options.files[0];
    const ForkSource source = {file, windowsPathOf(file), options.resources.fileIsFork};
    switch (options.resources.task) {
    case ResourceTask::list: return list(source, false);
    case ResourceTask::json: return list(source, true);
    case ResourceTask::raw:
    case ResourceTask::hex: return exportResource(source, options);
    case ResourceTask::fork: return exportFork(source, options);
    case ResourceTask::pictures: break;
    }
    return exportPictures(source, options);
}

}  // namespace cli
