#include "extraction.h"

#include "convert/extract_original.h"
#include "fuzz_pc.h"

#include <windows.h>

#include <optional>

namespace {

// No answer can be more than the file holds: a run of 255 bytes takes two, and every byte 4/3 characters.
constexpr size_t kMostExpansion = 128;

// What an extraction left in the drive: the data fork, or nothing when it left no file.
std::optional<std::string> dataForkIn(const FuzzPc& pc, char drive) {
    std::optional<std::string> data;
    for (const std::string& name : pc.names(drive)) {
        const bool stream = drive == 'N' && name.find(':') != std::string::npos;
        const bool appleDouble = drive == 'M' && name.starts_with("._");
        if (stream || appleDouble) continue;
        mustBe(!data, "more than one file was made");
        data = pc.read(drive, name);
    }
    return data;
}

DWORD extract(FuzzPc& pc, const std::string& source, char drive) {
    const std::string folder = std::string(1, drive) + ":\\";
    DWORD flags = 0;
    pc.journal().clear();
    const DWORD error = ExtractOriginalMacFile(nullptr, source.c_str(), folder.c_str(), &flags, nullptr);
    mustBe(pc.nothingHeld(), "handles or memory are still held");
    mustBe(pc.names('S').size() == 1, "a file was made beside the source");
    if (error != 0) mustBe(pc.names(drive).empty(), "a failure left something behind");
    return error;
}

}  // namespace

void fuzzExtraction(const char* extension, const uint8_t* bytes, size_t size) {
    static FuzzPc pc;
    pc.clear();
    const std::string name = std::string("in") + extension;
    pc.write('S', name, textOf(bytes, size));
    std::optional<std::string> first;
    for (const char drive : {'F', 'N', 'M'}) {
        // Mac volumes hold names of all languages only where programs can use them, as under the command.
        pc.setCodePage(drive == 'M' ? pc::kCodePageUtf8 : 1252);
        const DWORD error = extract(pc, "S:\\" + name, drive);
        if (error != 0) continue;
        const std::optional<std::string> data = dataForkIn(pc, drive);
        mustBe(data.has_value(), "a success left no file");
        mustBe(data->size() / kMostExpansion <= size, "more came out than can have been in");
        mustBe(!first || first == data, "the volumes got different data forks");
        first = data;
        mustBe(extract(pc, "S:\\" + name, drive) == 0, "what could be extracted cannot be replaced");
        mustBe(dataForkIn(pc, drive) == first, "what was replaced is not the same");
    }
    mustBe(pc.read('S', name) == textOf(bytes, size), "the source was changed");
}
