// The PC that a fuzzer works on, and what must be true of it after every run. It is kept across runs; its
// volumes are in a folder in memory where the host has one.
#ifndef TIDEWELL_FUZZ_FUZZ_PC_H
#define TIDEWELL_FUZZ_FUZZ_PC_H

#include "pc/pc.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// S: holds sources; F: is FAT, N: NTFS, M: a Mac volume.
class FuzzPc : public pc::Pc {
  public:
    FuzzPc();
    ~FuzzPc();

    // Empties the drives, and forgets what their volumes knew.
    void clear();

    std::string hostPath(char drive, std::string_view name) const;
    void write(char drive, std::string_view name, std::string_view bytes) const;
    std::string read(char drive, std::string_view name) const;
    // Sorted.
    std::vector<std::string> names(char drive) const;

  private:
    std::filesystem::path root_;
};

// Ends the fuzzer with the message when the condition does not hold.
void mustBe(bool condition, const char* message);

inline std::string_view textOf(const uint8_t* bytes, size_t size) {
    return {reinterpret_cast<const char*>(bytes), size};
}

#endif
