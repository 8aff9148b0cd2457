// What only a POSIX host has: links, FIFOs, permissions.
#include "pc/host_name.h"
#include "support/temp_folder.h"
#include "support/volume_files.h"

#include <doctest/doctest.h>

#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace {

struct HostVolumes {
    TempFolder folder;
    std::unique_ptr<pc::Volume> mac = pc::makeMacVolume(folder.path());
    std::unique_ptr<pc::Volume> ntfs = pc::makeNtfsVolume(folder.path());

    mode_t modeOf(const std::string& name) const {
        struct stat status {};
        REQUIRE(::stat(folder.path(name).c_str(), &status) == 0);
        return status.st_mode & 07777;
    }
};

}  // namespace

TEST_CASE_FIXTURE(HostVolumes, "what is no regular file is never opened") {
    REQUIRE(::mkfifo(folder.path("fifo").c_str(), 0600) == 0);
    REQUIRE(::symlink("fifo", folder.path("link").c_str()) == 0);
    // A device: were it opened, this would not fail.
    REQUIRE(::symlink("/dev/null", folder.path("null").c_str()) == 0);
    for (pc::Volume* const volume : {mac.get(), ntfs.get()}) {
        for (const char* name : {"fifo", "link", "null"}) {
            CAPTURE(name);
            for (const uint32_t disposition : {createAlways, openExisting, openAlways, truncateExisting}) {
                CHECK(openError(*volume, name, disposition) == 5);
            }
            CHECK(identityOf(*volume, name) == "error 5");
            CHECK(existsOn(*volume, name) == false);
            CHECK(volume->remove(name) == 5);
        }
    }
    CHECK(openError(*mac, std::string("fifo") + kFinderFile) == 5);
    CHECK(openError(*mac, std::string("null") + kResourceFile, createAlways) == 5);
    folder.write("a", "");
    REQUIRE(::mkfifo(folder.path("._a").c_str(), 0600) == 0);
    CHECK(openError(*mac, std::string("a") + kFinderFile) == 5);
}

TEST_CASE_FIXTURE(HostVolumes, "all links to a file are one file") {
    folder.write("a", "1");
    REQUIRE(::link(folder.path("a").c_str(), folder.path("hard").c_str()) == 0);
    REQUIRE(::symlink("a", folder.path("soft").c_str()) == 0);
    REQUIRE(::symlink("nowhere", folder.path("dangling").c_str()) == 0);
    for (pc::Volume* const volume : {mac.get(), ntfs.get()}) {
        pc::Opened opened;
        REQUIRE(openFile(*volume, "soft", openExisting, opened) == 0);
        CHECK(opened.identity == identityOf(*volume, "a"));
        CHECK(opened.identity == identityOf(*volume, "hard"));
        CHECK(openError(*volume, "dangling") == 2);
        CHECK(openError(*volume, "dangling", createNew) == 80);
        CHECK(openError(*volume, "dangling", openAlways) == 5);
    }
    CHECK_FALSE(folder.has("nowhere"));
}

TEST_CASE_FIXTURE(HostVolumes, "permissions show as attributes and are kept") {
    folder.write("a", "");
    REQUIRE(::chmod(folder.path("a").c_str(), 0640) == 0);
    REQUIRE(changeFinderInfo(*mac, "a", "TEXTttxt") == 0);
    CHECK(modeOf("._a") == 0640);
    REQUIRE(::chmod(folder.path("._a").c_str(), 0604) == 0);
    REQUIRE(changeFinderInfo(*mac, "a", "APPLttxt") == 0);
    CHECK(modeOf("._a") == 0604);

    REQUIRE(::chmod(folder.path("a").c_str(), 0444) == 0);
    uint32_t bits = 0;
    REQUIRE(mac->attributes("a", bits) == 0);
    CHECK(bits == 0x21);
    CHECK(mac->remove("a") == 5);
    CHECK(folder.has("._a"));
}

TEST_CASE_FIXTURE(HostVolumes, "names of any bytes are reached") {
    const std::string name = "caf\x8E \xFF";
    folder.write(name, "1");
    CHECK(contentsOf(*mac, pc::windowsNameOf(name)) == "1");
    CHECK(contentsOf(*ntfs, pc::windowsNameOf(name)) == "1");
    REQUIRE(changeFinderInfo(*mac, name, "TEXTttxt") == 0);
    CHECK(folder.has("._" + name));
    // The longest name leaves no room for the driver's file: no fork, no settings, but zeros to read.
    const std::string longest(255, 'n');
    folder.write(longest, "1");
    CHECK(contentsOf(*mac, longest + kFinderFile).substr(523, 16) == std::string(16, '\0'));
    CHECK(openError(*mac, longest + kResourceFile) == 2);
    CHECK(changeFinderInfo(*mac, longest, "TEXTttxt") == 206);
    CHECK(openError(*mac, longest + "n", createAlways) == 206);
    REQUIRE(mac->remove(longest) == 0);
    CHECK(folder.names().size() == 2);
}
