// What volumes rely on, of the host in memory and of the machine's own alike.
#include "support/host_folder.h"

#ifndef _WIN32
#include "support/temp_folder_native.h"
#endif

#include <doctest/doctest.h>

using pc::Error;

namespace {

Error openError(const HostFolder& folder, const char* name, const pc::HostAccess& access) {
    std::unique_ptr<pc::HostFile> file;
    return folder.host()->open(folder.path(name), access, std::make_shared<pc::SpaceLimit>(), file);
}

// In a folder with the file "a" and the folder "Sub".
void checkHost(const HostFolder& folder) {
    pc::Host& host = *folder.host();
    const auto at = [&](const char* name) { return folder.path(name); };
    const std::string longest(255, 'n');
    const struct {
        std::string name;
        Error look, list, remove, open, create;
    } rows[] = {
        {"a", 0, 3, 0, 0, 80},     {"Sub", 0, 0, 5, 5, 80},  {"no/none", 3, 3, 3, 3, 3},
        {"a/none", 3, 3, 3, 3, 3}, {longest, 2, 2, 2, 2, 0}, {longest + "n", 206, 206, 206, 206, 206},
    };
    pc::HostStatus before, after;
    for (const auto& row : rows) {
        CAPTURE(row.name);
        folder.write("a", "12345");
        std::vector<pc::HostItem> items;
        const char* const name = row.name.c_str();
        CHECK(host.status(at(name), after) == row.look);
        CHECK(host.list(at(name), items) == row.list);
        CHECK(openError(folder, name, {true, false, false}) == row.open);
        CHECK(openError(folder, name, {true, true, true}) == row.create);
        if (row.create == 0) folder.remove(name);
        CHECK(host.remove(at(name)) == row.remove);
    }
    folder.write("a", "12345");
    REQUIRE(host.status(at("a"), before) == 0);
    CHECK(before.size == 5);
    CHECK(before.modified > 1'000'000'000);
    CHECK(host.move(at("a"), at("Sub")) == 80);
    CHECK(host.replace(at("a"), at("Sub")) == 5);
    CHECK(host.move(at("a"), at("no/b")) == 3);
    CHECK(host.move(at("none"), at("b")) == 2);
    REQUIRE(host.move(at("a"), at("Sub/b")) == 0);
    folder.write("Sub/c", "other");
    REQUIRE(host.replace(at("Sub/b"), at("Sub/c")) == 0);
    CHECK(folder.names().size() + folder.names("Sub").size() == 2);
    REQUIRE(host.status(at("Sub/c"), after) == 0);
    CHECK(after.identity == before.identity);

    // An open file outlives its name; each opening has its access; what is behind the end reads as zeros.
    std::unique_ptr<pc::HostFile> file, reader;
    const auto space = std::make_shared<pc::SpaceLimit>();
    REQUIRE(host.open(at("Sub/c"), {true, true, false}, space, file) == 0);
    REQUIRE(host.open(at("Sub/c"), {true, false, false}, space, reader) == 0);
    REQUIRE(host.remove(at("Sub/c")) == 0);
    char bytes[12] = "";
    size_t got = 0;
    CHECK(file->write(8, "x", 1) == 0);
    CHECK(reader->write(8, "y", 1) == 5);
    CHECK(reader->setSize(1) == 5);
    CHECK(file->setSize(11) == 0);
    CHECK(reader->read(0, bytes, sizeof bytes, got) == 0);
    CHECK(std::string(bytes, got) == std::string("12345\0\0\0x\0\0", 11));
    CHECK(file->setSize(3) == 0);
    CHECK(file->setSize(6) == 0);
    CHECK(reader->read(2, bytes, sizeof bytes, got) == 0);
    CHECK(std::string(bytes, got) == std::string("3\0\0\0", 4));
    CHECK(reader->read(7, bytes, sizeof bytes, got) == 0);
    CHECK(got == 0);
}

}  // namespace

TEST_CASE("The host in memory is one like the machine's own") {
    const MemoryFolder memory("/Volume");
    memory.makeFolder("Sub");
    checkHost(memory);
#ifndef _WIN32
    const TempFolder native;
    std::filesystem::create_directory(native.path("Sub"));
    checkHost(native);
#endif
}
