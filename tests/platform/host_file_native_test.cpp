// What only a POSIX host has: links, FIFOs, permissions.
#include "pc/names/host_name.h"
#include "support/temp_folder_native.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

struct NativeVolume {
    TempFolder folder;
    std::unique_ptr<pc::Volume> volume = pc::makeMacVolume(folder.host(), folder.path());

    void link(const char* target, const char* name) const { fs::create_symlink(target, folder.path(name)); }
    void setMode(const char* name, int mode) const { fs::permissions(folder.path(name), fs::perms(mode)); }
    bool hasMode(const char* name, int mode) const {
        return fs::status(folder.path(name)).permissions() == fs::perms(mode);
    }
};

}  // namespace

TEST_CASE_FIXTURE(NativeVolume, "what is no regular file is never opened") {
    folder.write("a", "");
    for (const char* fifo : {"fifo", "._a"})
        REQUIRE(::mkfifo(folder.path(fifo).c_str(), 0600) == 0);
    link("fifo", "link");
    link("/dev/null", "null");  // a device: were it opened, this would not fail
    for (const std::string name : {"fifo", "link", "null"}) {
        CAPTURE(name);
        for (const std::string part : {"", kFinderFile, kResourceFile})
            CHECK(openError(*volume, name + part, createAlways) == 5);
        CHECK(identityOf(*volume, name) == "error 5");
        CHECK(volume->remove(name) == 5);
    }
    CHECK(openError(*volume, std::string("a") + kFinderFile) == 5);
}

TEST_CASE_FIXTURE(NativeVolume, "all links to a file are one file") {
    folder.write("a", "1");
    fs::create_hard_link(folder.path("a"), folder.path("hard"));
    link("a", "soft");
    link("nowhere", "dangling");
    for (const char* const name : {"soft", "hard"})
        CHECK(identityOf(*volume, name) == identityOf(*volume, "a"));
    CHECK(openError(*volume, "dangling") == 2);
    CHECK(openError(*volume, "dangling", createNew) == 80);
    CHECK(openError(*volume, "dangling", openAlways) == 5);
    CHECK_FALSE(folder.has("nowhere"));
}

TEST_CASE_FIXTURE(NativeVolume, "permissions show as attributes and are kept") {
    folder.write("a", "");
    setMode("a", 0640);
    REQUIRE(changeFinderInfo(*volume, "a", "TEXTttxt") == 0);
    CHECK(hasMode("._a", 0640));
    setMode("._a", 0604);
    REQUIRE(writeFile(*volume, std::string("a") + kResourceFile, "") == 0);
    CHECK(hasMode("._a", 0604));
    setMode("a", 0444);
    pc::Opened opened;
    REQUIRE(volume->openForQuery("a", opened) == 0);
    CHECK(opened.attributes == 0x21);
    CHECK(volume->remove("a") == 5);
    CHECK(folder.has("._a"));
}

TEST_CASE_FIXTURE(NativeVolume, "names of any bytes are reached") {
    const std::string name = "caf\x8E \xFF";
    folder.write(name, "1");
    REQUIRE(changeFinderInfo(*volume, pc::windowsNameOf(name), "TEXTttxt") == 0);
    CHECK(folder.has("._" + name));
    // The longest name leaves no room for the driver's file: no fork, no settings, but zeros to read.
    const std::string longest(255, 'n');
    folder.write(longest, "1");
    CHECK(contentsOf(*volume, longest + kFinderFile).substr(523, 16) == std::string(16, '\0'));
    CHECK(openError(*volume, longest + kResourceFile) == 2);
    CHECK(changeFinderInfo(*volume, longest, "TEXTttxt") == 206);
    CHECK(openError(*volume, longest + "n", createAlways) == 206);
    REQUIRE(volume->remove(longest) == 0);
}
