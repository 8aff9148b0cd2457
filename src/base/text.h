// Text in the ANSI code page, walked character by character.
#ifndef TIDEWELL_BASE_TEXT_H
#define TIDEWELL_BASE_TEXT_H

#include <windows.h>

namespace tidewell {

// The next character of a text that is not at its end. A lead byte right before the end stands alone.
inline const char* nextCharacter(const char* text) {
    return IsDBCSLeadByte(static_cast<BYTE>(*text)) && text[1] != '\0' ? text + 2 : text + 1;
}

// The last place of a single-byte character that is a character of its own, or null.
inline const char* lastCharacter(const char* text, char wanted) {
    const char* found = nullptr;
    for (; *text != '\0'; text = nextCharacter(text)) {
        if (*text == wanted) found = text;
    }
    return found;
}

inline char upperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

// Whether two texts of ASCII letters are the same but for case, in every locale.
inline bool equalsIgnoringCase(const char* a, const char* b) {
    while (*a != '\0' && upperCase(*a) == upperCase(*b)) {
        ++a;
        ++b;
    }
    return upperCase(*a) == upperCase(*b);
}

}  // namespace tidewell

#endif
