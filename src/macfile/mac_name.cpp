#include "macfile/mac_name.h"

#include "base/owned.h"
#include "macfile/driver.h"
#include "base/path.h"
#include "macfile/usable_name.h"

#include <cstring>

namespace tidewell {

namespace {

constexpr char kForbidden[] = "<>:\"/\\|?*";
constexpr char kReplacement = '_';
constexpr DWORD kNameCapacity = 260;  // the longest name, what making it usable adds, and the NUL

void beginRequest(MacNameRequest& request, MacNameOperation operation, MacNameForm form) {
    std::memset(static_cast<void*>(&request), 0, sizeof request);
    request.operation = static_cast<uint8_t>(operation);
    request.form = static_cast<uint8_t>(form);
}

// A folder's path, UTF-16.
struct FolderUnits {
    WCHAR units[kMacFolderUnits];
    int count;  // with the NUL
};

ErrorCode convertFolder(const char* folder, FolderUnits& converted) {
    converted.count = MultiByteToWideChar(CP_ACP, 0, folder, -1, converted.units, kMacFolderUnits);
    return converted.count != 0 ? 0 : lastError();
}

// The driver takes a folder as a run of NUL-separated components.
void setFolder(MacNameRequest& request, const FolderUnits& folder) {
    for (int i = 0; i < folder.count; ++i) {
        const auto unit = static_cast<uint16_t>(folder.units[i]);
        request.folder[i] = unit == '\\' ? uint16_t{0} : unit;
    }
}

// 123 when a name in the code page is not the one in Unicode: one of the system's best fits for characters
// that the code page lacks could be the name of another file.
ErrorCode checkConverted(const char* name, const WCHAR* units) {
    WCHAR back[kNameCapacity];
    if (MultiByteToWideChar(CP_ACP, 0, name, -1, back, kNameCapacity) == 0) return lastError();
    const WCHAR* unit = back;
    for (; *unit != 0 && *unit == *units; ++unit)
        ++units;
    return *unit == *units ? 0 : ERROR_INVALID_NAME;
}

constexpr size_t kReplyUnits = sizeof MacNameReply::name / sizeof MacNameReply::name[0];

// The name of a driver's reply.
struct ReplyName {
    WCHAR units[kReplyUnits + 1] = {};  // a reply without its NUL ends all the same

