#include "options.h"

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
    if (argument != "-o") return "there is no option '" + argument + "'";
    if (index + 1 < arguments.size()) options.outputFolder = arguments[++index];
    return options.outputFolder.empty() ? "-o needs a folder" : "";
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
    return options.files.empty() ? arguments[0] + " needs a file" : "";
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
    if (arguments[0] == "pack" || arguments[0] == "extract") {
        options.action = arguments[0] == "pack" ? Action::pack : Action::extract;
        return parseFiles(arguments, options);
    }
    return "there is no command '" + arguments[0] + "'";
}

}  // namespace cli
