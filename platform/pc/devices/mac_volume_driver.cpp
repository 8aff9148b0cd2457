#include "pc/devices/mac_volume_driver.h"

#include "base/byte_order.h"
#include "pc/names/utf8.h"
#include "pc/pc.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <optional>

namespace pc {

namespace {

constexpr uint32_t kGetDriveMask = 0x0022200B;
constexpr uint32_t kMacNameToPath = 0x00222033;

struct DriveMaskReply {
    uint8_t unused[12];
    tidewell::Le<uint32_t> drives;  // bit n: drive 'A' + n
};
static_assert(sizeof(DriveMaskReply) == 16);

enum Operation : uint8_t { create = 0, find = 1 };
enum Form : uint8_t { macRoman = 0, utf16 = 1 };

struct NameRequest {
    tidewell::Le<uint16_t> folder[256];  // its components, each with a NUL
    uint8_t operation;
    uint8_t form;
    uint8_t name[512];  // MacRomanName or Utf16Name
};
static_assert(sizeof(NameRequest) == 1026);

struct MacRomanName {
    uint8_t reserved[4];
    uint8_t length;
    uint8_t characters[255];
};
static_assert(sizeof(MacRomanName) == 260);

struct Utf16Name {
    tidewell::Le<uint16_t> length;  // units
    tidewell::Le<uint16_t> units[255];
};
static_assert(sizeof(Utf16Name) == sizeof NameRequest::name);

struct NameReply {
    uint8_t unused;
    tidewell::Le<uint16_t> name[256];  // with a NUL
};
static_assert(sizeof(NameReply) == 513);

// A folder of a Mac volume.
struct Folder {
    MacDirectory* names = nullptr;
    std::string path;    // as Windows programs have it, with its drive, a '\' at its end
    std::string inside;  // of the volume
};

std::optional<MacName> nameOf(const NameRequest& request) {
    if (request.form == Form::macRoman) {
        MacRomanName name;
        std::memcpy(&name, request.name, sizeof name);
        return std::string(name.characters, name.characters + name.length);
    }
    if (request.form != Form::utf16) return std::nullopt;
    Utf16Name name;
    std::memcpy(&name, request.name, sizeof name);
    if (name.length > std::size(name.units)) return std::nullopt;
    return std::u16string(name.units, name.units + name.length);
}

// Nothing when the last component has no NUL.
std::optional<std::string> pathOf(const NameRequest& request) {
    std::u16string units(std::begin(request.folder), std::end(request.folder));
    if (units.back() != u'\0') return std::nullopt;
    units.erase(units.find_last_not_of(u'\0') + 1);
    std::replace(units.begin(), units.end(), u'\0', u'\\');
    return bytesFromUtf16(units);
}

class MacVolumeDriver final : public ControlDevice {
  public:
    explicit MacVolumeDriver(Pc& pc) : pc_(pc) {}

    Error control(uint32_t code, std::span<const uint8_t> input, std::span<uint8_t> output,
                  size_t& returned) override {
        returned = 0;
        if (code == kGetDriveMask) return driveMask(output, returned);
        if (code == kMacNameToPath) return nameToPath(input, output, returned);
        return ERROR_INVALID_FUNCTION;
    }

  private:
    Error driveMask(std::span<uint8_t> output, size_t& returned) const;
    Error nameToPath(std::span<const uint8_t> input, std::span<uint8_t> output, size_t& returned) const;
    Error findFolder(const std::string& path, Folder& folder) const;
    Error checkName(const Folder& folder, const std::string& windowsName) const;

    Pc& pc_;
};

Error MacVolumeDriver::driveMask(std::span<uint8_t> output, size_t& returned) const {
    DriveMaskReply reply = {};
    if (output.size() < sizeof reply) return ERROR_INVALID_PARAMETER;
    uint32_t mask = 0;
    for (unsigned i = 0; i < 26; ++i) {
        const Drive* const drive = pc_.drive(static_cast<char>('A' + i));
        if (drive != nullptr && drive->volume != nullptr && drive->volume->macDirectory() != nullptr)
            mask |= 1U << i;
    }
    reply.drives = mask;
    std::memcpy(output.data(), &reply, sizeof reply);
    returned = sizeof reply;
    return 0;
}

Error MacVolumeDriver::findFolder(const std::string& path, Folder& folder) const {
    if (path.size() < 2 || path[1] != ':') return ERROR_PATH_NOT_FOUND;
    const Drive* const drive = pc_.drive(path[0]);
    if (drive == nullptr) return ERROR_PATH_NOT_FOUND;
    if (drive->volume == nullptr) return ERROR_NOT_READY;
    folder.names = drive->volume->macDirectory();
    folder.path = path + '\\';
    folder.inside = path.substr(2);
    return folder.names != nullptr ? 0 : ERROR_PATH_NOT_FOUND;
}

// Whether a Windows program can get at the item: what it cannot name would be lost to it.
Error MacVolumeDriver::checkName(const Folder& folder, const std::string& windowsName) const {
    const std::string path = folder.path + windowsName;
    if (!ansiFromUtf8(pc_.codePage(), path, /*exact=*/true)) return ERROR_INVALID_NAME;
    const bool fits = utf16FromBytes(windowsName).size() < std::size(NameReply().name);
    return fits && pc_.takesPath(path) ? 0 : ERROR_FILENAME_EXCED_RANGE;
}

Error MacVolumeDriver::nameToPath(std::span<const uint8_t> input, std::span<uint8_t> output,
                                  size_t& returned) const {
    NameRequest request;
    NameReply reply = {};
    if (input.size() != sizeof request || output.size() < sizeof reply) return ERROR_INVALID_PARAMETER;
    std::memcpy(&request, input.data(), sizeof request);
    const std::optional<MacName> name = nameOf(request);
    const std::optional<std::string> path = pathOf(request);
    if (!name || !path || request.operation > Operation::find) return ERROR_INVALID_PARAMETER;

    Folder folder;
    std::string windowsName;
    Error error = findFolder(*path, folder);
    if (error == 0) error = folder.names->find(folder.inside, *name, windowsName);
    if (error != 0 && error != ERROR_FILE_NOT_FOUND) return error;
    const bool creates = request.operation == Operation::create;
    if (error == 0 || creates) {
        const Error unnamed = checkName(folder, windowsName);
        if (unnamed != 0) return unnamed;
    }
    if (creates) error = folder.names->create(folder.inside, *name, windowsName);
    if (error != 0) return error;

    const std::u16string units = utf16FromBytes(windowsName);
    std::copy(units.begin(), units.end(), reply.name);
    std::memcpy(output.data(), &reply, sizeof reply);
    returned = sizeof reply;
    return 0;
}

}  // namespace

std::shared_ptr<Device> makeMacVolumeDriver(Pc& pc) {
    return std::make_shared<MacVolumeDriver>(pc);
}

}  // namespace pc
