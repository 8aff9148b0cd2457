#include "pc/host_name.h"
#include "pc/letter_case.h"
#include "pc/mac_name.h"
#include "pc/mac_roman.h"
#include "pc/reserved_characters.h"
#include "pc/utf8.h"

#include <doctest/doctest.h>

using namespace pc;

TEST_CASE("UTF-8 and UTF-16 give each other back, and broken bytes are told") {
    const std::string text = "a\u00E9\u20AC\U0001F4BE";
    CHECK(utf16FromUtf8(text) == u"a\u00E9\u20AC\U0001F4BE");
    CHECK(utf8FromUtf16(utf16FromUtf8(text)) == text);
    CHECK(utf16FromUtf8("\xC0\xAF") == u"\uFFFD\uFFFD");            // overlong
    CHECK(utf16FromUtf8("\xED\xA0\x80") == u"\uFFFD\uFFFD\uFFFD");  // a surrogate
    CHECK(utf16FromUtf8("\xE2\x82") == u"\uFFFD\uFFFD");            // cut short
    CHECK(utf16FromUtf8("\xF5\x80\x80\x80x") == u"\uFFFD\uFFFD\uFFFD\uFFFDx");
    CHECK(utf8FromUtf16(std::u16string{0xDC00, 0xD800, 'x'}) == "\uFFFD\uFFFDx");
}

TEST_CASE("letters are compared in any case") {
    CHECK(equalIgnoringCase("Read Me.TXT", "rEAD mE.txt"));
    CHECK(equalIgnoringCase("\u00C5ngstr\u00F6m \u017Dlu\u0165", "\u00E5NGSTR\u00D6M \u017ELU\u0164"));
    CHECK(equalIgnoringCase("\u039B\u03CC\u03B3\u03BF\u03C2 \u0416\u0451",
                            "\u03BB\u038C\u0393\u039F\u03A3 \u0436\u0401"));
    CHECK_FALSE(equalIgnoringCase("\u00D7", "\u00F7"));  // signs between the letters
    CHECK_FALSE(equalIgnoringCase("a", "b"));
    CHECK(upperCase("\xFF\xFEz") == "\xFF\xFEZ");
}

TEST_CASE("what Windows reserves is replaced and restored") {
    const std::string reserved = "a\"b*c:d<e>f?g\\h|\x01\x1F";
    const std::string replaced = "a\uF020b\uF021c\uF022d\uF023e\uF024f\uF025g\uF026h\uF027\uF001\uF01F";
    CHECK(replaceReserved(reserved) == replaced);
    CHECK(restoreReserved(replaced) == reserved);
    CHECK(windowsNameOf(reserved) == replaced);
#ifdef _WIN32
    CHECK(hostNameOf(replaced) == replaced);
#else
    CHECK(hostNameOf(replaced) == reserved);
#endif

    SUBCASE("a blank or period only at the end") {
        CHECK(replaceReserved("a. b.") == "a. b\uF029");
        CHECK(replaceReserved(" .a ") == " .a\uF028");
        CHECK(restoreReserved("\uF028a\uF029") == "\uF028a.");
    }
    SUBCASE("no name becomes the folder itself or the one above") {
        CHECK(restoreReserved("\uF029") == "\uF029");
        CHECK(restoreReserved(".\uF029") == ".\uF029");
    }
    SUBCASE("bytes that are no UTF-8 stay") {
        CHECK(replaceReserved("\x83\x5C\xFF") == "\x83\uF026\xFF");
        CHECK(restoreReserved("\xEF\x80") == "\xEF\x80");
    }
}

TEST_CASE("Mac Roman has a character for every byte and gives the byte back") {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    CHECK(macRomanFromUtf8(utf8FromMacRoman(bytes)) == bytes);
    CHECK(utf8FromMacRoman("\x80\xA5\xDB\xF0\xFC\xFD\xFF") == "\u00C4\u2022\u20AC\uF8FF\u00B8\u02DD\u02C7");
}

