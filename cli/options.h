// The command line.
#ifndef TIDEWELL_CLI_OPTIONS_H
#define TIDEWELL_CLI_OPTIONS_H

#include "resource_options.h"

#include <string>
#include <vector>

namespace cli {

enum class Action { pack, extract, resources, help, version };

// What to do with an output that is there already.
enum class Replace { ask, yes, no };

struct Options {
    Action action = Action::help;
    std::string outputFolder;  // empty: the current one
    Replace replace = Replace::ask;
    ResourceOptions resources;
    std::vector<std::string> files;
};

// Returns what is wrong with the arguments (without the program's name), or nothing.
std::string parseOptions(const std::vector<std::string>& arguments, Options& options);

}  // namespace cli

#endif
