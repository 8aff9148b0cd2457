#include "replace_policy.h"

#include "host.h"
#include "report.h"
#include "set_aside.h"
#include "base/text.h"
#include "base/path.h"
#include "res/replace_texts.h"
#include "res/resource.h"

#include <utility>
#include <vector>

namespace cli {

namespace {

// The library asks through a plain function, so the run's state is here.
struct ProtectedFile {
    std::string key;
    std::string identity;
    std::string reason;
};

struct Policy {
    Replace replace = Replace::ask;
    std::string typedFolder;
    bool writesInPlace = false;
    std::vector<ProtectedFile> protectedFiles;
    std::string refusal;
    SetAside aside;
};
Policy policy;

// 0 for a line that is no answer.
int answerOf(const std::string& line, bool several) {
    const struct {
        const char* letter;
        const char* word;
        int answer;
    } answers[] = {{"y", "yes", IDYES},
                   {"n", "no", IDNO},
                   {"c", "cancel", IDCANCEL},
                   {"a", "yes to all", several ? IDYESTOALL : 0}};
    for (const auto& [letter, word, answer] : answers) {
        if (tidewell::equalsIgnoringCase(line.c_str(), letter) ||
            tidewell::equalsIgnoringCase(line.c_str(), word))
            return answer;
    }
    return 0;
}

int ask(const std::string& name, bool several) {
    std::string question = TEXT_REPLACE_NAME "\n" TEXT_REPLACE_QUESTION " ";
    question += several ? "[y]es, yes to [a]ll, [n]o, [c]ancel: " : "[y]es, [n]o: ";
    question.replace(question.find("%1"), 2, name);
    for (;;) {
        print(Stream::errors, question);
        const std::optional<std::string> line = readLine();
        if (!line) return IDCANCEL;
        if (const int answer = answerOf(*line, several)) return answer;
    }
}

int refuse(tidewell::ErrorCode error, const std::string& reason) {
    policy.refusal = reason;
    SetLastError(error);
    return -1;
}

int giveUp(const std::string& name) {
    const std::string aside = typedPathOf(policy.typedFolder, freshNameIn(policy.typedFolder).c_str());
    policy.aside = SetAside();
    const tidewell::ErrorCode error = policy.aside.begin(name, aside);
    return error == 0 ? IDYES : refuse(error, {});
}

int decide(const std::string& path, bool several) {
    const std::string name = typedPathOf(policy.typedFolder, tidewell::FileNamePart(path.c_str()));
    const bool nothingThere = !tidewell::MayExist(path.c_str());
    if (nothingThere && !(policy.writesInPlace && leftMacInformation(name))) return IDYES;
    const std::string output = shownOn(Stream::errors, name);
    const std::string key = pathKeyOf(path);
    const std::string identity = identityOf(name);
    for (const ProtectedFile& file : policy.protectedFiles) {
        if (file.key == key || (!identity.empty() && file.identity == identity))
            return refuse(ERROR_SHARING_VIOLATION, output + " " + file.reason + ".");
    }
    int answer = policy.replace == Replace::yes ? IDYES : IDNO;
    if (policy.replace == Replace::ask) {
        if (!isTerminal(Stream::input) || !isTerminal(Stream::errors))
            return refuse(ERROR_FILE_EXISTS, output + " exists; say --replace=yes or --replace=no.");
        answer = ask(shownOn(Stream::errors, typedPathOf({}, tidewell::FileNamePart(path.c_str()))), several);
    }
    if (answer == IDNO) reportNote("kept " + output + ", which was there already");
    // Remembered here, and not by the library, which would ask no more about the files of this run.
    if (answer == IDYESTOALL) policy.replace = Replace::yes;
    if (answer != IDYES && answer != IDYESTOALL) return answer;
    return policy.writesInPlace ? giveUp(name) : IDYES;
}

}  // namespace

int confirmReplace(HWND, const char* path, BOOL several) {
    return decide(path, several != FALSE);
}

void beginReplacing(Replace replace, const std::string& typedFolder, bool writesInPlace) {
    policy = {replace, typedFolder, writesInPlace, {}, {}, {}};
}

void protect(const std::string& windowsPath, const std::string& typedPath, const std::string& reason) {
    policy.protectedFiles.push_back({pathKeyOf(windowsPath), identityOf(typedPath), reason});
}

void endReplacing(bool done) {
    SetAside aside = std::exchange(policy.aside, {});
    if (aside.what().empty()) return;
    if (done) {
        aside.discard();
    } else {
        aside.bringBack();
    }
    if (const std::string what = aside.what(); !what.empty())
        reportNote("the former " + shownOn(Stream::errors, what));
}

std::string takeRefusal() {
    return std::exchange(policy.refusal, {});
}

}  // namespace cli
