// Text of the Mac, in the Mac Roman character set, for the host's users and for programs.
#ifndef TIDEWELL_CLI_MAC_TEXT_H
#define TIDEWELL_CLI_MAC_TEXT_H

#include <optional>
#include <string>

namespace cli {

// As the host's programs write it, "?" for each control character, so that it stays in its line.
std::string textOfMac(const std::string& mac);

// Of a text as the user typed it; nothing when the Mac lacks one of its characters.
std::optional<std::string> macOfTyped(const std::string& typed);

// As strings of JSON, with their quotes, in ASCII: of the Mac's text, and of a text in the ANSI code page.
std::string jsonOfMac(const std::string& mac);
std::string jsonOfText(const std::string& text);

}  // namespace cli

#endif
