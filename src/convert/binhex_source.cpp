#include "convert/binhex_source.h"

#include "base/file.h"

namespace tidewell {

ErrorCode OpenBinHexSource(const char* path, BinHexSource& source) {
    ErrorCode error = OpenForReading(path, source.file);
    if (error == 0) error = GetSizeOf(source.file.get(), source.size);
    if (error != 0) return error;
    source.memory = PageBuffer::allocate(sizeof(BinHexMemory));
    return source.memory ? 0 : ERROR_NOT_ENOUGH_MEMORY;
}

ErrorCode OpenBinHexForks(const BinHexSource& source, const BinHexExtent& extent, BinHexStream& stream,
                          BinHexHeader& header) {
    if (extent.error != 0) return extent.error;
    const ErrorCode error =
        OpenBinHexText(source.file.get(), source.size, extent, source.blocks(), stream.text);
    return error != 0 ? error : ReadBinHexHeader(stream, header);
}

}  // namespace tidewell
