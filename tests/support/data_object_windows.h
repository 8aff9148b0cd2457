// What the shell hands to its extensions, as a test says.
#ifndef TIDEWELL_TESTS_SUPPORT_DATA_OBJECT_H
#define TIDEWELL_TESTS_SUPPORT_DATA_OBJECT_H

#include <windows.h>
#include <objidl.h>
#include <shlobj.h>

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <utility>
#include <vector>

// A data object that has a list of files, and nothing else. It counts the references and the lists that it
// has given out; both are back when it goes.
class FilesObject final : public IDataObject {
  public:
    explicit FilesObject(const std::vector<std::string>& paths) { setList(paths); }
    explicit FilesObject(const std::vector<std::wstring>& paths) { setList(paths); }
    ~FilesObject() {
        CHECK(references == 0);
        CHECK(lists == 0);
    }

    // The list: a header, then the paths each with its NUL, then one more NUL.
    std::string bytes;
    LONG references = 0;
    LONG lists = 0;
    HRESULT result = S_OK;  // of giving out the list
    DWORD medium = TYMED_HGLOBAL;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
        // What holds the list: its last reference gives the list back.
        *object = nullptr;
        return E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++references); }
    ULONG STDMETHODCALLTYPE Release() override {
        REQUIRE(references > 0);
        return static_cast<ULONG>(--references);
    }

    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* format, STGMEDIUM* list) override {
        CHECK(format->cfFormat == CF_HDROP);
        CHECK(format->ptd == nullptr);
        CHECK(format->dwAspect == DVASPECT_CONTENT);
        CHECK(format->lindex == -1);
        CHECK(format->tymed == TYMED_HGLOBAL);
        list->tymed = medium;
        list->hGlobal = nullptr;
        list->pUnkForRelease = &keeper_;
        if (FAILED(result)) return result;
        ++lists;
        if (medium == TYMED_HGLOBAL) list->hGlobal = makeList();
        return result;
    }

    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

  private:
    template <typename Text>
    void setList(const std::vector<Text>& paths) {
        constexpr size_t kUnit = sizeof(typename Text::value_type);
        const DROPFILES header = {sizeof(DROPFILES), {}, FALSE, kUnit == sizeof(WCHAR)};
        bytes.assign(reinterpret_cast<const char*>(&header), sizeof header);
        for (const Text& path : paths)
            bytes.append(reinterpret_cast<const char*>(path.c_str()), (path.size() + 1) * kUnit);
        bytes.append(kUnit, '\0');
    }

    // Keeps the lists that were given out: each is freed when it is released.
    struct Keeper final : IUnknown {
        explicit Keeper(FilesObject& of) : object(of) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
        ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
        ULONG STDMETHODCALLTYPE Release() override {
            REQUIRE(object.lists > 0);
            GlobalFree(std::exchange(object.list_, nullptr));
            return static_cast<ULONG>(--object.lists);
        }
        FilesObject& object;
    };

    HGLOBAL makeList() {
        const SIZE_T size = bytes.size();
        list_ = GlobalAlloc(GMEM_MOVEABLE, size);
        if (size != 0) std::memcpy(GlobalLock(list_), bytes.data(), size);
        GlobalUnlock(list_);
        return list_;
    }

    HGLOBAL list_ = nullptr;
    Keeper keeper_{*this};
};

#endif
