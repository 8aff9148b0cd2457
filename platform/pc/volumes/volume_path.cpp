#include "pc/volumes/volume_path.h"

#include <windows.h>

#include <cstddef>
#include <string_view>
#include <utility>

namespace pc {

namespace {

constexpr const char* kSeparators = "\\/";

bool isPlainName(std::string_view name) {
    for (const char c : name) {
        if (static_cast<unsigned char>(c) < 0x20) return false;
    }
    return name.find_first_of("\"*:<>?|") == std::string_view::npos;
}

// Cuts the stream off the last component.
Error takeStream(std::string& component, std::string& stream) {
    const size_t colon = component.find(':');
    if (colon == std::string::npos) return 0;
    stream = component.substr(colon + 1);
    component.resize(colon);
    return stream.empty() || !isPlainName(stream) ? ERROR_INVALID_NAME : 0;
}

}  // namespace

Error parseVolumePath(const std::string& path, StreamNames streams, VolumePath& parsed) {
    parsed = VolumePath();
    parsed.components.reserve(4);
    for (size_t start = 0; start < path.size();) {
        size_t end = path.find_first_of(kSeparators, start);
        const bool last = end == std::string::npos;
        if (last) end = path.size();
        std::string component = path.substr(start, end - start);
        start = end + 1;
        if (last && streams == StreamNames::allowed) {
            const Error error = takeStream(component, parsed.stream);
            if (error != 0) return error;
        }
        if (!isPlainName(component)) return ERROR_INVALID_NAME;
        if (component == "..") {
            if (!parsed.components.empty()) parsed.components.pop_back();
        } else if (!component.empty() && component != ".") {
            parsed.components.push_back(std::move(component));
            parsed.folderOnly = !last;
        }
    }
    if (parsed.components.empty()) parsed.folderOnly = false;
    return 0;
}

}  // namespace pc
