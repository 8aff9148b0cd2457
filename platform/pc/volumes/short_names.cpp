#include "pc/volumes/short_names.h"

#include "pc/names/letter_case.h"
#include "pc/names/utf8.h"

#include <algorithm>
#include <cstddef>
#include <set>

namespace pc {

namespace {

constexpr size_t kBaseLength = 8;
constexpr size_t kExtensionLength = 3;
constexpr size_t kKeptOfBase = 6;
constexpr std::string_view kSpecial = "+,;=[]";
constexpr char32_t kPrivateUse = 0xE000;
constexpr char32_t kPrivateUseEnd = 0xF8FF;

size_t countCharacters(std::string_view text) {
    size_t count = 0;
    for (size_t position = 0; position < text.size(); ++count)
        nextCharacter(text, position);
    return count;
}

std::string firstCharacters(std::string_view text, size_t count) {
    size_t position = 0;
    while (count-- > 0 && position < text.size())
        nextCharacter(text, position);
    return std::string(text.substr(0, position));
}

// Without blanks and periods; "_" for what no short name may have.
std::string usable(std::string_view text) {
    std::string result;
    for (size_t position = 0; position < text.size();) {
        const char32_t character = nextCharacter(text, position);
        if (character == ' ' || character == '.') continue;
        const bool special = character < 0x80 && kSpecial.find(static_cast<char>(character)) != kSpecial.npos;
        const bool privateUse = character >= kPrivateUse && character <= kPrivateUseEnd;
        if (special || privateUse || character == kNoCharacter) {
            result += '_';
        } else {
            appendCharacter(result, character);
        }
    }
    return upperCase(result);
}

std::string trimmedFront(std::string_view name) {
    return std::string(name.substr(std::min(name.find_first_not_of(" ."), name.size())));
}

std::string freeAlias(const std::string& name, const std::set<std::string>& taken) {
    const std::string trimmed = trimmedFront(name);
    const size_t period = trimmed.rfind('.');
    const std::string base = usable(trimmed.substr(0, period));
    std::string extension = period == std::string::npos ? "" : usable(trimmed.substr(period + 1));
    extension = firstCharacters(extension, kExtensionLength);
    if (!extension.empty()) extension.insert(0, 1, '.');
    for (size_t n = 1;; ++n) {
        const std::string tail = "~" + std::to_string(n);
        const size_t kept = std::min(kKeptOfBase, kBaseLength - std::min(kBaseLength, tail.size()));
        std::string alias = firstCharacters(base, kept);
        alias.append(tail).append(extension);
        if (!taken.contains(alias)) return alias;
    }
}

// At most eight characters, a period and three, none of them blank or special; in either letter case.
bool isShortName(std::string_view name) {
    const size_t period = name.find('.');
    const std::string_view base = name.substr(0, period);
    const std::string_view extension = period == name.npos ? std::string_view() : name.substr(period + 1);
    if (base.empty() || (period != name.npos && extension.empty())) return false;
    if (usable(base) != upperCase(base) || usable(extension) != upperCase(extension)) return false;
    return countCharacters(base) <= kBaseLength && countCharacters(extension) <= kExtensionLength;
}

}  // namespace

void ShortNames::assign(Aliases& aliases, const Names& existing, const Names& wanting) {
    const std::set<std::string> present(existing.begin(), existing.end());
    std::erase_if(aliases, [&](const auto& alias) { return !present.contains(alias.first); });
    std::set<std::string> taken;
    for (const std::string& name : existing)
        taken.insert(upperCase(name));
    for (const auto& [name, alias] : aliases)
        taken.insert(alias);
    for (const std::string& name : wanting) {
        if (isShortName(name) || aliases.contains(name)) continue;
        taken.insert(aliases[name] = freeAlias(name, taken));
    }
}

std::string ShortNames::shortNameOf(const std::string& folder, const std::string& name,
                                    const std::function<Names()>& list) {
    if (isShortName(name)) return name;
    Aliases& aliases = folders_[folder];
    if (!aliases.contains(name)) assign(aliases, list(), {name});
    return aliases[name];
}

std::string ShortNames::longNameOf(const std::string& folder, const std::string& alias, Names names) {
    std::sort(names.begin(), names.end());
    Aliases& aliases = folders_[folder];
    assign(aliases, names, names);
    const std::string wanted = upperCase(alias);
    const auto found = std::find_if(aliases.begin(), aliases.end(),
                                    [&](const auto& entry) { return entry.second == wanted; });
    return found == aliases.end() ? std::string() : found->first;
}

}  // namespace pc
