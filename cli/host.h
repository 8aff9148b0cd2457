// What the command needs of the system it runs on: Windows, or a host where the PC stands in for it.
#ifndef TIDEWELL_CLI_HOST_H
#define TIDEWELL_CLI_HOST_H

#include "base/error_code.h"

#include <cstdint>
#include <optional>
#include <string>

namespace cli {

enum class Stream { input, output, errors };

// Sets up what the library runs on, and the interrupt key. Lives as long as the command.
class Host {
  public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;
};

// The full Windows path of a path as the user typed it, which need not name anything; as it was typed where
// the system cannot tell.
std::string windowsPathOf(const std::string& typed);

// Equal for the paths that the host takes for one.
std::string pathKeyOf(const std::string& windowsPath);

// Equal for all links that lead to one existing file, as typed; empty when there is none.
std::string identityOf(const std::string& typed);

// A file name as Windows programs see it.
std::string windowsNameOf(const std::string& typedName);

// Whether a file of this name, as typed, would be the Mac information of another.
bool isMacInformation(const std::string& typedName);

// Where the file name of a path begins, as typed.
size_t fileNameStart(const std::string& typed);

// A file name in `typedFolder` that nothing has yet.
std::string freshNameIn(const std::string& typedFolder);

// Gives the file `from` the name `to` in one step, both as typed and in one folder. What is there already is
// replaced, or ERROR_FILE_EXISTS when it may not be; `from` then keeps its name.
tidewell::ErrorCode rename(const std::string& from, const std::string& to, bool mayReplace);

// While it lives no other process of this command works in the folder, as typed, under such a lock; where the
// system has no such locks, it is none. Waits for the other, or for the interrupt key.
class FolderLock {
  public:
    explicit FolderLock(const std::string& typedFolder);
    ~FolderLock();
    FolderLock(const FolderLock&) = delete;
    FolderLock& operator=(const FolderLock&) = delete;

  private:
    intptr_t handle_;
};

// Where the help says Mac information is.
const char* macInformationHelp();

// A file name of a Windows path as the user knows it, below the folder `typedFolder`.
std::string typedPathOf(const std::string& typedFolder, const char* windowsName);

bool isTerminal(Stream stream);

// How many characters fit in a line of the terminal.
unsigned terminalWidth();

// Whether all of the text was taken. Gives up waiting for a reader after the interrupt key.
bool print(Stream stream, const std::string& text);

// A line of the user's input without its end; nothing at the end of the input or after an interrupt.
std::optional<std::string> readLine();

// Whether the user has pressed the interrupt key.
bool interrupted();

}  // namespace cli

#endif
