// What the shell hands to its extensions, as a test says.
#ifndef TIDEWELL_TESTS_SUPPORT_DATA_OBJECT_H
#define TIDEWELL_TESTS_SUPPORT_DATA_OBJECT_H

#include <windows.h>
#include <objidl.h>
#include <shlobj.h>

#include <doctest/doctest.h>

#include <cstring>
#include <string>
#include <vector>

// A data object that has a list of files, and nothing else. It counts the references and the lists that it
// has given out; both are back when it goes.
class FilesObject final : public IDataObject {
  public:
    explicit FilesObject(std::vector<std::string> paths, bool wide = false)
        : paths_(std::move(paths)), wide_(wide) {}
    ~FilesObject() {
        CHECK(references == 0);
        CHECK(lists == 0);
    }

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
        if (FAILED(result) || medium != TYMED_HGLOBAL) return result;
        list->hGlobal = makeList();
        ++lists;
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
    // Keeps the lists that were given out: each is freed when it is released.
    struct Keeper final : IUnknown {
        explicit Keeper(FilesObject& of) : object(of) {}
        HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }
        ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
        ULONG STDMETHODCALLTYPE Release() override {
            REQUIRE(object.lists > 0);
            GlobalFree(object.list_);
            return static_cast<ULONG>(--object.lists);
        }
        FilesObject& object;
    };

    // A header, then the paths each with its NUL, then one more NUL.
    HGLOBAL makeList() {
        std::vector<BYTE> bytes(sizeof(DROPFILES));
        const auto add = [&](const void* unit, size_t size) {
            const auto* const first = static_cast<const BYTE*>(unit);
            bytes.insert(bytes.end(), first, first + size);
        };
        for (const std::string& path : paths_) {
            if (wide_) {
                const std::wstring text(path.begin(), path.end());
                add(text.c_str(), (text.size() + 1) * sizeof(WCHAR));
            } else {
                add(path.c_str(), path.size() + 1);
            }
        }
        add(L"", sizeof(WCHAR));
        list_ = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
        auto* const drop = static_cast<DROPFILES*>(GlobalLock(list_));
        std::memcpy(drop, bytes.data(), bytes.size());
        *drop = {sizeof(DROPFILES), {}, FALSE, wide_ ? TRUE : FALSE};
        GlobalUnlock(list_);
        return list_;
    }

    const std::vector<std::string> paths_;
    const bool wide_;
    HGLOBAL list_ = nullptr;
    Keeper keeper_{*this};
};

#endif
