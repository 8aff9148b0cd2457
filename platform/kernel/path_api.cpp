// Files and volumes by path.
#include "call.h"
#include "kernel.h"
#include "pc_path.h"

#include <cstring>

namespace kernel {

namespace {

pc::Error deleteFile(const PcPath& target) {
    pc::Opened opened;
    pc::Error error = target.volume->openForQuery(target.inside, opened);
    if (error != 0) return error;
    // Deleting asks for what no opener of the library shares.
    error = pc::Pc::current()->checkSharing(opened.identity, pc::OpenMode{true, true, 0, OPEN_EXISTING});
    if (error != 0) return error;
    opened.file.reset();
    return target.volume->remove(target.inside);
}

pc::Error shortPath(const PcPath& target, std::string& path) {
    std::string inside;
    pc::Error error = target.volume->shortPath(target.inside, inside);
    if (error != 0) return error;
    const std::optional<std::string> ansi =
        pc::ansiFromUtf8(pc::Pc::current()->codePage(), inside, /*exact=*/true);
    if (!ansi) return ERROR_INVALID_NAME;
    path = std::string(1, target.letter) + ":\\" + *ansi;
    return 0;
}

// Copies with the terminating NUL when it fits.
bool copyText(const std::string& text, LPSTR buffer, DWORD capacity) {
    if (buffer == nullptr || text.size() + 1 > capacity) return false;
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return true;
}

}  // namespace

BOOL DeleteFileA(LPCSTR path) {
    Call call("DeleteFileA", path != nullptr ? path : "");
    PcPath target;
    pc::Error error = call.fault();
    if (error == 0) error = findPath(path, target);
    if (error == 0) error = deleteFile(target);
    return call.end(error);
}

DWORD GetFileAttributesA(LPCSTR path) {
    Call call("GetFileAttributesA", path != nullptr ? path : "");
    PcPath target;
    uint32_t bits = 0;
    pc::Error error = call.fault();
    if (error == 0) error = findPath(path, target);
    if (error == 0) error = target.volume->attributes(target.inside, bits);
    return call.end<DWORD>(error, bits, INVALID_FILE_ATTRIBUTES);
}

DWORD GetShortPathNameA(LPCSTR path, LPSTR buffer, DWORD capacity) {
    Call call("GetShortPathNameA", path != nullptr ? path : "");
    PcPath target;
    std::string text;
    pc::Error error = call.fault();
    if (error == 0) error = findPath(path, target);
    if (error == 0) error = shortPath(target, text);
    if (error != 0) return call.end<DWORD>(error, 0, 0);
    // When it does not fit, the size needed, with the NUL.
    const auto length = static_cast<DWORD>(text.size());
    return call.end<DWORD>(0, copyText(text, buffer, capacity) ? length : length + 1, 0);
}

BOOL GetVolumeInformationA(LPCSTR root, LPSTR name, DWORD nameCapacity, LPDWORD serial, LPDWORD maxComponent,
                           LPDWORD flags, LPSTR fileSystem, DWORD fileSystemCapacity) {
    Call call("GetVolumeInformationA", root != nullptr ? root : "");
    PcPath target;
    pc::Error error = call.fault();
    if (error == 0) error = findPath(root, target);
    if (error == 0 && !target.inside.empty()) error = ERROR_INVALID_NAME;
    if (error != 0) return call.end(error);
    if (name != nullptr) copyText("", name, nameCapacity);
    if (serial != nullptr) *serial = 0;
    if (maxComponent != nullptr) *maxComponent = 255;
    if (flags != nullptr) *flags = 0;
    if (fileSystem != nullptr && !copyText(target.volume->fileSystemName(), fileSystem, fileSystemCapacity))
        return call.end(ERROR_MORE_DATA);
    return call.end(0);
}

UINT GetDriveTypeA(LPCSTR root) {
    const Call call("GetDriveTypeA", root != nullptr ? root : "");
    pc::Pc* const pc = pc::Pc::current();
    const pc::Drive* const drive =
        pc != nullptr && root != nullptr && ownsPath(root) ? pc->drive(root[0]) : nullptr;
    return drive != nullptr ? drive->type : DRIVE_NO_ROOT_DIR;
}

}  // namespace kernel
