// Progress as one line of the terminal.
#ifndef TIDEWELL_CLI_CONSOLE_PROGRESS_H
#define TIDEWELL_CLI_CONSOLE_PROGRESS_H

#include "ui/progress_display.h"

namespace cli {

extern const tidewell::ProgressDisplay consoleProgress;

}  // namespace cli

#endif
