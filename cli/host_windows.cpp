#include "host.h"

#include "base/full_path.h"
#include "base/text.h"
#include "module/module_state.h"

#include <algorithm>
#include <cstdlib>

// Windows leaves "*.txt" to the program; this asks the C library's start-up to look the files up.
extern "C" int _dowildcard;
int _dowildcard = -1;

namespace cli {

namespace {

volatile LONG interruptFlag;
volatile LONG finishedFlag;

// Runs on a thread of its own. When the console closes, the process ends as soon as this returns: it waits
// until the unfinished file is gone.
BOOL WINAPI onConsoleEvent(DWORD event) {
    constexpr DWORD kWaitStep = 50;       // ms
    constexpr DWORD kLongestWait = 4000;  // ms, less than the system grants
    InterlockedExchange(&interruptFlag, 1);
    if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT) return TRUE;
    for (DWORD waited = 0; finishedFlag == 0 && waited < kLongestWait; waited += kWaitStep)
        Sleep(kWaitStep);
    return TRUE;
}

HANDLE handleOf(Stream stream) {
    switch (stream) {
    case Stream::input: return GetStdHandle(STD_INPUT_HANDLE);
    case Stream::output: return GetStdHandle(STD_OUTPUT_HANDLE);
    case Stream::errors: break;
    }
    return GetStdHandle(STD_ERROR_HANDLE);
}

bool writeAll(HANDLE file, const char* bytes, size_t count) {
    while (count > 0) {
        DWORD written = 0;
        if (!WriteFile(file, bytes, static_cast<DWORD>(count), &written, nullptr) || written == 0)
            return false;
        bytes += written;
        count -= written;
    }
    return true;
}

// In one step, where Windows can: 120 where it cannot.
tidewell::ErrorCode replaceFile(const std::string& from, const std::string& to) {
    using MoveFileEx = BOOL(WINAPI*)(LPCSTR, LPCSTR, DWORD);
    FARPROC const function = GetProcAddress(GetModuleHandleA("KERNEL32.DLL"), "MoveFileExA");
    if (function == nullptr) return ERROR_CALL_NOT_IMPLEMENTED;
    const auto move = reinterpret_cast<MoveFileEx>(reinterpret_cast<void*>(function));
    return move(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : GetLastError();
}

bool endsFolder(const std::string& folder) {
    return folder.back() == '\\' || folder.back() == '/' || folder.back() == ':';
}

}  // namespace

Host::Host() {
    SetConsoleCtrlHandler(onConsoleEvent, TRUE);
    SetErrorMode(SEM_FAILCRITICALERRORS);
    tidewell::InitializeModuleState(GetModuleHandleA(nullptr));
}

Host::~Host() {
    InterlockedExchange(&finishedFlag, 1);
}

std::string windowsPathOf(const std::string& typed) {
    char full[tidewell::kPathCapacity];
    return tidewell::GetFullPath(typed.c_str(), full) == 0 ? full : typed;
}

std::string pathKeyOf(const std::string& windowsPath) {
    std::string key = windowsPath;
    if (!key.empty()) CharUpperBuffA(key.data(), static_cast<DWORD>(key.size()));
    return key;
}

std::string identityOf(const std::string& typed) {
    const tidewell::OwnedFile file(CreateFileA(typed.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                               OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    BY_HANDLE_FILE_INFORMATION information = {};
    if (!file || !GetFileInformationByHandle(file.get(), &information)) return {};
    return std::to_string(information.dwVolumeSerialNumber) + ":" +
           std::to_string(information.nFileIndexHigh) + ":" + std::to_string(information.nFileIndexLow);
}

std::string windowsNameOf(const std::string& typedName) {
    return typedName;
}

bool isMacInformation(const std::string& /*typedName*/) {
    return false;
}

size_t fileNameStart(const std::string& typed) {
    const char* const text = typed.c_str();
    const char* start = text;
    for (const char* at = text; *at != '\0'; at = tidewell::nextCharacter(at)) {
        if (*at == '\\' || *at == '/' || *at == ':') start = at + 1;
    }
    return static_cast<size_t>(start - text);
}

std::string freshNameIn(const std::string& typedFolder) {
    for (unsigned n = 0;; ++n) {
        std::string name = "tw" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(n) + ".tmp";
        if (GetFileAttributesA(typedPathOf(typedFolder, name.c_str()).c_str()) == INVALID_FILE_ATTRIBUTES)
            return name;
    }
}

tidewell::ErrorCode rename(const std::string& from, const std::string& to, bool mayReplace) {
    if (mayReplace) {
        const tidewell::ErrorCode error = replaceFile(from, to);
        if (error != ERROR_CALL_NOT_IMPLEMENTED) return error;
        // Windows 95 and 98 take two steps.
        if (!DeleteFileA(to.c_str())) return GetLastError();
    }
    if (MoveFileA(from.c_str(), to.c_str())) return 0;
    const tidewell::ErrorCode error = GetLastError();
    return error == ERROR_ALREADY_EXISTS ? ERROR_FILE_EXISTS : error;
}

FolderLock::FolderLock(const std::string& typedFolder) {
    constexpr size_t kLongest = 200;  // characters; a mutex's name has at most 260
    constexpr DWORD kWaitStep = 100;  // ms
    std::string name = pathKeyOf(windowsPathOf(typedFolder.empty() ? "." : typedFolder));
    if (endsFolder(name)) name.pop_back();
    if (name.size() > kLongest) name.erase(0, name.size() - kLongest);
    std::replace(name.begin(), name.end(), '\\', '/');
    HANDLE const mutex = CreateMutexA(nullptr, FALSE, ("tidewell:" + name).c_str());
    while (mutex && WaitForSingleObject(mutex, kWaitStep) == WAIT_TIMEOUT && !interrupted()) {
    }
    handle_ = reinterpret_cast<intptr_t>(mutex);
}

FolderLock::~FolderLock() {
    if (handle_ == 0) return;
    ReleaseMutex(reinterpret_cast<HANDLE>(handle_));
    CloseHandle(reinterpret_cast<HANDLE>(handle_));
}

const char* macInformationHelp() {
    return "The resource fork and the Finder information of a file are where its disk keeps\n"
           "them: on a Mac disk, or on NTFS in the file's streams AFP_Resource and\n"
           "AFP_AfpInfo. Other disks keep none.\n";
}

std::string typedPathOf(const std::string& typedFolder, const char* windowsName) {
    if (typedFolder.empty()) return windowsName;
    return typedFolder + (endsFolder(typedFolder) ? "" : "\\") + windowsName;
}

bool isTerminal(Stream stream) {
    DWORD mode = 0;
    return GetConsoleMode(handleOf(stream), &mode) != FALSE;
}

unsigned terminalWidth() {
    CONSOLE_SCREEN_BUFFER_INFO info = {};
    return GetConsoleScreenBufferInfo(handleOf(Stream::errors), &info) && info.dwSize.X > 0
               ? static_cast<unsigned>(info.dwSize.X)
               : 80;
}

bool print(Stream stream, const std::string& text) {
    std::string shown = text;
    if (isTerminal(stream) && !shown.empty()) {
        // A console shows the OEM code page, paths are in the ANSI one.
        CharToOemBuffA(text.c_str(), shown.data(), static_cast<DWORD>(shown.size()));
    }
    return writeAll(handleOf(stream), shown.data(), shown.size());
}

std::optional<std::string> readLine() {
    std::string line;
    char c = 0;
    DWORD got = 0;
    while (ReadFile(handleOf(Stream::input), &c, 1, &got, nullptr) && got == 1) {
        if (c == '\n') return line;
        if (c != '\r') line += c;
    }
    return std::nullopt;
}

bool interrupted() {
    return interruptFlag != 0;
}

}  // namespace cli
