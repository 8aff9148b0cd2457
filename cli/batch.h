// One run of a command over the files of its command line.
#ifndef TIDEWELL_CLI_BATCH_H
#define TIDEWELL_CLI_BATCH_H

#include "options.h"
#include "output_file.h"
#include "report.h"
#include "ui/progress.h"

#include <cstdint>
#include <string>

namespace cli {

struct Source {
    std::string typed;    // as the user named it
    std::string windows;  // its full Windows path
};

struct Batch {
    OutputFolder folder;
    tidewell::ProgressDialog* progress = nullptr;
    bool moreFollow = false;  // files, after the current one
};

struct Command {
    const char* done;                                    // "packed"
    bool writesInPlace;                                  // into the file that is replaced
    uint64_t (*sizeOf)(const std::string& windowsPath);  // what the progress counts
    Failure (*check)(const std::string& windowsPath);    // before anything is done
    Result (*run)(Batch& batch, const Source& source);
};

// Runs the command over every file; returns the exit status.
int runBatch(const Options& options, const Command& command);

// What any source must be: a file, with a path that Windows can hold.
Failure checkFile(const std::string& windowsPath);

}  // namespace cli

#endif
