// Resource forks of any bytes: everything that can be asked of one. What is read is within the fork, and
// nothing is held.
#include "fuzz_pc.h"
#include "resources/hex_dump.h"
#include "resources/picture.h"
#include "resources/resource_text.h"
#include "resources/resource_type.h"

#include <algorithm>
#include <cstring>

namespace {

using namespace tidewell;

// A few bytes can claim 32,768 types of 65,536 resources each.
constexpr unsigned kMostTypes = 8;
constexpr unsigned kMostReferences = 4;  // of each type
constexpr uint32_t kMostData = 100;

void dump(const PageBuffer& data, uint32_t length) {
    size_t textLength = 0;
    const PageBuffer text = HexDumpAlloc(data.data(), length, &textLength);
    mustBe(static_cast<bool>(text), "no room for a dump");
    mustBe(textLength < HexDumpCapacity(length) && text.data()[textLength] == 0, "a dump is too long");
}

// A pixel takes a bit of the data at least.
void show(ResourceForkReader& reader, const TypeEntry& type, const ReferenceEntry& entry) {
    const Picture picture = ReadPicture(reader, type, entry);
    const bool small = picture.width <= kMostPictureSide && picture.height <= kMostPictureSide;
    mustBe(small && picture.width * picture.height / 8 <= reader.ForkSize(), "a picture is too large");

    if (!IsTextType(type.type)) return;
    uint32_t length = kMostTextData;
    const PageBuffer data = reader.ReadData(entry, length);
    const PageBuffer text = data ? ReadResourceText(type.type, data.data(), length) : PageBuffer();
    mustBe(!text || (text.data()[0] != 0 && std::memchr(text.data(), 0, kMostText) != nullptr),
           "a text is empty or does not end");
}

void readResource(ResourceForkReader& reader, const TypeEntry& type, const ReferenceEntry& entry) {
    char name[44];
    name[0] = '\0';
    reader.ReadName(entry, name, sizeof name);
    mustBe(std::memchr(name, 0, sizeof name) != nullptr, "a name does not end");

    uint32_t whole = 0;
    const bool hasLength = reader.ReadDataLength(entry, whole) != 0;
    uint32_t length = kMostData;
    const PageBuffer data = reader.ReadData(entry, length);
    mustBe(hasLength == static_cast<bool>(data), "data without a length, or a length without data");
    if (!data) return;
    mustBe(length <= std::min(whole, kMostData) && length < reader.ForkSize(), "more data than there is");
    dump(data, length);
    show(reader, type, entry);
}

void readType(ResourceForkReader& reader, const TypeEntry& type) {
    char text[100];
    mustBe(GetTypeDescription(type.type, text, sizeof text) != 0, "a type without a description");
    ReferenceEntry entry;
    const unsigned count = std::min(type.lastIndex + 1U, kMostReferences);
    for (unsigned i = 0; i < count; ++i)
        if (reader.ReadReferenceEntry(type, static_cast<uint16_t>(i), entry))
            readResource(reader, type, entry);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    static FuzzPc pc;
    {
        PageBuffer memory = PageBuffer::allocate(size + 1);
        std::copy(bytes, bytes + size, memory.data());
        ResourceForkReader reader;
        if (!reader.Open(ForkBytes(std::move(memory), size))) return 0;
        TypeEntry type;
        const unsigned count = std::min(reader.TypeCount(), kMostTypes);
        for (unsigned i = 0; i < count; ++i)
            if (reader.ReadTypeEntry(static_cast<uint16_t>(i), type)) readType(reader, type);
    }
    mustBe(pc.nothingHeld(), "memory is still held");
    return 0;
}
