// The replace question on the terminal.
#include "ui/confirm_replace.h"

#include "host.h"
#include "macfile/path.h"

namespace tidewell {

namespace {

int answerOf(char letter, BOOL several) {
    switch (letter) {
    case 'y':
    case 'Y': return IDYES;
    case 'n':
    case 'N': return IDNO;
    case 'c':
    case 'C': return IDCANCEL;
    case 'a':
    case 'A': return several ? IDYESTOALL : 0;
    default: return 0;
    }
}

}  // namespace

int ConfirmFileReplace(HWND, const char* path, BOOL several) {
    if (GetFileAttributesA(path) == INVALID_FILE_ATTRIBUTES) return IDYES;
    if (!cli::isTerminal(cli::Stream::input) || !cli::isTerminal(cli::Stream::errors)) return -1;
    const std::string question = "This folder already contains a file named '" +
                                 cli::typedPathOf({}, FileNamePart(path)) +
                                 "'.\nWould you like to replace the existing file? " +
                                 (several ? "[y]es, yes to [a]ll, [n]o, [c]ancel: " : "[y]es, [n]o: ");
    for (;;) {
        cli::print(cli::Stream::errors, question);
        const std::optional<std::string> line = cli::readLine();
        if (!line) return IDCANCEL;
        if (const int answer = line->empty() ? 0 : answerOf(line->front(), several)) return answer;
    }
}

}  // namespace tidewell
