// The resources of a module, as the system's own functions find them.
#ifndef TIDEWELL_TESTS_SUPPORT_MODULE_RESOURCES_H
#define TIDEWELL_TESTS_SUPPORT_MODULE_RESOURCES_H

#include <windows.h>

#include <map>
#include <string>
#include <vector>

// By their numbers. Strings that are not there are left out.
std::map<UINT, std::string> stringsOf(HMODULE module);

// By their identifiers; unformatted, with the inserts.
std::map<DWORD, std::string> messagesOf(HMODULE module);

// The names of the resources of a type; a number as "#103".
std::vector<std::string> namesOf(HMODULE module, const char* type);

// The inserts of a text in their order, such as "%1!C!" and "%%2", and what else begins with a percent sign.
std::vector<std::string> insertsOf(const std::string& text);

#endif
