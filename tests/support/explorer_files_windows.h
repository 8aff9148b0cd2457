// The files that a stand-in for Explorer shows, in a folder of its own below the current one: Mac files as
// NTFS keeps them, and packed ones. Their names are 8.3 ones, since not every system finds a stream by
// another.
#ifndef TIDEWELL_TESTS_SUPPORT_EXPLORER_FILES_H
#define TIDEWELL_TESTS_SUPPORT_EXPLORER_FILES_H

#include "support/modal_windows.h"
#include "support/shell_menu_windows.h"

#include <windows.h>

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace fs = std::filesystem;
using Text = std::string;

inline const Text place = fs::absolute("EXPLORER").string();

struct MacFile {
    Text name, data, resource;
};

inline Text big(size_t number, int bytes) {
    Text text;
    while (bytes-- > 0)
        text += static_cast<char>(number >> 8 * bytes);
    return text;
}

inline Text macBinary(const MacFile& file) {
    const auto padded = [](Text fork) { return fork.append((128 - fork.size() % 128) % 128, '\0'); };
    Text header = big(0, 1) + big(file.name.size(), 1) + file.name;
    header.resize(65);
    header += "TEXTttxt" + Text(10, '\0') + big(file.data.size(), 4) + big(file.resource.size(), 4);
    header.resize(124);
    unsigned crc = 0;
    for (const char unit : header) {
        crc ^= static_cast<unsigned>(static_cast<unsigned char>(unit)) << 8;
        for (int bit = 0; bit < 8; ++bit)
            crc = crc << 1 ^ ((crc & 0x8000) != 0 ? 0x11021U : 0U);
    }
    return header + big(crc, 2) + big(0, 2) + padded(file.data) + padded(file.resource);
}

inline const Text kFinderInfo = "AFP" + big(0x100, 5) + Text(8, '\0') + "TEXTttxt" + Text(36, '\0');
// Its map has no resources.
inline const Text kResource = big(256, 4) + big(256, 4) + big(0, 4) + big(30, 4) + Text(264, '\0') +
                              big(28, 2) + big(30, 2) + big(0xFFFF, 2);
inline const MacFile kLetter = {"Letter", "dear all", kResource};
inline const MacFile kNote = {"NOTE.TXT", Text(1000, 'd'), kResource};

inline void writeFile(const fs::path& name, const Text& bytes) {
    std::ofstream file(place / name, std::ios::binary);
    file << bytes;
    REQUIRE(file);
}

inline Text bytesOf(const Text& name) {
    std::ifstream file(place + '\\' + name, std::ios::binary);
    return file ? Text(std::istreambuf_iterator<char>(file), {}) : "(none)";
}

inline void removeFile(const Text& name) {
    for (const char* const part : {"", ":AFP_Resource", ":AFP_AfpInfo"})
        DeleteFileA((place + '\\' + name + part).c_str());
}

// The Mac file is there as it was packed; then no more.
inline void expectRestored(const Text& path, const MacFile& file) {
    CHECK(bytesOf(path) == file.data);
    CHECK(bytesOf(path + ":AFP_Resource") == file.resource);
    CHECK(bytesOf(path + ":AFP_AfpInfo").substr(0, 24) == kFinderInfo.substr(0, 24));
    removeFile(path);
}

inline void removeFiles() {
    std::error_code error;
    fs::remove_all(place, error);
    REQUIRE(!fs::exists(place));
}

inline void makeFiles() {
    removeFiles();
    for (const char* const folder : {"HERE", "OTHER"})
        fs::create_directories(place + '\\' + folder);
    writeFile("X.BIN", macBinary(kLetter));
    // The text is what binhex of the macutils makes.
    writeFile("Y.HQX",
              "(This file must be converted with BinHex 4.0)\n"
              ":\"NaPG(4PFJ\"849K8G(4iG!#3\"3J!!!!!YApNC@&b)'&XE(1Y!!!:\n");
    writeFile("PLAIN.TXT", "plain");
    writeFile("INFO.TXT", "");
    writeFile(kNote.name, kNote.data);
    writeFile(kNote.name + ":AFP_Resource", kNote.resource);
    for (const char* const name : {"NOTE.TXT:AFP_AfpInfo", "INFO.TXT:AFP_AfpInfo"})
        writeFile(name, kFinderInfo);
}

inline Held<IDataObject> select(const std::vector<std::wstring>& names, const fs::path& folder = place) {
    return selectFiles(folder.wstring(), names);
}

inline Held<ITEMIDLIST> listOfFolder(const char* name) {
    return listOf(desktopFolder().get(), fs::path(place + '\\' + name).wstring());
}

constexpr char kLibrary[] = "TIDEWELL.DLL";

// A test has its own files, and when it ends the library is unloaded.
struct Explorer {
    Explorer() { makeFiles(); }
    ~Explorer() {
        removeFiles();
        CoFreeUnusedLibraries();
        CHECK(GetModuleHandleA(kLibrary) == nullptr);
    }
    const TestWindow window{"Explorer", WS_POPUP | WS_VISIBLE};
};

#endif
