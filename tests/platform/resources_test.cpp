#include "kernel/resources.h"

#include "res/resource.h"

#include <doctest/doctest.h>
#include <windows.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr uint16_t kStringTable = 6;

// Builds a compiled resource file.
class ResourceFileBuilder {
  public:
    ResourceFileBuilder() { add(0, 0, {}); }  // every such file begins with an empty entry

    void add(uint16_t type, uint16_t name, const std::vector<uint8_t>& data) {
        std::vector<uint8_t> identifiers;
        append16(identifiers, 0xFFFF);
        append16(identifiers, type);
        append16(identifiers, 0xFFFF);
        append16(identifiers, name);
        addEntry(identifiers, data);
    }

    void addNamed(uint16_t type, std::u16string_view name, const std::vector<uint8_t>& data) {
        std::vector<uint8_t> identifiers;
        append16(identifiers, 0xFFFF);
        append16(identifiers, type);
        for (const char16_t unit : name)
            append16(identifiers, unit);
        append16(identifiers, 0);
        identifiers.resize((identifiers.size() + 3) / 4 * 4);
        addEntry(identifiers, data);
    }

    const std::vector<uint8_t>& bytes() const { return bytes_; }

    static void append16(std::vector<uint8_t>& to, uint32_t value) {
        to.push_back(static_cast<uint8_t>(value));
        to.push_back(static_cast<uint8_t>(value >> 8));
    }

    static void append32(std::vector<uint8_t>& to, uint32_t value) {
        append16(to, value);
        append16(to, value >> 16);
    }

  private:
    void addEntry(const std::vector<uint8_t>& identifiers, const std::vector<uint8_t>& data) {
        append32(bytes_, static_cast<uint32_t>(data.size()));
        append32(bytes_, static_cast<uint32_t>(8 + identifiers.size() + 16));
        bytes_.insert(bytes_.end(), identifiers.begin(), identifiers.end());
        bytes_.resize(bytes_.size() + 16);  // versions, flags, language, characteristics
        bytes_.insert(bytes_.end(), data.begin(), data.end());
        bytes_.resize((bytes_.size() + 3) / 4 * 4);
    }

    std::vector<uint8_t> bytes_;
};

std::vector<uint8_t> stringBlock(const std::vector<std::u16string>& strings) {
    std::vector<uint8_t> block;
    for (size_t i = 0; i < 16; ++i) {
        const std::u16string text = i < strings.size() ? strings[i] : std::u16string();
        ResourceFileBuilder::append16(block, static_cast<uint32_t>(text.size()));
        for (const char16_t unit : text)
            ResourceFileBuilder::append16(block, unit);
    }
    return block;
}

}  // namespace

TEST_CASE("resources are found by type and number, past entries of other kinds and sizes") {
    ResourceFileBuilder file;
    file.addNamed(10, u"README", {9, 9, 9, 9, 9});
    file.add(10, 123, {1});
    file.add(11, 124, {2, 2});
    file.add(10, 124, {3, 3, 3});
    file.add(10, 124, {4});  // another language of the same resource
    const kernel::ResourceFile resources(file.bytes());

    const auto found = resources.find(10, 124);
    REQUIRE(found);
    CHECK(std::vector<uint8_t>(found->begin(), found->end()) == std::vector<uint8_t>{3, 3, 3});
    CHECK(resources.find(10, 123)->size() == 1);
    CHECK_FALSE(resources.find(10, 125));
}

TEST_CASE("a string is the one of its place in its block of sixteen") {
    ResourceFileBuilder file;
    file.add(kStringTable, 1, stringBlock({u"zero", u"one"}));
    file.add(kStringTable, 2, stringBlock({u"sixteen", u"", u"\u2265 eighteen"}));
    const kernel::ResourceFile resources(file.bytes());

    CHECK(*resources.string(0) == u"zero");
    CHECK(*resources.string(1) == u"one");
    CHECK(resources.string(2)->empty());
    CHECK(*resources.string(16) == u"sixteen");
    CHECK(*resources.string(18) == u"\u2265 eighteen");
    CHECK(resources.string(31)->empty());
    CHECK_FALSE(resources.string(32));
    CHECK_FALSE(resources.string(0xFFFFFFFF));
}

TEST_CASE("a resource file cut anywhere gives the entries before the cut and never reads past it") {
    ResourceFileBuilder file;  // of texts that need no padding behind them
    file.add(kStringTable, 1, stringBlock({u"intact"}));
    const size_t firstEnd = file.bytes().size();
    file.add(kStringTable, 2, stringBlock({u"eighteen"}));
    for (size_t size = 0; size < file.bytes().size(); ++size) {
        // A copy of exactly this size, so that a sanitizer sees a read behind it.
        const std::vector<uint8_t> cut(file.bytes().begin(),
                                       file.bytes().begin() + static_cast<std::ptrdiff_t>(size));
        const kernel::ResourceFile resources(cut);
        CHECK_MESSAGE(resources.string(0).has_value() == (size >= firstEnd), size);
        CHECK_FALSE(resources.string(16));
    }
}

TEST_CASE("sizes that lie about a resource file are not followed") {
    ResourceFileBuilder file;
    file.add(kStringTable, 1, stringBlock({u"text"}));
    const size_t entry = 32;  // behind the empty first entry
    const auto withField = [&](size_t offset, uint32_t value) {
        std::vector<uint8_t> bytes = file.bytes();
        std::vector<uint8_t> field;
        ResourceFileBuilder::append32(field, value);
        std::copy(field.begin(), field.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
        return bytes;
    };
    for (const uint32_t size : {0u, 7u, 8u, 0x7FFFFFFFu, 0xFFFFFFF8u, 0xFFFFFFFFu}) {
        CHECK_FALSE(kernel::ResourceFile(withField(entry + 4, size)).string(0));  // of the header
    }
    for (const uint32_t size : {0u, 1u, 9u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        CHECK_FALSE(kernel::ResourceFile(withField(entry, size)).string(0));  // of the data
    }
    const size_t firstLength = entry + 32;
    const auto longText = withField(firstLength, 0xFFFF);
    CHECK_FALSE(kernel::ResourceFile(longText).string(0));
    CHECK_FALSE(kernel::ResourceFile(longText).string(1));
}

TEST_CASE("LoadStringA gives the texts of the library, cut to the caller's buffer") {
    char text[128];
    const std::string_view seconds = "%d Seconds Remaining";
    REQUIRE(LoadStringA(nullptr, IDS_SECONDS_REMAINING, text, sizeof text) ==
            static_cast<int>(seconds.size()));
    CHECK(std::string(text) == seconds);

    std::fill(std::begin(text), std::end(text), '#');
    CHECK(LoadStringA(nullptr, IDS_MINUTES_REMAINING, text, 5) == 4);
    CHECK(std::string(text) == "%d M");
    CHECK(text[5] == '#');

    CHECK(LoadStringA(nullptr, 0xFFFF, text, sizeof text) == 0);
}
