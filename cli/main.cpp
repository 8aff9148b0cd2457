// The tidewell command.
#include "console_progress.h"
#include "extract.h"
#include "host.h"
#include "options.h"
#include "pack.h"
#include "replace_policy.h"
#include "report.h"
#include "resources.h"
#include "res/version.h"
#include "ui/user.h"

#include <new>

namespace {

// The command tells of failures itself, one file at a time.
const tidewell::User kTerminalUser = {&cli::consoleProgress, cli::confirmReplace,
                                      [](const tidewell::FileFailure&) { return -1; }, [](HWND) {}};

constexpr char kUsage[] =
    "usage: tidewell pack [-o DIR] [--replace=ask|yes|no] FILE...\n"
    "       tidewell extract [-o DIR] [--replace=ask|yes|no] FILE...\n"
    "       tidewell resources [--data] [--json] FILE\n"
    "       tidewell resources [--data] --type=TYPE --id=ID --raw|--hex [-o OUT] FILE\n"
    "       tidewell resources [--data] --fork -o OUT FILE\n"
    "       tidewell resources [--data] --png=DIR FILE\n"
    "       tidewell --help | --version\n";

constexpr char kHelp[] =
    "\n"
    "Tidewell brings Macintosh files to where there is no Macintosh.\n"
    "\n"
    "  pack    packs each Mac file (data fork, resource fork and Finder information)\n"
    "          into a MacBinary file: its name with .bin for its extension\n"
    "  extract restores the Mac file from each MacBinary (.bin) or BinHex (.hqx) file,\n"
    "          under its Mac name\n"
    "  resources lists what is in the resource fork of a Mac file, or of the one in a\n"
    "          MacBinary or BinHex file, and takes resources out of it\n"
    "\n"
    "  -o DIR           the folder for the outputs; the current one without it\n"
    "  --replace=ask    ask before replacing a file (without a terminal: an error)\n"
    "  --replace=yes    replace files\n"
    "  --replace=no     keep files that are there, and go on\n"
    "\n"
    "  --data           FILE itself is a resource fork\n"
    "  --json           list for programs\n"
    "  --type=TYPE      the wanted resource: its type, as four characters or as 0x and\n"
    "  --id=ID          8 digits, and its ID\n"
    "  --raw, --hex     its bytes as they are, or as a hex dump; to the standard output,\n"
    "                   or to OUT\n"
    "  --fork           the whole fork, to OUT\n"
    "  --png=DIR        each icon, cursor and pattern as a PNG file in DIR\n"
    "\n"
    "Exit status: 0 all done, 1 something failed or was cancelled, 2 wrong use.\n"
    "\n";

int tell(const std::string& text) {
    return cli::printOutput(text) ? cli::kAllDone : cli::kSomethingFailed;
}

int run(const std::vector<std::string>& arguments) {
    cli::Options options;
    const std::string wrong = cli::parseOptions(arguments, options);
    if (!wrong.empty()) {
        cli::reportNote(wrong);
        cli::print(cli::Stream::errors, kUsage);
        return cli::kWrongUse;
    }
    const cli::Host host;
    tidewell::SetUser(&kTerminalUser);
    switch (options.action) {
    case cli::Action::pack: return cli::pack(options);
    case cli::Action::extract: return cli::extract(options);
    case cli::Action::resources: return cli::resources(options);
    case cli::Action::help: return tell(std::string(kUsage) + kHelp + cli::macInformationHelp());
    case cli::Action::version: break;
    }
    return tell("tidewell " TIDEWELL_VERSION "\n");
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::bad_alloc&) {
        cli::endReplacing(false);
        cli::reportNote("error " + std::to_string(ERROR_NOT_ENOUGH_MEMORY) + ": there is not enough memory");
        return cli::kSomethingFailed;
    }
}
