// Extracts a file of any bytes. Whole files or none, the source as it was, nothing held. The bytes choose the
// volume, whether the file is extracted again, over itself, and for one input of sixteen all volumes, which
// must get the same data fork: what every input did would take five times as long.
#include "convert/extract_original.h"
#include "fuzz_pc.h"

#include <functional>
#include <optional>

namespace {

// No answer can be more than the file holds: a run of 255 bytes takes two, and every byte 4/3 characters.
constexpr size_t kMostExpansion = 128;

// What an extraction left in the drive: the data fork, or nothing when it left no file.
std::optional<std::string> dataForkIn(const FuzzPc& pc, const std::string& drive) {
    std::optional<std::string> data;
    for (const std::string& name : pc.folder().names(drive)) {
        const bool stream = drive == "N" && name.find(':') != std::string::npos;
        const bool appleDouble = drive == "M" && name.starts_with("._");
        if (stream || appleDouble) continue;
        mustBe(!data, "more than one file was made");
        data = pc.folder().read(drive + "/" + name);
    }
    return data;
}

DWORD extract(FuzzPc& pc, const std::string& drive) {
    DWORD flags = 0;
    const DWORD error =
        ExtractOriginalMacFile(nullptr, "S:\\" TIDEWELL_FUZZ_NAME, (drive + ":\\").c_str(), &flags, nullptr);
    mustBe(pc.nothingHeld(), "handles or memory are still held");
    mustBe(pc.folder().names("S").size() == 1, "a file was made beside the source");
    mustBe(error == 0 || pc.folder().names(drive).empty(), "a failure left something behind");
    return error;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    FuzzPc pc;
    pc.folder().write("S/" TIDEWELL_FUZZ_NAME, textOf(bytes, size));
    const size_t choice = std::hash<std::string_view>()(textOf(bytes, size));
    std::optional<std::string> first;
    for (size_t i = 0; i < 3; ++i) {
        if (choice % 16 != 0 && choice / 16 % 3 != i) continue;
        const std::string drive(1, "FNM"[i]);
        // Mac volumes hold names of all languages only where programs can use them, as under the command.
        pc.setCodePage(drive == "M" ? pc::kCodePageUtf8 : 1252);
        if (extract(pc, drive) != 0) continue;
        const std::optional<std::string> data = dataForkIn(pc, drive);
        mustBe(data.has_value(), "a success left no file");
        mustBe(data->size() / kMostExpansion <= size, "more came out than can have been in");
        mustBe(!first || first == data, "the volumes got different data forks");
        first = data;
        if (choice / 48 % 2 != 0) continue;
        mustBe(extract(pc, drive) == 0, "what could be extracted cannot be replaced");
        mustBe(dataForkIn(pc, drive) == first, "what was replaced is not the same");
    }
    mustBe(pc.folder().read("S/" TIDEWELL_FUZZ_NAME) == textOf(bytes, size), "the source was changed");
    return 0;
}
