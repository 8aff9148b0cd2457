// The options of `tidewell resources`.
#ifndef TIDEWELL_CLI_RESOURCE_OPTIONS_H
#define TIDEWELL_CLI_RESOURCE_OPTIONS_H

#include <cstdint>
#include <optional>
#include <string>

namespace cli {

enum class ResourceTask { list, json, raw, hex, fork, pictures };

struct ResourceOptions {
    ResourceTask task = ResourceTask::list;
    std::string type;  // of the wanted resource, as typed; empty: none is wanted
    std::optional<int16_t> id;
    std::string outputFile;     // empty: the standard output
    std::string pictureFolder;  // for the task pictures
    bool fileIsFork = false;
};

// What is wrong with an option that nobody knows.
std::string noSuchOption(const std::string& argument);

// Takes one option. Returns what is wrong with it, or nothing.
std::string parseResourceOption(const std::string& argument, ResourceOptions& options);

// Returns what is wrong with the options together, or nothing.
std::string checkResourceOptions(const ResourceOptions& options);

}  // namespace cli

#endif
