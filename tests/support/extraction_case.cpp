#include "support/extraction_case.h"

#include "convert/create_macbinary.h"
#include "ui/progress.h"

#include <doctest/doctest.h>

using namespace tidewell;

Bytes Conversion::archiveOf(const MacFile& file) const {
    return isBinHex() ? binHexFile(BinHexFile{file}) : macBinaryFile({file});
}

void Conversion::writeSource(const MacFile& file) const {
    if (packs()) return writeMacFile(source, file);
    writeFile(source, archiveOf(file));
}

ErrorCode Conversion::run(ProgressDialog* progress, DWORD flags) const {
    if (packs()) return CreateMacBinaryFile(nullptr, source.c_str(), output.c_str(), &progress);
    const std::string folder = output.substr(0, output.rfind('\\') + 1);
    return ExtractOriginalMacFile(nullptr, source.c_str(), folder.c_str(), &flags, &progress);
}

ErrorCode Conversion::runShown(DWORD flags) const {
    ProgressDialog* progress = ProgressCreate(GetModuleHandleA(nullptr), "", nullptr, FALSE);
    const uint64_t before = 1000;
    const uint64_t total = 1000000;
    ProgressSetTotal(progress, &total);
    ProgressSetDone(progress, &before);
    scriptedUser.serves = 0;
    scriptedUser.done.clear();
    const ErrorCode error = run(progress, flags);
    CHECK(progress->pauses == 0);
    scriptedUser.done.push_back(progress->done);
    ProgressDestroy(progress);
    return error;
}

ErrorCode extractBytes(const Bytes& source, const char* extension, const std::string& folder) {
    const Conversion conversion = {std::string("F:\\in") + extension, folder + "\\Test"};
    writeFile(conversion.source, source);
    const ErrorCode error = conversion.run();
    CHECK(readFile(conversion.source) == source);
    return error;
}

Bytes cutTo(const Bytes& whole, size_t size) {
    return Bytes(whole.begin(), whole.begin() + static_cast<int>(size));
}
