#include "pc/names/host_name.h"
#include "pc/names/mac_host_name.h"
#include "pc/names/mac_roman.h"
#include "pc/names/utf8.h"

#include <doctest/doctest.h>

using namespace pc;

TEST_CASE("UTF-8 and UTF-16 give each other back, and broken bytes are told or kept") {
    CHECK(utf8FromUtf16(utf16FromUtf8("a\u00E9\u20AC\U0001F4BE")) == "a\u00E9\u20AC\U0001F4BE");
    CHECK(utf16FromUtf8("\xC0\xAF") == u"\uFFFD\uFFFD");            // overlong
    CHECK(utf16FromUtf8("\xED\xA0\x80") == u"\uFFFD\uFFFD\uFFFD");  // a surrogate
    CHECK(utf16FromUtf8("\xE2\x82") == u"\uFFFD\uFFFD");            // cut short
    CHECK(utf16FromUtf8("\xF5\x80\x80\x80x") == u"\uFFFD\uFFFD\uFFFD\uFFFDx");
    CHECK(utf8FromUtf16(std::u16string{0xDC00, 0xD800, 'x'}) == "\uFFFD\uFFFDx");

    const std::string bytes = "a\xFF\xC3\xA9\x80\xF0\x9F\x92\xBE\xED\xB2\x80";
    CHECK(bytesFromUtf16(utf16FromBytes(bytes)) == bytes);
    CHECK(bytesFromUtf16(std::u16string{0xDC7F, 0xD800}) == "\uFFFD\uFFFD");
}

TEST_CASE("what Windows reserves is replaced and restored") {
    const std::string reserved = "a\"b*c:d<e>f?g\\h|\x01\x1F";
    const std::string replaced = "a\uF020b\uF021c\uF022d\uF023e\uF024f\uF025g\uF026h\uF027\uF001\uF01F";
    CHECK(hostNameOf(replaced) == reserved);
    CHECK(windowsNameOf(reserved) == replaced);
    // A blank or period only at the end.
    CHECK(windowsNameOf("a. b.") == "a. b\uF029");
    CHECK(windowsNameOf(" .a ") == " .a\uF028");
    CHECK(hostNameOf("\uF028a\uF029") == "\uF028a.");
    // No name becomes the folder itself or the one above.
    CHECK(hostNameOf("\uF029") == "\uF029");
    CHECK(hostNameOf(".\uF029") == ".\uF029");
    // Bytes that are no UTF-8 stay.
    CHECK(windowsNameOf("\x83\x5C\xFF") == "\x83\uF026\xFF");
    CHECK(hostNameOf("\xEF\x80") == "\xEF\x80");
}

TEST_CASE("Mac Roman has a character for every byte, and what it lacks becomes _") {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    CHECK(macRomanFromUtf8(utf8FromMacRoman(bytes)) == bytes);
    CHECK(utf8FromMacRoman("\x80\xA5\xDB\xF0\xFC\xFD\xFF") == "\u00C4\u2022\u20AC\uF8FF\u00B8\u02DD\u02C7");
    // macOS' decomposed letters are composed.
    CHECK(macRomanFromUtf8("Re\u0301sume\u0301 A\u030A n\u0303") == "R\x8Esum\x8E \x81 \x96");
    CHECK(macRomanFromUtf8("\u2126\u212B") == "\xBD\x81");
    CHECK(macRomanFromUtf8("x\u0301\u65E5\U0001F4BE\xFF\x80z") == "x_____z");
}

TEST_CASE("A Mac name is cut between characters, and a host's name stands for it when nothing is lost") {
    CHECK(macNameFromHost(std::string(30, 'x') + "e\u0301e\u0301") == std::string(30, 'x') + "\x8E");
    CHECK(hostNameFromMac("..") == hostNameOf(windowsNameOf("_.")));
    CHECK(hostNameFromMac("R\x8Esum\x8E/ ?\\\xF0") == "R\u00E9sum\u00E9: ?\\\uF8FF");
    CHECK_FALSE(standsFor("readme", std::string("ReadMe")));
    CHECK(standsFor("\u65E5:", std::u16string(u"\u65E5/")));
    CHECK_FALSE(standsFor("e\u0301", std::u16string(u"\u00E9")));
}
