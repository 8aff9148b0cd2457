#include "resource_options.h"

#include <charconv>

namespace cli {

namespace {

constexpr char kTypeOption[] = "--type=";
constexpr char kIdOption[] = "--id=";
constexpr char kPicturesOption[] = "--png=";

std::string setTask(ResourceTask task, ResourceOptions& options) {
    const bool another = options.task != ResourceTask::list && options.task != task;
    options.task = task;
    return another ? "only one of --json, --raw, --hex, --fork and --png can be done at a time" : "";
}

std::string parseId(const std::string& text, ResourceOptions& options) {
    int16_t id = 0;
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, id);
    if (stop != end || error != std::errc()) return "--id takes -32768 to 32767, not '" + text + "'";
    options.id = id;
    return {};
}

}  // namespace

std::string noSuchOption(const std::string& argument) {
    return "there is no option '" + argument + "'";
}

std::string parseResourceOption(const std::string& argument, ResourceOptions& options) {
    if (argument == "--json") return setTask(ResourceTask::json, options);
    if (argument == "--raw") return setTask(ResourceTask::raw, options);
    if (argument == "--hex") return setTask(ResourceTask::hex, options);
    if (argument == "--fork") return setTask(ResourceTask::fork, options);
    if (argument == "--data") {
        options.fileIsFork = true;
        return {};
    }
    if (argument.starts_with(kIdOption)) return parseId(argument.substr(sizeof kIdOption - 1), options);
    if (argument.starts_with(kTypeOption)) {
        options.type = argument.substr(sizeof kTypeOption - 1);
        return options.type.empty() ? "--type needs a type" : "";
    }
    if (!argument.starts_with(kPicturesOption)) return noSuchOption(argument);
    options.pictureFolder = argument.substr(sizeof kPicturesOption - 1);
    return options.pictureFolder.empty() ? "--png needs a folder" : setTask(ResourceTask::pictures, options);
}

std::string checkResourceOptions(const ResourceOptions& options) {
    const bool one = options.task == ResourceTask::raw || options.task == ResourceTask::hex;
    const bool fork = options.task == ResourceTask::fork;
    const bool named = !options.type.empty() && options.id.has_value();
    if (one && !named) return "--raw and --hex need --type and --id";
    if (!one && (!options.type.empty() || options.id)) return "--type and --id go with --raw or --hex";
    if (fork && options.outputFile.empty()) return "--fork needs -o";
    if (!one && !fork && !options.outputFile.empty()) return "-o goes with --raw, --hex or --fork";
    return {};
}

}  // namespace cli