    explicit ReplyName(const MacNameReply& reply) {
        for (size_t i = 0; i < kReplyUnits; ++i)
            units[i] = static_cast<WCHAR>(static_cast<uint16_t>(reply.name[i]));
    }
};

// The folder, a backslash where one is missing, and the name of the reply.
ErrorCode buildPath(const char* folder, const WCHAR* units, char* outPath, DWORD capacity) {
    const size_t length = std::strlen(folder);
    if (capacity < length + 1) return ERROR_INSUFFICIENT_BUFFER;
    // Joined with an empty name, the folder has its separator.
    const DWORD start = JoinPath(outPath, capacity, folder, "") - 1;
    if (start + 1 > capacity) return ERROR_INSUFFICIENT_BUFFER;
    const int converted = WideCharToMultiByte(CP_ACP, 0, units, -1, outPath + start,
                                              static_cast<int>(capacity - start), nullptr, nullptr);
    if (converted == 0) return lastError();
    return checkConverted(outPath + start, units);
}

// Takes away the file that the driver has just made under a name that no path of the code page reaches. On
// Windows 95 and 98, which know no other paths, it stays.
void deleteUnnamed(const FolderUnits& folder, const ReplyName& name) {
    // By its prefix a path may be of any length.
    constexpr WCHAR kPrefix[] = {'\\', '\\', '?', '\\'};
    WCHAR path[sizeof kPrefix / sizeof *kPrefix + kMacFolderUnits + kReplyUnits + 1];
    WCHAR* const start = path + (folder.units[1] == ':' ? sizeof kPrefix / sizeof *kPrefix : 0);
    std::memcpy(path, kPrefix, sizeof kPrefix);
    std::memcpy(start, folder.units, sizeof folder.units);
    WCHAR* end = start + folder.count - 1;
    if (end[-1] != '\\') *end++ = '\\';
    std::memcpy(end, name.units, sizeof name.units);
    DeleteFileW(path);
}

ErrorCode askDriver(MacNameRequest& request, const char* folder, char* outPath, DWORD capacity) {
    OwnedFile device;
    FolderUnits units;
    ErrorCode error = OpenMacDriver(device);
    if (error == 0) error = convertFolder(folder, units);
    if (error != 0) return error;
    setFolder(request, units);
    MacNameReply reply;
    std::memset(static_cast<void*>(&reply), 0, sizeof reply);
    error = SendDriverRequest(device.get(), IOCTL_MACVOL_MAC_NAME_TO_PATH, &request, sizeof request, &reply,
                              sizeof reply, nullptr);
    if (error != 0) return error;
    const ReplyName name(reply);
    error = buildPath(folder, name.units, outPath, capacity);
    if (request.operation != static_cast<uint8_t>(MacNameOperation::create)) return error;
    // What no program can look at, it can neither write to nor delete by this path.
    if (error == 0 && GetFileAttributesA(outPath) == INVALID_FILE_ATTRIBUTES) error = lastError();
    if (error != 0) deleteUnnamed(units, name);
    return error;
}

ErrorCode askDriverForMacName(MacNameOperation operation, const char* folder, const uint8_t* macName,
                              uint32_t reserved, char* outPath, DWORD capacity) {
    MacNameRequest request;
    beginRequest(request, operation, MacNameForm::mac);
    request.mac.reserved = reserved;
    request.mac.length = macName[0];
    std::memcpy(request.mac.characters, macName + 1, macName[0]);
    return askDriver(request, folder, outPath, capacity);
}

ErrorCode replacedPath(const char* folder, const uint8_t* macName, char* outPath, DWORD capacity) {
    const DWORD length = GetShortPath(folder, outPath, capacity);
    // The folder, and not a file in it that could be made.
    if (length == 0) return GetLastError() == ERROR_FILE_NOT_FOUND ? ERROR_PATH_NOT_FOUND : lastError();
    if (length >= capacity) return ERROR_INSUFFICIENT_BUFFER;
    char name[kNameCapacity];
    if (!MacNameToWindowsName(macName, name, sizeof name)) return lastError();
    MakeNameUsable(name);
    return JoinPath(outPath, capacity, outPath, name) < capacity ? 0 : ERROR_FILENAME_EXCED_RANGE;
}

}  // namespace

ErrorCode LookUpMacName(VolumeKind kind, const char* folder, const uint8_t* macName, uint32_t reserved,
                        char* outPath, DWORD capacity) {
    if (kind == VolumeKindMac)
        return askDriverForMacName(MacNameOperation::find, folder, macName, reserved, outPath, capacity);
    const ErrorCode error = replacedPath(folder, macName, outPath, capacity);
    if (error != 0) return error;
    return GetFileAttributesA(outPath) != INVALID_FILE_ATTRIBUTES ? 0 : lastError();
}

ErrorCode CreateMacNamedFile(VolumeKind kind, const char* folder, const uint8_t* macName, uint32_t reserved,
                             char* outPath, DWORD capacity) {
    if (kind == VolumeKindMac)
        return askDriverForMacName(MacNameOperation::create, folder, macName, reserved, outPath, capacity);
    const ErrorCode error = replacedPath(folder, macName, outPath, capacity);
    if (error != 0) return error;
    OwnedFile file(
        CreateFileA(outPath, GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return lastError();
    const bool existed = GetLastError() == ERROR_ALREADY_EXISTS;
    file.reset();
    SetLastError(existed ? ERROR_ALREADY_EXISTS : NO_ERROR);
    return 0;
}

ErrorCode LookUpUnicodeMacName(VolumeKind kind, const char* folder, DWORD length, const uint16_t* name,
                               char* outPath, DWORD capacity) {
    if (kind != VolumeKindMac) return ERROR_INVALID_FUNCTION;
    MacNameRequest request;
    beginRequest(request, MacNameOperation::find, MacNameForm::unicode);
    constexpr DWORD kLongest = sizeof request.unicode.characters / sizeof request.unicode.characters[0];
    if (length > kLongest) return ERROR_INVALID_PARAMETER;
    request.unicode.length = static_cast<uint16_t>(length);
    for (DWORD i = 0; i < length; ++i)
        request.unicode.characters[i] = name[i];
    return askDriver(request, folder, outPath, capacity);
}

BOOL MacNameToWindowsName(const uint8_t* macName, char* out, DWORD capacity) {
    const DWORD length = macName[0];
    if (capacity < length + 1) return failWith(ERROR_MORE_DATA);
    for (DWORD i = 0; i < length; ++i) {
        const uint8_t c = macName[1 + i];
        // The terminating NUL of the forbidden ones is a control character, too.
        const bool replaced = c < ' ' || std::strchr(kForbidden, c) != nullptr;
        out[i] = replaced ? kReplacement : static_cast<char>(c);
    }
    out[length] = '\0';
    return 1;
}

}  // namespace tidewell
