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

// What is open in any of its forks keeps its name: nobody in the library shares that.
pc::Error moveFile(const PcPath& from, const PcPath& to) {
    if (from.volume != to.volume) return ERROR_NOT_SAME_DEVICE;
    return from.volume->move(from.inside, to.inside, [](const std::string& identity) {
        return pc::Pc::current()->checkSharing(identity, pc::OpenMode{true, true, 0, OPEN_EXISTING});
    });
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

pc::Error fullAnsiPath(LPCSTR path, std::string& text) {
    const pc::Pc* const pc = pc::Pc::current();
    if (pc == nullptr) return ERROR_PATH_NOT_FOUND;
    const std::optional<std::string> utf8 = pc::utf8FromAnsi(pc->codePage(), path != nullptr ? path : "");
    if (!utf8) return ERROR_INVALID_NAME;
    std::string full;
    const pc::Error error = fullPathOf(*pc, *utf8, full);
    if (error == 0) text = pc::ansiFromUtf8(pc->codePage(), full, /*exact=*/false).value_or("");
    return error;
}

// What follows the last '\\', which may be the second byte of a character; null when nothing does.
LPSTR filePartOf(LPSTR path) {
    const unsigned codePage = pc::ansiCodePage();
    LPSTR part = path;
    for (LPSTR at = path; *at != '\0'; ++at) {
        if (*at == '\\') part = at + 1;
        if (pc::isLeadByte(codePage, static_cast<uint8_t>(*at)) && at[1] != '\0') ++at;
    }
    return *part != '\0' ? part : nullptr;
}

}  // namespace

BOOL DeleteFileA(LPCSTR path) {
    Call call("DeleteFileA", path);
    PcPath target;
    pc::Error error = call.fault();
    if (error == 0) error = findFile(path, target);
    if (error == 0) error = deleteFile(target);
    return call.end(error);
}

BOOL DeleteFileW(LPCWSTR path) {
    const std::string subject = pc::ansiFromUtf16(pc::ansiCodePage(), unitsOf(path));
    Call call("DeleteFileW", subject);
    PcPath target;
    pc::Error error = call.fault();
    const pc::Pc* const pc = pc::Pc::current();
    if (error == 0 && pc != nullptr && pc->platform() != pc::Platform::nt) error = ERROR_CALL_NOT_IMPLEMENTED;
    if (error == 0) error = findPath(path, target);
    if (error == 0) error = target.volume != nullptr ? deleteFile(target) : ERROR_FILE_NOT_FOUND;
    return call.end(error);
}

BOOL MoveFileA(LPCSTR from, LPCSTR to) {
    Call call("MoveFileA", from);
    PcPath source, target;
    pc::Error error = call.fault();
    if (error == 0) error = findFile(from, source);
    if (error == 0) error = findFile(to, target);
    if (error == 0) error = moveFile(source, target);
    return call.end(error);
}

DWORD GetFullPathNameA(LPCSTR path, DWORD capacity, LPSTR buffer, LPSTR* filePart) {
    Call call("GetFullPathNameA", path);
    std::string text;
    pc::Error error = call.fault();
    if (error == 0) error = fullAnsiPath(path, text);
    if (error != 0) return call.end<DWORD>(error, 0, 0);
    const auto length = static_cast<DWORD>(text.size());
    if (!copyText(text, buffer, capacity)) return call.end<DWORD>(0, length + 1, 0);
    if (filePart != nullptr) *filePart = filePartOf(buffer);
    return call.end<DWORD>(0, length, 0);
}

DWORD GetFileAttributesA(LPCSTR path) {
    Call call("GetFileAttributesA", path);
    PcPath target;
    pc::Opened queried;
    pc::Error error = call.fault();
    if (error == 0) error = findPath(path, target);
    if (error == 0) error = target.volume->openForQuery(target.inside, queried);
    return call.end<DWORD>(error, queried.attributes, INVALID_FILE_ATTRIBUTES);
}

DWORD GetShortPathNameA(LPCSTR path, LPSTR buffer, DWORD capacity) {
    Call call("GetShortPathNameA", path);
    PcPath target;
    std::string text;
    pc::Error error = call.fault();
    if (error == 0) error = findFile(path, target);
    if (error == 0) error = shortPath(target, text);
    if (error != 0) return call.end<DWORD>(error, 0, 0);
    // When it does not fit, the size needed, with the NUL.
    const auto length = static_cast<DWORD>(text.size());
    return call.end<DWORD>(0, copyText(text, buffer, capacity) ? length : length + 1, 0);
}

BOOL GetVolumeInformationA(LPCSTR root, LPSTR name, DWORD nameCapacity, LPDWORD serial, LPDWORD maxComponent,
                           LPDWORD flags, LPSTR fileSystem, DWORD fileSystemCapacity) {
    Call call("GetVolumeInformationA", root);
    PcPath target;
    pc::Error error = call.fault();
    if (error == 0) error = findFile(root, target);
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

}  // namespace kernel
