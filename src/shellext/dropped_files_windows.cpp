#include "shellext/dropped_files.h"

#include "base/path.h"

#include <shlobj.h>

#include <cstring>

namespace tidewell {

namespace {

// What a data object gives, for as long as this lives.
class Medium {
  public:
    explicit Medium(IDataObject* object) {
        FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
        given_ = object && SUCCEEDED(object->GetData(&format, &medium_));
        if (given_ && medium_.tymed == TYMED_HGLOBAL) bytes_ = GlobalLock(medium_.hGlobal);
    }
    ~Medium() {
        if (bytes_) GlobalUnlock(medium_.hGlobal);
        if (given_) ReleaseStgMedium(&medium_);
    }
    Medium(const Medium&) = delete;
    Medium& operator=(const Medium&) = delete;

    const BYTE* bytes() const { return static_cast<const BYTE*>(bytes_); }
    size_t size() const { return bytes_ ? GlobalSize(medium_.hGlobal) : 0; }

  private:
    STGMEDIUM medium_ = {};
    bool given_ = false;
    void* bytes_ = nullptr;
};

// Not one of the system's best fits for characters that the code page lacks: it could be another file's path.
bool convert(const WCHAR* wide, char* path) {
    WCHAR back[kPathCapacity];
    return WideCharToMultiByte(CP_ACP, 0, wide, -1, path, kPathCapacity, nullptr, nullptr) != 0 &&
           MultiByteToWideChar(CP_ACP, 0, path, -1, back, kPathCapacity) != 0 &&
           std::memcmp(wide, back, (static_cast<size_t>(lstrlenW(back)) + 1) * sizeof *back) == 0;
}

// On NT every file of a disk may have a short path, and that is in every code page.
bool shorten(const WCHAR* wide, WCHAR* shorter) {
    const auto getShortPath = reinterpret_cast<decltype(&GetShortPathNameW)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "GetShortPathNameW")));
    if (!getShortPath) return false;
    const DWORD length = getShortPath(wide, shorter, kPathCapacity);
    return length != 0 && length < kPathCapacity;
}

bool toPath(const WCHAR* text, size_t /*length*/, char* path) {
    WCHAR shorter[kPathCapacity];
    return convert(text, path) || (shorten(text, shorter) && convert(shorter, path));
}

bool toPath(const char* text, size_t length, char* path) {
    if (length >= kPathCapacity) return false;
    std::memcpy(path, text, length + 1);
    return true;
}

// Each path has its NUL, and the last is followed by one more.
template <typename Unit>
bool addPaths(const Unit* text, size_t left, PathList& lastFirst) {
    for (;;) {
        size_t length = 0;
        while (length < left && text[length] != 0)
            ++length;
        if (length == left) return false;
        if (length == 0) return true;
        char path[kPathCapacity];
        if (!toPath(text, length, path) || !lastFirst.Add(path)) return false;
        text += length + 1;
        left -= length + 1;
    }
}

}  // namespace

// The list is read here, and not by the system, which walks it from its start for every file, cuts what is
// too long, and knows nothing of the list's end.
bool AddDroppedFiles(IDataObject* object, PathList& lastFirst) {
    const Medium medium(object);
    DROPFILES header;
    if (medium.size() < sizeof header) return false;
    std::memcpy(&header, medium.bytes(), sizeof header);
    if (header.pFiles < sizeof header || header.pFiles > medium.size()) return false;
    const BYTE* const text = medium.bytes() + header.pFiles;
    const size_t left = medium.size() - header.pFiles;
    if (header.fWide) return addPaths(reinterpret_cast<const WCHAR*>(text), left / sizeof(WCHAR), lastFirst);
    return addPaths(reinterpret_cast<const char*>(text), left, lastFirst);
}

}  // namespace tidewell
