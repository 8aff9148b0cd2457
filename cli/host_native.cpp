#include "host.h"

#include "pc/host/host.h"
#include "pc/names/host_name.h"
#include "pc/names/mac_host_name.h"
#include "pc/devices/mac_volume_driver.h"
#include "pc/pc.h"

#include "base/path.h"
#include "module/module_state.h"

#include <csignal>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace cli {

namespace {

// The drive that shows the host's file system.
constexpr char kHostDrive = 'Z';

pc::Pc* thePc;
volatile std::sig_atomic_t interruptCount;

void onInterrupt(int) {
    interruptCount = 1;
}

void catchInterrupts() {
    struct sigaction action = {};
    action.sa_handler = onInterrupt;  // without SA_RESTART, so that a question is interrupted, too
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction before = {};
        sigaction(signal, nullptr, &before);
        // Who started the command may have it go on when the terminal closes.
        if (before.sa_handler != SIG_IGN) sigaction(signal, &action, nullptr);
    }
    // Output that nobody takes, or that a limit forbids, shows as a failed write.
    action.sa_handler = SIG_IGN;
    for (const int signal : {SIGPIPE, SIGXFSZ})
        sigaction(signal, &action, nullptr);
}

int descriptorOf(Stream stream) {
    switch (stream) {
    case Stream::input: return STDIN_FILENO;
    case Stream::output: return STDOUT_FILENO;
    case Stream::errors: break;
    }
    return STDERR_FILENO;
}

bool writeAll(int descriptor, const char* bytes, size_t count) {
    while (count > 0) {
        const ssize_t written = write(descriptor, bytes, count);
        if (written == 0 || (written < 0 && errno != EINTR)) return false;
        const size_t taken = written < 0 ? 0 : static_cast<size_t>(written);
        bytes += taken;
        count -= taken;
        // The interrupt key also ends a write half-way.
        if (count > 0 && interrupted()) return false;
    }
    return true;
}

// Follows the links of the folders on the way, but not of the file itself, whose name is wanted.
std::filesystem::path fullPathOf(const std::string& typed) {
    std::error_code error;
    const std::filesystem::path path = std::filesystem::absolute(typed, error);
    // Without a current folder a relative path means nothing, and not the root.
    if (error || typed.empty()) return {};
    const bool namesFolder = !path.has_filename() || path.filename() == "." || path.filename() == "..";
    std::filesystem::path full = namesFolder ? std::filesystem::canonical(path, error)
                                             : std::filesystem::canonical(path.parent_path(), error);
    if (error) return path.lexically_normal();
    return namesFolder ? full : full / path.filename();
}

}  // namespace

Host::Host() {
    thePc = new pc::Pc(pc::Platform::nt);
    thePc->setCodePage(pc::kCodePageUtf8);
    // Room for the longest path that is taken, and for what the volume adds to it to name its Mac
    // information.
    thePc->setPathLimit(tidewell::kPathCapacity);
    thePc->journal().setKept(false);
    thePc->setDeviceNames(false);
    thePc->addDrive(kHostDrive, pc::makeMacVolume(pc::nativeHost(), "/", pc::FinderFlush::withDataFork));
    thePc->addDevice(pc::kMacVolumeDriverName, pc::makeMacVolumeDriver(*thePc));
    catchInterrupts();
    tidewell::InitializeModuleState(GetModuleHandleA(nullptr));
}

Host::~Host() {
    delete thePc;
}

std::string windowsPathOf(const std::string& typed) {
    const std::filesystem::path full = fullPathOf(typed);
    if (full.empty()) return typed;
    std::string path(1, kHostDrive);
    path += ":";
    for (const std::filesystem::path& component : full.relative_path()) {
        if (!component.empty()) path += '\\' + pc::windowsNameOf(component.string());
    }
    return path.size() > 2 ? path : path + '\\';
}

std::string pathKeyOf(const std::string& windowsPath) {
    return windowsPath;
}

std::string identityOf(const std::string& typed) {
    pc::HostStatus status;
    return pc::nativeHost()->status(typed, status) == 0 ? status.identity : std::string();
}

std::string windowsNameOf(const std::string& typedName) {
    return pc::windowsNameOf(typedName);
}

bool isMacInformation(const std::string& typedName) {
    return pc::belongsToDriver(typedName);
}

size_t fileNameStart(const std::string& typed) {
    return typed.rfind('/') + 1;  // 0 without one
}

std::string freshNameIn(const std::string& typedFolder) {
    std::error_code error;
    for (unsigned n = 0;; ++n) {
        std::string name = ".tidewell-" + std::to_string(getpid()) + "-" + std::to_string(n);
        const std::string information = std::string(pc::kDriverPrefix) + name;
        const std::filesystem::path folder = typedFolder;
        if (!std::filesystem::exists(std::filesystem::symlink_status(folder / name, error)) &&
            !std::filesystem::exists(std::filesystem::symlink_status(folder / information, error)))
            return name;
    }
}

tidewell::ErrorCode rename(const std::string& from, const std::string& to, bool mayReplace) {
    return mayReplace ? pc::nativeHost()->replace(from, to) : pc::nativeHost()->move(from, to);
}

FolderLock::FolderLock(const std::string& typedFolder)
    : handle_(open(typedFolder.empty() ? "." : typedFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {
    if (handle_ >= 0 && flock(static_cast<int>(handle_), LOCK_EX) != 0) errno = 0;
}

FolderLock::~FolderLock() {
    if (handle_ >= 0) close(static_cast<int>(handle_));
}

const char* macInformationHelp() {
    return "The resource fork and the Finder information of a file NAME are in the\n"
           "AppleDouble file ._NAME beside it, where macOS puts them on a foreign disk.\n";
}

std::string typedPathOf(const std::string& typedFolder, const char* windowsName) {
    const std::string name = pc::hostNameOf(windowsName);
    return typedFolder.empty() ? name : (std::filesystem::path(typedFolder) / name).string();
}

bool isTerminal(Stream stream) {
    return isatty(descriptorOf(stream)) != 0;
}

unsigned terminalWidth() {
    winsize size = {};
    return ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : 80;
}

bool print(Stream stream, const std::string& text) {
    return writeAll(descriptorOf(stream), text.data(), text.size());
}

std::optional<std::string> readLine() {
    std::string line;
    char c = 0;
    while (read(STDIN_FILENO, &c, 1) == 1) {
        if (c == '\n') return line;
        line += c;
    }
    return std::nullopt;
}

bool interrupted() {
    return interruptCount != 0;
}

}  // namespace cli
