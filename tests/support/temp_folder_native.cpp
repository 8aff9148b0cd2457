#include "temp_folder.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    std::string name = (fs::temp_directory_path() / "tidewell-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no folder for the test: " + name);
    path_ = fs::canonical(name).string();
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

void TempFolder::makeFolder(std::string_view name) const {
    fs::create_directories(path(name));
}

void TempFolder::write(std::string_view name, std::string_view bytes) const {
    std::ofstream file(path(name), std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush()) throw std::runtime_error("cannot write " + path(name));
}

std::string TempFolder::read(std::string_view name) const {
    std::ifstream file(path(name), std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path(name));
    return std::string(std::istreambuf_iterator<char>(file), {});
}

bool TempFolder::has(std::string_view name) const {
    return fs::exists(fs::symlink_status(path(name)));
}

void TempFolder::remove(std::string_view name) const {
    fs::remove(path(name));
}

std::vector<std::string> TempFolder::names(std::string_view folder) const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(path(folder))) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}
