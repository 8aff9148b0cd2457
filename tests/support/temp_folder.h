// A folder of the host that lives as long as a test, and what a test puts into it behind the volume's back.
#ifndef TIDEWELL_TESTS_SUPPORT_TEMP_FOLDER_H
#define TIDEWELL_TESTS_SUPPORT_TEMP_FOLDER_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// Names are UTF-8, relative to the folder, with "/" between components. What goes wrong fails the program:
// no test can go on without its files.
class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string path(std::string_view name) const { return path_ + "/" + std::string(name); }

    void makeFolder(std::string_view name) const;
    void write(std::string_view name, std::string_view bytes) const;
    std::string read(std::string_view name) const;
    bool has(std::string_view name) const;
    void remove(std::string_view name) const;
    // Sorted.
    std::vector<std::string> names(std::string_view folder = "") const;

  private:
    std::string path_;
};

#endif
