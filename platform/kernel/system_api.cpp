// What the system is, and what time it has.
#include "call.h"
#include "kernel.h"

#include <shlobj.h>

namespace kernel {

namespace {

struct Version {
    DWORD platformId;
    DWORD major;
    DWORD minor;
    DWORD build;
};

Version versionOf(pc::Platform platform) {
    switch (platform) {
    case pc::Platform::windows95: return {VER_PLATFORM_WIN32_WINDOWS, 4, 0, 0x040003B6};
    case pc::Platform::windows98: return {VER_PLATFORM_WIN32_WINDOWS, 4, 10, 0x040A07CE};
    case pc::Platform::nt: break;
    }
    return {VER_PLATFORM_WIN32_NT, 4, 0, 1381};
}

}  // namespace

BOOL GetVersionExA(LPOSVERSIONINFOA version) {
    Call call("GetVersionExA");
    const pc::Pc* const pc = pc::Pc::current();
    pc::Error error = call.fault();
    if (error == 0 && version->dwOSVersionInfoSize < sizeof *version) error = ERROR_INSUFFICIENT_BUFFER;
    if (error != 0) return call.end(error);
    const Version known = versionOf(pc != nullptr ? pc->platform() : pc::Platform::nt);
    version->dwMajorVersion = known.major;
    version->dwMinorVersion = known.minor;
    version->dwBuildNumber = known.build;
    version->dwPlatformId = known.platformId;
    version->szCSDVersion[0] = '\0';
    return call.end(0);
}

DWORD GetLogicalDrives() {
    const pc::Pc* const pc = pc::Pc::current();
    return pc != nullptr ? pc->driveLetters() : 0;
}

UINT GetDriveTypeA(LPCSTR root) {
    pc::Pc* const pc = pc::Pc::current();
    const pc::Drive* const drive = pc != nullptr && root != nullptr ? pc->drive(root[0]) : nullptr;
    return static_cast<UINT>(drive != nullptr ? drive->type : pc::DriveType::none);
}

UINT GetACP() {
    return pc::ansiCodePage();
}

BOOL IsDBCSLeadByte(BYTE byte) {
    return pc::isLeadByte(pc::ansiCodePage(), byte) ? TRUE : FALSE;
}

void GetSystemTimeAsFileTime(FILETIME* time) {
    pc::Pc* const pc = pc::Pc::current();
    const auto now = static_cast<uint64_t>(pc != nullptr ? pc->clock().now() : pc::Clock().now());
    time->dwLowDateTime = static_cast<DWORD>(now);
    time->dwHighDateTime = static_cast<DWORD>(now >> 32);
}

// What the items are, the flags tell.
void SHChangeNotify(LONG event, UINT flags, LPCVOID item1, LPCVOID /*item2*/) {
    const Call call("SHChangeNotify", flags == SHCNF_PATHA ? static_cast<const char*>(item1) : "",
                    static_cast<uint32_t>(event));
}

}  // namespace kernel
