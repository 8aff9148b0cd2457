#include "resources/resource_fork.h"

#include "base/file.h"

#include "support/archive_writer.h"
#include "support/resource_fork_writer.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

using namespace tidewell;

namespace {

constexpr char kPath[] = "N:\\fork";

std::string lineOf(int id, unsigned attributes, const std::string& name, const std::string& data) {
    return std::to_string(id) + "," + std::to_string(attributes) + "," + name + "," + data + "\n";
}

std::string listed(ResourceForkReader& reader) {
    std::string text;
    for (uint16_t i = 0; i < reader.TypeCount(); ++i) {
        TypeEntry type;
        if (!reader.ReadTypeEntry(i, type)) continue;
        text.append(std::begin(type.type.bytes), std::end(type.type.bytes));
        for (uint16_t j = 0; j <= type.lastIndex; ++j) {
            ReferenceEntry entry;
            if (!reader.ReadReferenceEntry(type, j, entry)) continue;
            char name[256] = "none";
            reader.ReadName(entry, name, sizeof name);
            uint32_t length = 0;
            const PageBuffer data = reader.ReadData(entry, length);
            text += lineOf(entry.id(), entry.attributes, name,
                           data ? std::string(reinterpret_cast<char*>(data.data()), length) : "none");
        }
    }
    return text;
}

ForkBytes inMemory(const Bytes& bytes) {
    PageBuffer memory = PageBuffer::allocate(std::max<size_t>(bytes.size(), 1));
    std::copy(bytes.begin(), bytes.end(), memory.data());
    return {std::move(memory), bytes.size()};
}

std::string listedFrom(ForkBytes bytes) {
    ResourceForkReader reader;
    return reader.Open(std::move(bytes)) ? listed(reader) : "closed";
}

// In the order of their types.
const std::vector<ForkResource> kResources = {
    {"ICN#", 128, "Name", 0x20, patternOf(40)}, {"ICN#", -32768, "", 0, {1}},
    {"ICN#", 7, std::string(255, 'n')},         {"STR ", -1, std::nullopt, 0x7F},
    {"snd ", 0, "x", 0x80, patternOf(300)},
};
constexpr size_t kData = 256;  // where the data of a fork begins

TEST_CASE("A fork is listed as it was written, from a file, a part of one, or memory") {
    TestPc pc;
    const Bytes fork = resourceForkOf(kResources);
    std::string expected, type;
    for (const ForkResource& resource : kResources) {
        if (type != resource.type) expected += type = resource.type;
        const std::string name = resource.name.value_or("");
        expected += lineOf(resource.id, resource.attributes, name.empty() ? "none" : name,
                           std::string(resource.data.begin(), resource.data.end()));
    }
    CHECK(listedFrom(inMemory(fork)) == expected);

    writeMacFile("M:\\file", {.resource = fork});
    const ForkPathsOf paths("M:\\file");
    const char* const path = paths.resourcePath;
    ResourceForkReader reader;
    REQUIRE(reader.Open(path));
    CHECK(reader.Path() == path);
    CHECK(reader.ForkSize() == fork.size());
    CHECK(listed(reader) == expected);
    OwnedFile other;
    CHECK(OpenForReading(path, other) == 0);
    CHECK(CreateFileA(path, GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr) ==
          INVALID_HANDLE_VALUE);

    Bytes file = patternOf(100);
    append(file, fork);
    file.resize(file.size() + 100, 0xEE);
    writeFile(kPath, file);
    const struct {
        uint64_t start, size, there;
    } parts[] = {{100, fork.size(), fork.size()},
                 {100, fork.size() - 1, fork.size() - 1},
                 {file.size() - 10, 50, 10},
                 {file.size() + 10, 50, 0}};
    for (const auto& part : parts) {
        CHECK(OpenForReading(kPath, other) == 0);
        ForkBytes bytes(std::move(other), part.start, part.size);
        uint64_t size = 0;
        CHECK(bytes.GetSize(size) == 0);
        CHECK(size == part.there);
        CHECK(listedFrom(std::move(bytes)) == (part.size == fork.size() ? expected : "closed"));
    }
    SetLastError(1234);
    reader.Close();
    CHECK(GetLastError() == 1234);
    CHECK(reader.ForkSize() == INVALID_FILE_SIZE);
    CHECK(GetLastError() == ERROR_INVALID_HANDLE);
    CHECK(pc.nothingHeld());
}

TEST_CASE("Damaged forks are listed as far as they go") {
    TestPc pc;
    const Bytes fork = resourceForkOf({{"TEXT", 1, "name", 2, bytesOf("data")}});
    const size_t map = kData + 4 + 4, type = map + 30, name = type + 8, reference = name + 5;
    const struct {
        size_t at, size;
        uint32_t value;
        std::string listed;
    } rows[] = {
        {0, 4, 255, "TEXT1,2,name,data\n"},  // the map has the offsets, too, and they count
        {map, 4, 0xFFFFFFFF, "TEXT1,2,name,none\n"},
        {map + 4, 4, 0xFFFFFFFF, ""},
        {map + 24, 2, 0xFFFF, ""},
        {map + 26, 2, 0xFFFE, "TEXT1,2,none,data\n"},
        {type + 4, 2, 3, "TEXT1,2,name,data\n"},
        {type + 6, 2, 0xFFFE, "TEXT"},
        {name, 1, 22, "TEXT1,2,,data\n"},  // of a name that is cut, nothing is told
        {reference + 5, 3, static_cast<uint32_t>(fork.size() - kData - 3), "TEXT1,2,name,none\n"},
        {reference + 5, 3, static_cast<uint32_t>(fork.size() - kData - 4), "TEXT1,2,name,\n"},
    };
    for (const auto& row : rows) {
        CAPTURE(&row - rows);
        Bytes damaged = fork;
        storeBig(damaged, row.at, row.size, row.value);
        CHECK(listedFrom(inMemory(damaged)) == row.listed);
    }
}

TEST_CASE("What is no fork is not opened") {
    TestPc pc;
    Bytes smallest(46);
    for (const auto& [at, value] : {std::pair{0, 16}, {4, 16}, {12, 30}, {42, 0xFFFF}})
        storeBig(smallest, static_cast<size_t>(at), 4, static_cast<uint32_t>(value));
    const auto with = [&](size_t at, uint32_t value) {
        Bytes fork = smallest;
        storeBig(fork, at, 4, value);
        return fork;
    };
    Bytes cut = with(4, 17);  // a map that ends too early, whatever its length says
    storeBig(cut, 12, 4, 29);
    const struct {
        Bytes fork;
        ErrorCode error;
        unsigned types = 0;
    } cases[] = {
        {smallest, 0},
        {with(8, 30), 0},
        {with(42, 0x7FFF), 0, 0x8000},
        {with(42, 0x8000), 0},
        {{}, ERROR_CAN_NOT_COMPLETE},
        {Bytes(smallest.begin(), smallest.end() - 1), ERROR_HANDLE_EOF},
        {with(8, 31), ERROR_HANDLE_EOF},
        {with(8, 0xFFFFFFF0), ERROR_HANDLE_EOF},
        {with(12, 31), ERROR_HANDLE_EOF},
        {with(12, 0xFFFFFFF0), ERROR_HANDLE_EOF},
        {cut, ERROR_HANDLE_EOF},
    };
    ResourceForkReader reader;
    for (const auto& test : cases) {
        CAPTURE(&test - cases);
        writeFile(kPath, test.fork);
        CHECK(reader.Open(kPath) == (test.error == 0));
        if (test.error != 0) CHECK(GetLastError() == test.error);
        CHECK((reader.Path() == nullptr) == (test.error != 0));
        CHECK((reader.ForkSize() == INVALID_FILE_SIZE) == (test.error != 0));
        CHECK(reader.TypeCount() == test.types);
        reader.Close();
    }
    CHECK(pc.nothingHeld());
}

TEST_CASE("Names and data are read as far as they are wanted, and never more than there is") {
    TestPc pc;
    Bytes fork = resourceForkOf({{"TEXT", 0, "abcd", 0, patternOf(20)}, {"TEXT", 1, ""}});
    storeBig(fork, kData + 24, 4, 0xFFFFFFFF);  // the second's data, up to the end of the fork
    ResourceForkReader reader;
    REQUIRE(reader.Open(inMemory(fork)));
    const struct {
        uint16_t offset;
        unsigned size;
        std::string text;
        ErrorCode error;
    } names[] = {
        {0, 300, "abcd", 0},
        {0, 4, "abc", 0},
        {0, 3, "ab", ERROR_BUFFER_OVERFLOW},
        {0, 0, "########", ERROR_INVALID_PARAMETER},
        {0xFFFF, 0, "########", NO_ERROR},
        {5, 8, "########", ERROR_INVALID_DATA},
        {0x7FFF, 0, "########", ERROR_HANDLE_EOF},  // read before the buffer is looked at
        {0x8000, 8, "########", ERROR_NEGATIVE_SEEK},
    };
    for (const auto& test : names) {
        CAPTURE(&test - names);
        const ReferenceEntry entry = {0, test.offset, 0, {}, 0};
        char name[] = "########";
        const BOOL read = reader.ReadName(entry, name, test.size);
        CHECK(read == (test.offset == 0 && test.size >= 4));
        if (!read) CHECK(GetLastError() == test.error);
        CHECK(name == test.text);
    }
    const auto rest = static_cast<uint32_t>(fork.size() - kData - 28);
    const struct {
        uint8_t offset;
        uint32_t limit, length;
    } parts[] = {{0, 0, 20},    {0, 7, 7},  {0, 20, 20},         {0, 21, 20},
                 {24, 0, rest}, {24, 5, 5}, {24, rest + 1, rest}};
    for (const auto& part : parts) {
        const ReferenceEntry entry = {0, 0, 0, {0, 0, part.offset}, 0};
        uint32_t length = part.limit;
        pc.journal().clear();
        const PageBuffer data = reader.ReadData(entry, length);
        REQUIRE(data);
        CHECK(length == part.length);
        CHECK(std::memcmp(data.data(), &fork[kData + part.offset + 4], length) == 0);
        CHECK(pc.journal().text().find("VirtualAlloc  " + std::to_string(length)) != std::string::npos);
    }
}

TEST_CASE("A request that fails tells the system's error, and the next one succeeds") {
    TestPc pc;
    const Bytes fork = resourceForkOf(kResources);
    const std::string expected = listedFrom(inMemory(fork));
    writeFile(kPath, fork);
    ResourceForkReader reader;
    uint32_t length = 0;
    const auto readAll = [&] {
        TypeEntry type;
        ReferenceEntry entry;
        char name[44];
        uint32_t whole = 0;
        length = 0;
        return reader.Open(kPath) && reader.ForkSize() != INVALID_FILE_SIZE &&
               reader.ReadTypeEntry(0, type) && reader.ReadReferenceEntry(type, 0, entry) &&
               reader.ReadName(entry, name, sizeof name) && reader.ReadDataLength(entry, whole) &&
               reader.ReadData(entry, length);
    };
    bool hit = true;
    for (int n = 1; hit; ++n) {
        pc.faults().failCall(n, ERROR_CRC);
        const bool done = readAll();
        const ErrorCode error = GetLastError();
        CAPTURE(pc.faults().hitCall());
        hit = pc.faults().hit();
        CHECK(done == !hit);
        if (hit) CHECK(error == pc.faults().injected());
        pc.faults().clear();
        if (reader.Path() != nullptr) CHECK(listed(reader) == expected);
    }
    CHECK(length == 40);
    // Of the transfers of more than a byte the last, of the data.
    pc.faults().shortTransfer(8);
    CHECK(readAll());
    CHECK(length == 20);
    reader.Close();
    CHECK(pc.nothingHeld());
}

}  // namespace
