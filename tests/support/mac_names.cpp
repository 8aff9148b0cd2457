#include "support/mac_names.h"

#include <algorithm>

namespace {

tidewell::VolumeKind kindOf(const std::string& folder) {
    tidewell::VolumeKind kind = tidewell::VolumeKindOther;
    tidewell::TellVolumeKindOfFolder(folder.c_str(), kind);
    return kind;
}

}  // namespace

Answer ask(MacNameOperation* operation, const std::string& folder, const std::string& macName,
           size_t capacity) {
    const std::string name = static_cast<char>(macName.size()) + macName;
    char path[520] = "";
    const tidewell::ErrorCode error =
        operation(kindOf(folder), folder.c_str(), reinterpret_cast<const uint8_t*>(name.data()), 0x04030201,
                  path, static_cast<DWORD>(capacity));
    return {error, error == 0 ? path : ""};
}

Answer askUnicode(const std::string& folder, std::u16string_view name) {
    uint16_t units[300] = {};
    std::copy(name.begin(), name.end(), units);
    char path[520] = "";
    const tidewell::ErrorCode error = tidewell::LookUpUnicodeMacName(
        kindOf(folder), folder.c_str(), static_cast<DWORD>(name.size()), units, path, sizeof path);
    return {error, error == 0 ? path : ""};
}
