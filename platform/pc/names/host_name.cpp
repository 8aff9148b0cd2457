#include "pc/names/host_name.h"

#include "pc/names/utf8.h"

#include <cstddef>

namespace pc {

namespace {

// Stand-ins from U+F020 on; those of the controls 1 to 31 are 0xF000 plus the control.
constexpr std::string_view kReserved = "\"*:<>?\\|";
constexpr char32_t kControlBase = 0xF000;
constexpr char32_t kReservedBase = 0xF020;
constexpr char32_t kFinalBlank = 0xF028;
constexpr char32_t kFinalPeriod = 0xF029;

char32_t standInFor(char32_t character, bool last) {
    if (character >= 1 && character < 0x20) return kControlBase + character;
    if (character >= 0x80) return character;
    if (last && character == ' ') return kFinalBlank;
    if (last && character == '.') return kFinalPeriod;
    const size_t index = kReserved.find(static_cast<char>(character));
    return index == std::string_view::npos ? character : kReservedBase + static_cast<char32_t>(index);
}

char32_t stoodForBy(char32_t character, bool last) {
    if (character > kControlBase && character < kReservedBase) return character - kControlBase;
    if (character >= kReservedBase && character < kReservedBase + kReserved.size()) {
        return static_cast<char32_t>(kReserved[character - kReservedBase]);
    }
    if (last && character == kFinalBlank) return ' ';
    if (last && character == kFinalPeriod) return '.';
    return character;
}

std::string mapped(std::string_view name, char32_t (*map)(char32_t character, bool last)) {
    std::string result;
    result.reserve(name.size());
    for (size_t position = 0; position < name.size();) {
        const size_t start = position;
        const char32_t character = nextCharacter(name, position);
        if (character == kNoCharacter) {
            result += name[start];
        } else {
            appendCharacter(result, map(character, position == name.size()));
        }
    }
    return result;
}

}  // namespace

std::string windowsNameOf(std::string_view name) {
    return mapped(name, standInFor);
}

std::string hostNameOf(std::string_view name) {
    std::string restored = mapped(name, stoodForBy);
    if (restored == "." || restored == "..") return std::string(name);
    return restored;
}

}  // namespace pc
