#include "options.h"

#include <utility>

namespace cli {

namespace {

constexpr char kReplaceOption[] = "--replace=";

bool parseReplace(const std::string& word, Replace& replace) {
    if (word == "ask") {
        replace = Replace::ask;
    } else if (word == "yes") {
        replace = Replace::yes;
    } else if (word == "no") {
        replace = Replace::no;
    } else {
        return false;
    }
    return true;
}

// Takes the option at `index` and moves on to its last argument.
std::string parseOption(const std::vector<std::string>& arguments, size_t& index, Options& options) {
    const std::string& argument = arguments[index];
    if (argument.starts_with(kReplaceOption)) {
        const std::string word = argument.substr(sizeof kReplaceOption - 1);
        return parseReplace(word, options.replace) ? ""
                                                   : "--replace takes ask, yes or no, not '" + word + "'";
    }
    const bool resources = options.action == Action::resources;
    if (argument == "-o") {
        std::string& output = resources ? options.resources.outputFile : options.outputFolder;
        output = index + 1 < arguments.size() ? arguments[++index] : "";
        return !output.empty() ? "" : resources ? "-o needs a file" : "-o needs a folder";
    }
    return resources ? parseResourceOption(argument, options.resources) : noSuchOption(argument);
}

// The options and files of a command, which is the first argument.
std::string parseFiles(const std::vector<std::string>& arguments, Options& options) {
    bool onlyFiles = false;
    for (size_t i = 1; i < arguments.size(); ++i) {
        if (!onlyFiles && arguments[i] == "--") {
            onlyFiles = true;
        } else if (!onlyFiles && (arguments[i] == "--help" || arguments[i] == "-h")) {
            options.action = Action::help;
            return {};
        } else if (!onlyFiles && arguments[i].size() > 1 && arguments[i][0] == '-') {
            if (std::string wrong = parseOption(arguments, i, options); !wrong.empty()) return wrong;
        } else {
            options.files.push_back(arguments[i]);
        }
    }
    if (options.files.empty()) return arguments[0] + " needs a file";
    if (options.action != Action::resources) return {};
    return options.files.size() > 1 ? "resources takes one file" : checkResourceOptions(options.resources);
}

}  // namespace

std::string parseOptions(const std::vector<std::string>& arguments, Options& options) {
    if (arguments.empty()) return "a command is missing";
    if (arguments[0] == "--help" || arguments[0] == "-h") {
        options.action = Action::help;
        return {};
    }
    if (arguments[0] == "--version") {
        options.action = Action::version;
        return {};
    }
    const std::pair<const char*, Action> commands[] = {
        {"pack", Action::pack}, {"extract", Action::extract}, {"resources", Action::resources}};
    for (const auto& [name, action] : commands) {
        if (arguments[0] != name) continue;
        options.action = action;
        return parseFiles(arguments, options);
    }
    return "there is no command '" + arguments[0] + "'";
}

}  // namespace cli
