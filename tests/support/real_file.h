// Files on a real volume of Windows, in the current folder, that go with the object.
#ifndef TIDEWELL_TESTS_SUPPORT_REAL_FILE_H
#define TIDEWELL_TESTS_SUPPORT_REAL_FILE_H

#include <windows.h>

#include <string>

// Made by the test or by what it tests; not there at first.
class RealFile {
  public:
    // Names are 8.3 ones, since not every system finds a stream by a file's other name.
    explicit RealFile(const char* name);
    RealFile(const char* name, const std::string& bytes);
    ~RealFile();
    RealFile(const RealFile&) = delete;
    RealFile& operator=(const RealFile&) = delete;

    const char* path() const { return path_.c_str(); }
    std::string bytes() const;

  private:
    std::string path_;
};

#endif
