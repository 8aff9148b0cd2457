// Resources in a compiled resource file (.res), the form in which native programs carry the library's texts.
#ifndef TIDEWELL_PLATFORM_KERNEL_RESOURCES_H
#define TIDEWELL_PLATFORM_KERNEL_RESOURCES_H

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace kernel {

// A file's bytes, borrowed: they outlive the object and what it gives. Nothing that they say is trusted;
// where an entry is damaged, it and all that follow it count as absent.
class ResourceFile {
  public:
    explicit ResourceFile(std::span<const uint8_t> bytes) : bytes_(bytes) {}

    // The data of the first resource with this type and name, whatever its language. Resources whose type
    // or name is a text instead of a number are passed over.
    std::optional<std::span<const uint8_t>> find(uint16_t type, uint16_t name) const;

    // A string of the string table; nothing when the table has no block for it. In a block every string
    // exists, those that were not given are empty.
    std::optional<std::u16string> string(uint32_t id) const;

  private:
    std::span<const uint8_t> bytes_;
};

}  // namespace kernel

#endif
