#include "resource_export.h"

#include "mac_text.h"
#include "new_file.h"
#include "replace_policy.h"
#include "resource_walk.h"

#include "base/file.h"
#include "resources/hex_dump.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <optional>

namespace cli {

namespace {

using tidewell::ErrorCode;
using tidewell::ReferenceEntry;
using tidewell::ResourceForkReader;
using tidewell::ResourceType;
using tidewell::TypeEntry;

// The type as its four characters or as "0x" and 8 digits; nothing for any other text.
std::optional<ResourceType> typeOfTyped(const std::string& typed) {
    ResourceType type;
    if (typed.size() == 10 && (typed.starts_with("0x") || typed.starts_with("0X"))) {
        uint32_t number = 0;
        const char* const end = typed.data() + typed.size();
        const auto [stop, error] = std::from_chars(typed.data() + 2, end, number, 16);
        if (stop != end || error != std::errc()) return std::nullopt;
        const tidewell::Be<uint32_t> bytes = number;
        std::memcpy(&type, &bytes, sizeof type);
        return type;
    }
    const std::optional<std::string> mac = macOfTyped(typed);
    if (!mac || mac->size() != sizeof type) return std::nullopt;
    std::memcpy(&type, mac->data(), sizeof type);
    return type;
}

// Writes a file as the user named it.
int writeFile(const ForkSource& source, const Options& options, const MakeFile& make) {
    const std::string& typed = options.resources.outputFile;
    const size_t nameStart = fileNameStart(typed);
    const std::string name = typed.substr(nameStart);
    OutputFolder folder;
    Failure failure = beginOutputs(source, options, typed.substr(0, nameStart), folder);
    if (name.empty() || name == "." || name == "..") failure = {ERROR_ACCESS_DENIED, "It is a folder."};
    if (failure.error != 0) return reportFailure(typed, failure);
    const Result result = writeOutput(folder, name, false, nullptr, make);
    return reportResult("saved", source.typed, folder, result);
}

// The first that the fork has of this type and ID. ERROR_RESOURCE_NAME_NOT_FOUND when it has none.
Failure findResource(ResourceForkReader& reader, const ResourceType& type, int16_t id,
                     ReferenceEntry& found) {
    bool there = false;
    const Failure failure =
        walkResources(reader, [&](const TypeEntry& entry, const std::vector<ReferenceEntry>& all) {
            if (!(entry.type == type)) return true;
            const auto at = std::find_if(all.begin(), all.end(), [&](const ReferenceEntry& reference) {
                return reference.id() == id;
            });
            there = at != all.end();
            if (there) found = *at;
            return !there;
        });
    if (there) return {};
    return failure.error != 0 ? failure : Failure{ERROR_RESOURCE_NAME_NOT_FOUND, "It has no such resource."};
}

// All of the resource's data; in part it would pass for the whole.
Failure readWhole(ResourceForkReader& reader, const ReferenceEntry& reference, tidewell::PageBuffer& data,
                  uint32_t& length) {
    uint32_t wanted = 0;
    if (!reader.ReadDataLength(reference, wanted)) return {tidewell::lastError(), {}};
    length = 0;
    data = reader.ReadData(reference, length);
    if (!data) return {tidewell::lastError(), {}};
    if (length != wanted) return {ERROR_HANDLE_EOF, "The resource is damaged: it ends too early."};
    return {interrupted() ? ERROR_CANCELLED : 0U, {}};
}

Failure hexOf(const tidewell::PageBuffer& data, uint32_t length, std::string& text) {
    size_t textLength = 0;
    const tidewell::PageBuffer dump = tidewell::HexDumpAlloc(data.data(), length, &textLength);
    if (!dump) return {tidewell::lastError(), {}};
    text.assign(reinterpret_cast<const char*>(dump.data()), textLength);
    return {};
}

// The bytes that are wanted of a resource.
Failure readResource(const ForkSource& source, const ResourceType& type, const ResourceOptions& options,
                     std::string& bytes) {
    ResourceForkReader reader;
    Failure failure = openFork(source, reader);
    ReferenceEntry reference;
    if (failure.error == 0) failure = findResource(reader, type, *options.id, reference);
    tidewell::PageBuffer data;
    uint32_t length = 0;
    if (failure.error == 0) failure = readWhole(reader, reference, data, length);
    if (failure.error != 0) return failure;
    if (options.task == ResourceTask::hex) return hexOf(data, length, bytes);
    bytes.assign(reinterpret_cast<const char*>(data.data()), length);
    return {};
}

ErrorCode copyFork(tidewell::ForkBytes& fork, HANDLE file) {
    constexpr DWORD kBlock = 64 * 1024;
    const tidewell::PageBuffer buffer = tidewell::PageBuffer::allocate(kBlock);
    if (!buffer) return ERROR_NOT_ENOUGH_MEMORY;
    uint64_t size = 0;
    ErrorCode error = fork.GetSize(size);
    for (uint64_t position = 0; error == 0 && position < size; position += kBlock) {
        const auto count = static_cast<DWORD>(std::min<uint64_t>(kBlock, size - position));
        if (interrupted()) return ERROR_CANCELLED;
        error = fork.ReadWholeAt(position, buffer.data(), count);
        if (error == 0) error = tidewell::WriteWhole(file, buffer.data(), count);
    }
    return error;
}

}  // namespace

Failure beginOutputs(const ForkSource& source, const Options& options, const std::string& typedFolder,
                     OutputFolder& folder) {
    beginReplacing(options.replace, typedFolder, false);
    protect(source.windows, source.typed, "is the source");
    return findOutputFolder(typedFolder, folder);
}

int exportResource(const ForkSource& source, const Options& options) {
    const std::optional<ResourceType> type = typeOfTyped(options.resources.type);
    if (!type) {
        reportNote("--type takes four characters of the Mac, or 0x and 8 digits");
        return kWrongUse;
    }
    const bool toOutput = options.resources.outputFile.empty();
    if (toOutput && options.resources.task == ResourceTask::raw && isTerminal(Stream::output)) {
        reportNote("a terminal is no place for raw bytes; say -o FILE or --hex");
        return kWrongUse;
    }
    std::string bytes;
    if (const Failure failure = readResource(source, *type, options.resources, bytes); failure.error != 0)
        return reportFailure(source.typed, failure);
    if (toOutput) return printOutput(bytes) ? kAllDone : kSomethingFailed;
    return writeFile(source, options, [&](const char* path) { return makeNewFile(path, bytes); });
}

int exportFork(const ForkSource& source, const Options& options) {
    ResourceForkReader reader;
    if (const Failure failure = openFork(source, reader); failure.error != 0)
        return reportFailure(source.typed, failure);
    // The very bytes that were found to be a fork, whatever the file has become.
    tidewell::ForkBytes bytes = reader.TakeBytes();
    return writeFile(source, options, [&](const char* path) {
        return makeNewFile(path, [&](HANDLE file) { return copyFork(bytes, file); });
    });
}

}  // namespace cli
