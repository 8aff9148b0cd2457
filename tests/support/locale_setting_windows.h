// The user's number format, changed for as long as the object lives.
#ifndef TIDEWELL_TESTS_SUPPORT_LOCALE_SETTING_H
#define TIDEWELL_TESTS_SUPPORT_LOCALE_SETTING_H

#include <windows.h>

#include <string>

class LocaleSetting {
  public:
    LocaleSetting(LCTYPE type, const char* value) : type_(type) {
        char previous[64] = "";
        GetLocaleInfoA(LOCALE_USER_DEFAULT, type, previous, sizeof previous);
        previous_ = previous;
        SetLocaleInfoA(LOCALE_USER_DEFAULT, type, value);
    }
    ~LocaleSetting() { SetLocaleInfoA(LOCALE_USER_DEFAULT, type_, previous_.c_str()); }
    LocaleSetting(const LocaleSetting&) = delete;
    LocaleSetting& operator=(const LocaleSetting&) = delete;

  private:
    LCTYPE type_;
    std::string previous_;
};

struct EnglishNumbers {
    LocaleSetting decimal{LOCALE_SDECIMAL, "."};
    LocaleSetting thousands{LOCALE_STHOUSAND, ","};
    LocaleSetting grouping{LOCALE_SGROUPING, "3;0"};
};

struct GermanNumbers {
    LocaleSetting decimal{LOCALE_SDECIMAL, ","};
    LocaleSetting thousands{LOCALE_STHOUSAND, "."};
    LocaleSetting grouping{LOCALE_SGROUPING, "3;0"};
};

#endif