TEST_CASE("macOS' decomposed letters are composed, and what Mac Roman lacks becomes _") {
    CHECK(macRomanFromUtf8("Re\u0301sume\u0301 A\u030A n\u0303") == "R\x8Esum\x8E \x81 \x96");
    CHECK(macRomanFromUtf8("\u2126\u212B") == "\xBD\x81");
    CHECK(macRomanFromUtf8("x\u0301") == "x_");
    CHECK(macRomanFromUtf8("\u65E5\u672C\U0001F4BE") == "___");
    CHECK(macRomanFromUtf8("a\xFF\x80z") == "a__z");
}

TEST_CASE("a Mac name comes from the host's name") {
    CHECK(macNameFromHost("Read Me: part") == "Read Me/ part");
    CHECK(macNameFromHost("a\uF022b\uF029") == "a/b.");
    CHECK(macNameFromHost(std::string(30, 'x') + "e\u0301e\u0301") == std::string(30, 'x') + "\x8E");
    CHECK(unicodeMacNameFromHost("\u65E5\u672C:e\u0301") == u"\u65E5\u672C/e\u0301");
    // 254 units and a character of two: half a character is no name.
    CHECK(unicodeMacNameFromHost(std::string(254, 'x') + "\U0001F4BE") == std::u16string(254, u'x'));
    CHECK(unicodeMacNameFromHost(std::string(253, 'x') + "\U0001F4BE").size() == 255);
}

TEST_CASE("the host's name comes from a Mac name, and is always one that a file may have") {
#ifdef _WIN32
    CHECK(hostNameFromMac("Read Me/ part\x8E") == "Read Me\uF022 part\u00E9");
    CHECK(hostNameFromUnicodeMac(u"a/\u65E5") == "a\uF022\u65E5");
#else
    CHECK(hostNameFromMac("Read Me/ part\x8E") == "Read Me: part\u00E9");
    CHECK(hostNameFromUnicodeMac(u"a/\u65E5\uF020") == "a:\u65E5\"");
#endif
    CHECK(hostNameFromMac("") == "_");
    CHECK(hostNameFromMac(".") == "_");
    CHECK(hostNameFromMac("..") == hostNameOf(windowsNameOf("_.")));
    CHECK(hostNameFromMac("._x") == "__x");
    CHECK(hostNameFromMac(".x") == ".x");
    CHECK(hostNameFromMac(std::string("a\0b", 3)) == "a_b");
}

TEST_CASE("a host's name stands for a Mac name when nothing of it is lost") {
    CHECK(standsFor("Read Me: e\u0301", std::string("Read Me/ \x8E")));
    CHECK(standsFor("a_b", std::string("a_b")));
    CHECK(standsFor(std::string(40, 'x'), std::string(40, 'x')));
    CHECK_FALSE(standsFor("\u65E5\u672C", std::string("__")));
    CHECK_FALSE(standsFor(std::string(40, 'x'), std::string(31, 'x')));
    CHECK_FALSE(standsFor("readme", std::string("ReadMe")));
    CHECK(standsFor("\u65E5:", std::u16string(u"\u65E5/")));
    CHECK_FALSE(standsFor("e\u0301", std::u16string(u"\u00E9")));
}

TEST_CASE("bytes that are no UTF-8 survive as units of their own") {
    const std::string bytes = "a\xFF\xC3\xA9\x80\xF0\x9F\x92\xBE\xED\xB2\x80";
    CHECK(utf16FromBytes("a\xFF\xC3\xA9") == std::u16string{u'a', 0xDCFF, 0xE9});
    CHECK(bytesFromUtf16(utf16FromBytes(bytes)) == bytes);
    CHECK(bytesFromUtf16(std::u16string{0xDC7F, 0xD800}) == "\uFFFD\uFFFD");
}
