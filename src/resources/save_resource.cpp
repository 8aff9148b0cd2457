#include "resources/save_resource.h"

#include "base/file.h"
#include "base/replacement_file.h"
#include "resources/hex_dump.h"
#include "ui/pump_messages.h"

#include <shlobj.h>

namespace tidewell {

namespace {

constexpr DWORD kCopyBlock = 64 * 1024;

ErrorCode writeForm(HANDLE file, const PageBuffer& data, uint32_t length, ResourceForm form) {
    if (form == ResourceForm::binary) return WriteAll(file, data.data(), length);
    size_t textLength = 0;
    const PageBuffer text = HexDumpAlloc(data.data(), length, &textLength);
    return text ? WriteAll(file, text.data(), textLength) : lastError();
}

ErrorCode copyAll(HANDLE source, HANDLE destination, HWND dialog) {
    const PageBuffer block = PageBuffer::allocate(kCopyBlock);
    if (!block) return ERROR_NOT_ENOUGH_MEMORY;
    for (;;) {
        DWORD got = 0;
        if (!ReadFile(source, block.data(), kCopyBlock, &got, nullptr)) return lastError();
        if (got == 0) return 0;
        const ErrorCode error = WriteWhole(destination, block.data(), got);
        if (error != 0) return error;
        PumpMessages(dialog);
    }
}

}  // namespace

ErrorCode SaveResource(ResourceForkReader& reader, const ReferenceEntry& reference, ResourceForm form,
                       const char* path) {
    uint32_t whole = 0;
    if (!reader.ReadDataLength(reference, whole)) return lastError();
    uint32_t length = 0;
    const PageBuffer data = reader.ReadData(reference, length);
    if (!data) return lastError();
    if (length != whole) return ERROR_HANDLE_EOF;

    ReplacementFile file;
    ErrorCode error = file.Create(path);
    if (error == 0) error = writeForm(file.get(), data, length, form);
    return error != 0 ? error : file.Commit();
}

ErrorCode SaveFork(const char* forkPath, HWND dialog, const char* path) {
    OwnedFile fork;
    ErrorCode error = OpenForReading(forkPath, fork);
    ReplacementFile file;
    if (error == 0) error = file.Create(path);
    if (error == 0) error = copyAll(fork.get(), file.get(), dialog);
    if (error == 0) error = file.Commit();
    if (error == 0) SHChangeNotify(SHCNE_CREATE, SHCNF_PATHA, path, nullptr);
    return error;
}

}  // namespace tidewell
