#include "replace_policy.h"

#include "host.h"
#include "report.h"
#include "macfile/path.h"
#include "ui/confirm_replace.h"

#include <utility>
#include <vector>

namespace cli {

namespace {

// The library asks through a plain function, so the run's state is here.
struct ProtectedFile {
    std::string key;
    std::string typed;
    std::string reason;
};

struct Policy {
    Replace replace = Replace::ask;
    std::string typedFolder;
    std::vector<ProtectedFile> protectedFiles;
    std::string refusal;
};
Policy policy;

int answerOf(char letter, bool several) {
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

int ask(const std::string& name, bool several) {
    const std::string question = "This folder already contains a file named '" + name +
                                 "'.\nWould you like to replace the existing file? " +
                                 (several ? "[y]es, yes to [a]ll, [n]o, [c]ancel: " : "[y]es, [n]o: ");
    for (;;) {
        print(Stream::errors, question);
        const std::optional<std::string> line = readLine();
        if (!line) return IDCANCEL;
        if (const int answer = line->empty() ? 0 : answerOf(line->front(), several)) return answer;
    }
}

int refuse(tidewell::ErrorCode error, const std::string& reason) {
    policy.refusal = reason;
    SetLastError(error);
    return -1;
}

int decide(const std::string& path, bool several) {
    const std::string name = typedPathOf(policy.typedFolder, tidewell::FileNamePart(path.c_str()));
    const std::string output = shownOn(Stream::errors, name);
    for (const ProtectedFile& file : policy.protectedFiles) {
        if (file.key == pathKeyOf(path) || areOneFile(file.typed, name))
            return refuse(ERROR_SHARING_VIOLATION, output + " " + file.reason + ".");
    }
    int answer = policy.replace == Replace::yes ? IDYES : IDNO;
    if (policy.replace == Replace::ask) {
        if (!isTerminal(Stream::input) || !isTerminal(Stream::errors))
            return refuse(ERROR_FILE_EXISTS, output + " exists; say --replace=yes or --replace=no.");
        answer = ask(shownOn(Stream::errors, typedPathOf({}, tidewell::FileNamePart(path.c_str()))), several);
    }
    if (answer == IDNO) reportNote("kept " + output + ", which was there already");
    if (answer != IDYESTOALL) return answer;
    // Remembered here, and not by the library, which would ask no more about the files of this run.
    policy.replace = Replace::yes;
    return IDYES;
}

}  // namespace

void beginReplacing(Replace replace, const std::string& typedFolder) {
    policy = {replace, typedFolder, {}, {}};
}

void protect(const std::string& windowsPath, const std::string& typedPath, const std::string& reason) {
    policy.protectedFiles.push_back({pathKeyOf(windowsPath), typedPath, reason});
}

std::string takeRefusal() {
    return std::exchange(policy.refusal, {});
}

}  // namespace cli

namespace tidewell {

// Off Windows, and in the command, the library asks on the terminal.
int ConfirmFileReplace(HWND, const char* path, BOOL several) {
    if (!MayExist(path)) return IDYES;
    return cli::decide(path, several != FALSE);
}

}  // namespace tidewell
