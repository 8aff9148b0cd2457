#include "macfile/mac_name.h"

#include "base/owned.h"
#include "macfile/driver.h"
#include "base/path.h"
#include "macfile/usable_name.h"
#include "macfile/volume_kind.h"

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

// The driver takes a folder as a run of NUL-separated components.
ErrorCode setFolder(MacNameRequest& request, const char* folder) {
    WCHAR units[kMacFolderUnits];
    const int count = MultiByteToWideChar(CP_ACP, 0, folder, -1, units, kMacFolderUnits);
    if (count == 0) return lastErrorOr(ERROR_INSUFFICIENT_BUFFER);
    for (int i = 0; i < count; ++i) {
        const auto unit = static_cast<uint16_t>(units[i]);
        request.folder[i] = unit == '\\' ? uint16_t{0} : unit;
    }
    return 0;
}

// 123 when a name in the code page is not the one in Unicode: one of the system's best fits for characters
// that the code page lacks could be the name of another file.
ErrorCode checkConverted(const char* name, const WCHAR* units) {
    WCHAR back[kNameCapacity];
    if (MultiByteToWideChar(CP_ACP, 0, name, -1, back, kNameCapacity) == 0)
        return lastErrorOr(ERROR_INVALID_NAME);
    const WCHAR* unit = back;
    for (; *unit != 0 && *unit == *units; ++unit)
        ++units;
    return *unit == *units ? 0 : ERROR_INVALID_NAME;
}

// The folder, a backslash where one is missing, and the name of the reply.
ErrorCode buildPath(const char* folder, const MacNameReply& reply, char* outPath, DWORD capacity) {
    constexpr size_t kReplyUnits = sizeof reply.name / sizeof reply.name[0];
    const size_t length = std::strlen(folder);
    if (capacity < length + 1) return ERROR_INSUFFICIENT_BUFFER;
    WCHAR units[kReplyUnits + 1] = {};  // a reply without its NUL ends all the same
    for (size_t i = 0; i < kReplyUnits; ++i)
        units[i] = static_cast<WCHAR>(static_cast<uint16_t>(reply.name[i]));
    // Joined with an empty name, the folder has its separator.
    const DWORD start = JoinPath(outPath, capacity, folder, "") - 1;
    if (start + 1 > capacity) return ERROR_INSUFFICIENT_BUFFER;
    const int converted = WideCharToMultiByte(CP_ACP, 0, units, -1, outPath + start,
                                              static_cast<int>(capacity - start), nullptr, nullptr);
    if (converted == 0) return lastErrorOr(ERROR_INSUFFICIENT_BUFFER);
    return checkConverted(outPath + start, units);
}

ErrorCode askDriver(MacNameRequest& request, const char* folder, char* outPath, DWORD capacity) {
    OwnedFile device;
    ErrorCode error = OpenMacDriver(device);
    if (error == 0) error = setFolder(request, folder);
    if (error != 0) return error;
    MacNameReply reply;
    std::memset(static_cast<void*>(&reply), 0, sizeof reply);
    error = SendDriverRequest(device.get(), IOCTL_MACVOL_MAC_NAME_TO_PATH, &request, sizeof request, &reply,
                              sizeof reply, nullptr);
    return error != 0 ? error : buildPath(folder, reply, outPath, capacity);
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
    if (length == 0) return lastErrorOr(ERROR_PATH_NOT_FOUND);
    if (length >= capacity) return ERROR_INSUFFICIENT_BUFFER;
    char name[kNameCapacity];
    if (!MacNameToWindowsName(macName, name, sizeof name)) return lastErrorOr(ERROR_MORE_DATA);
    MakeNameUsable(name);
    return JoinPath(outPath, capacity, outPath, name) < capacity ? 0 : ERROR_INSUFFICIENT_BUFFER;
}

}  // namespace

ErrorCode LookUpMacName(const char* folder, const uint8_t* macName, uint32_t reserved, char* outPath,
                        DWORD capacity) {
    if (GetVolumeKind(folder) == VolumeKindMac)
        return askDriverForMacName(MacNameOperation::find, folder, macName, reserved, outPath, capacity);
    const ErrorCode error = replacedPath(folder, macName, outPath, capacity);
    if (error != 0) return error;
    return GetFileAttributesA(outPath) != INVALID_FILE_ATTRIBUTES ? 0 : lastErrorOr(ERROR_FILE_NOT_FOUND);
}

ErrorCode CreateMacNamedFile(const char* folder, const uint8_t* macName, uint32_t reserved, char* outPath,
                             DWORD capacity) {
    if (GetVolumeKind(folder) == VolumeKindMac)
        return askDriverForMacName(MacNameOperation::create, folder, macName, reserved, outPath, capacity);
    const ErrorCode error = replacedPath(folder, macName, outPath, capacity);
    if (error != 0) return error;
    const OwnedFile file(
        CreateFileA(outPath, GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    return file ? 0 : lastErrorOr(ERROR_ACCESS_DENIED);
}

ErrorCode LookUpUnicodeMacName(const char* folder, DWORD length, const uint16_t* name, char* outPath,
                               DWORD capacity) {
    if (GetVolumeKind(folder) != VolumeKindMac) return ERROR_INVALID_FUNCTION;
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
        const char c = static_cast<char>(macName[1 + i]);
        out[i] = c != '\0' && std::strchr(kForbidden, c) != nullptr ? kReplacement : c;
    }
    out[length] = '\0';
    return 1;
}

}  // namespace tidewell
