#include "set_aside.h"

#include "pc/host/host.h"
#include "pc/names/mac_host_name.h"

#include <windows.h>

#include <filesystem>
#include <memory>

namespace cli {

namespace {

using tidewell::ErrorCode;

// Where the PC's volume keeps what a Mac file has beside its data fork.
std::string informationOf(const std::string& typed) {
    const std::filesystem::path path = typed;
    return (path.parent_path() / (std::string(pc::kDriverPrefix) + path.filename().string())).string();
}

// A link counts as well, wherever it leads. What cannot be looked at is no proof that there is nothing.
ErrorCode look(const std::string& typed, bool& there) {
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::symlink_status(typed, error);
    there = std::filesystem::exists(status);
    return std::filesystem::status_known(status) ? 0 : ERROR_IO_DEVICE;
}

ErrorCode checkReplaceable(const std::string& typed) {
    pc::HostStatus status;
    const ErrorCode error = pc::nativeHost()->status(typed, status);
    if (error != 0) return error;
    return status.kind == pc::HostKind::file && status.ownerMayWrite ? 0 : ERROR_ACCESS_DENIED;
}

ErrorCode openHost(const std::string& typed, const pc::HostAccess& access,
                   std::unique_ptr<pc::HostFile>& file) {
    return pc::nativeHost()->open(typed, access, std::make_shared<pc::SpaceLimit>(), file);
}

// An empty file with the permissions of another.
ErrorCode createLike(const std::string& typed, const std::string& other) {
    std::unique_ptr<pc::HostFile> file;
    const ErrorCode error = openHost(typed, {false, true, true}, file);
    if (error == 0) file->takePermissions(other, true);
    return error;
}

ErrorCode copyFile(const std::string& from, const std::string& to) {
    std::error_code error;
    if (std::filesystem::copy_file(from, to, error)) return 0;
    return error == std::errc::no_space_on_device ? ERROR_DISK_FULL : ERROR_ACCESS_DENIED;
}

ErrorCode flush(const std::string& typed) {
    std::unique_ptr<pc::HostFile> file;
    const ErrorCode error = openHost(typed, {true, false, false}, file);
    return error == 0 ? file->flush() : error;
}

ErrorCode removeIfThere(const std::string& typed) {
    bool there = false;
    const ErrorCode error = look(typed, there);
    return error == 0 && there ? pc::nativeHost()->remove(typed) : error;
}

}  // namespace

bool leftMacInformation(const std::string& typed) {
    bool file = false;
    bool information = false;
    const ErrorCode error = look(typed, file);
    return (error != 0 || !file) && (look(informationOf(typed), information) != 0 || information);
}

ErrorCode SetAside::begin(const std::string& typed, const std::string& aside) {
    typed_ = typed;
    aside_ = aside;
    bool file = false;
    bool information = false;
    ErrorCode error = look(typed, file);
    if (error == 0) error = look(informationOf(typed), information);
    if (error == 0 && file) error = checkReplaceable(typed);
    if (error != 0) return error;
    if (file) {
        error = pc::nativeHost()->move(typed, aside);
        movedFile_ = error == 0;
    }
    if (error == 0 && information) {
        error = pc::nativeHost()->move(informationOf(typed), informationOf(aside));
        movedInformation_ = error == 0;
    }
    if (error == 0 && file) error = createLike(typed, aside);
    if (error == 0 && information) error = copyFile(informationOf(aside), informationOf(typed));
    // What did not move is not touched.
    if (error != 0 && movedFile_ && pc::nativeHost()->replace(aside, typed) == 0) movedFile_ = false;
    if (error != 0 && movedInformation_ &&
        pc::nativeHost()->replace(informationOf(aside), informationOf(typed)) == 0)
        movedInformation_ = false;
    return error;
}

ErrorCode SetAside::bringBack() {
    const bool hadInformation = movedInformation_;
    ErrorCode error = movedFile_ ? pc::nativeHost()->replace(aside_, typed_) : removeIfThere(typed_);
    if (error != 0) return error;
    movedFile_ = false;
    error = hadInformation ? pc::nativeHost()->replace(informationOf(aside_), informationOf(typed_))
                           : removeIfThere(informationOf(typed_));
    if (error == 0) movedInformation_ = false;
    return error;
}

ErrorCode SetAside::discard() {
    ErrorCode error = flush(typed_);
    bool information = false;
    if (error == 0) error = look(informationOf(typed_), information);
    if (error == 0 && information) error = flush(informationOf(typed_));
    if (error == 0 && movedFile_) error = pc::nativeHost()->remove(aside_);
    if (error != 0) return error;
    movedFile_ = false;
    if (movedInformation_) error = pc::nativeHost()->remove(informationOf(aside_));
    if (error == 0) movedInformation_ = false;
    return error;
}

std::string SetAside::what() const {
    if (movedFile_) return typed_ + " is now " + aside_;
    return movedInformation_ ? informationOf(typed_) + " is now " + informationOf(aside_) : std::string();
}

}  // namespace cli
