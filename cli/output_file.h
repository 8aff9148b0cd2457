// What a run of the command writes: whole files, under their names only when all of them is there.
#ifndef TIDEWELL_CLI_OUTPUT_FILE_H
#define TIDEWELL_CLI_OUTPUT_FILE_H

#include "report.h"
#include "ui/progress.h"

#include <functional>
#include <string>

namespace cli {

struct OutputFolder {
    std::string typed;  // empty: the current one
    std::string windows;
};

// Finds the folder as typed, which has to be there.
Failure findOutputFolder(const std::string& typed, OutputFolder& folder);

// What became of an output.
struct Result {
    Failure failure;     // error 0: it went well, or the user keeps what is there
    std::string output;  // the Windows path that was written; empty when nothing was
};

// Makes a new file at a Windows path, or leaves none behind.
using MakeFile = std::function<tidewell::ErrorCode(const char* path)>;

// Asks as the run's policy has it before a file called `name` (as typed) is replaced in the folder. Makes the
// file under another name first: until all of it is there, nothing that the user has is touched. The
// progress, which may be null, is paused for the question, which knows whether more outputs follow.
Result writeOutput(const OutputFolder& folder, const std::string& name, bool moreFollow,
                   tidewell::ProgressDialog* progress, const MakeFile& make);

// Tells of a failure, or of the output that was made from the source, "packed SOURCE -> OUTPUT", and protects
// it from the rest of the run. Returns the exit status.
int reportResult(const char* done, const std::string& source, const OutputFolder& folder,
                 const Result& result);

}  // namespace cli

#endif
