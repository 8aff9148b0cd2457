// The library's objects as COM sees them.
#include "module/module_state.h"
#include "support/data_object_windows.h"
#include "support/test_module_windows.h"
#include "support/test_pc.h"
#include "tidewell.h"
#include "ui/shell_folders.h"

#include <doctest/doctest.h>

#include <map>

using namespace tidewell;

namespace {

CLSID shellClass(unsigned number) {
    CLSID id = {0x4DD19100, 0xACE2, 0x11CF, {0xBB, 0xF2, 0x44, 0x45, 0x53, 0x54, 0, 0}};
    id.Data1 |= number;
    return id;
}

const std::map<std::string, IID> kInterfaces = {{"IUnknown", __uuidof(IUnknown)},
                                                {"IClassFactory", __uuidof(IClassFactory)},
                                                {"IShellExtInit", __uuidof(IShellExtInit)},
                                                {"IContextMenu", __uuidof(IContextMenu)},
                                                {"IShellPropSheetExt", __uuidof(IShellPropSheetExt)},
                                                {"IContextMenu2", __uuidof(IContextMenu2)},
                                                {"IDataObject", __uuidof(IDataObject)}};

// Asks for every interface, from every one that there is, and tells which there are. Each answer is the same
// from everywhere, and adds one reference; what is not there gives null.
std::string interfacesOf(IUnknown* object) {
    std::map<std::string, IUnknown*> answers;
    std::string names;
    std::vector<IUnknown*> known = {object};
    for (size_t from = 0; from < known.size(); ++from) {
        for (const auto& [name, iid] : kInterfaces) {
            const ULONG before = object->AddRef();
            auto* answer = reinterpret_cast<IUnknown*>(1);
            const HRESULT result = known[from]->QueryInterface(iid, reinterpret_cast<void**>(&answer));
            CHECK((result == S_OK || result == E_NOINTERFACE));
            CHECK((answer != nullptr) == (result == S_OK));
            CHECK(object->Release() == before - (answer ? 0 : 1));
            if (answer) CHECK(answer->Release() == before - 1);
            const auto [place, fresh] = answers.emplace(name, answer);
            CHECK_MESSAGE(place->second == answer, name);
            if (!fresh || !answer) continue;
            names += (names.empty() ? "" : " ") + name;
            known.push_back(answer);
        }
        CHECK(known[from]->QueryInterface(__uuidof(IUnknown), nullptr) == E_POINTER);
    }
    return names;
}

template <typename Interface>
Interface* makeObject(unsigned number) {
    IClassFactory* factory = nullptr;
    void* object = nullptr;
    REQUIRE(DllGetClassObject(shellClass(number), __uuidof(IClassFactory),
                              reinterpret_cast<void**>(&factory)) == S_OK);
    CHECK(factory->CreateInstance(nullptr, __uuidof(Interface), &object) == S_OK);
    factory->Release();
    return static_cast<Interface*>(object);
}

}  // namespace

TEST_CASE("Every object has its interfaces, from each of them, and its references keep the library") {
    TestPc pc;
    const std::pair<unsigned, std::string> rows[] = {
        {0x80, "IShellExtInit IShellPropSheetExt IUnknown"},
        {0x81, "IContextMenu IShellExtInit IUnknown"},
        {0x82, "IContextMenu IShellExtInit IUnknown"},
    };
    for (const auto& [number, interfaces] : rows) {
        CAPTURE(number);
        IClassFactory* factory = nullptr;
        CHECK(DllGetClassObject(shellClass(number), __uuidof(IClassFactory),
                                reinterpret_cast<void**>(&factory)) == S_OK);
        CHECK(ModuleLockCount == 1);
        CHECK(interfacesOf(factory) == "IClassFactory IUnknown");

        IUnknown* object = nullptr;
        CHECK(factory->CreateInstance(nullptr, __uuidof(IUnknown), reinterpret_cast<void**>(&object)) ==
              S_OK);
        CHECK(interfacesOf(object) == interfaces);
        CHECK(object->AddRef() == 2);
        CHECK(ModuleLockCount == 3);
        CHECK(object->Release() == 1);

        IUnknown* outer = object;
        CHECK(factory->CreateInstance(outer, __uuidof(IUnknown), reinterpret_cast<void**>(&outer)) ==
              CLASS_E_NOAGGREGATION);
        CHECK(outer == nullptr);
        outer = object;
        CHECK(factory->CreateInstance(nullptr, __uuidof(IDataObject), reinterpret_cast<void**>(&outer)) ==
              E_NOINTERFACE);
        CHECK(outer == nullptr);
        CHECK(factory->CreateInstance(nullptr, __uuidof(IUnknown), nullptr) == E_POINTER);
        CHECK(object->Release() == 0);

        CHECK(factory->LockServer(TRUE) == S_OK);
        CHECK(factory->Release() == 0);
        CHECK(DllCanUnloadNow() == S_FALSE);
        REQUIRE(DllGetClassObject(shellClass(number), __uuidof(IClassFactory),
                                  reinterpret_cast<void**>(&factory)) == S_OK);
        CHECK(factory->LockServer(FALSE) == S_OK);
        factory->Release();
        CHECK(DllCanUnloadNow() == S_OK);
        CHECK(pc.nothingHeld());
    }
}

TEST_CASE("Other classes, other interfaces and no memory are told, and leave nothing") {
    TestPc pc;
    void* object = &pc;
    for (const unsigned number : {0x7Fu, 0x83u, 0x84u}) {
        object = &pc;
        CHECK(DllGetClassObject(shellClass(number), __uuidof(IUnknown), &object) ==
              CLASS_E_CLASSNOTAVAILABLE);
        CHECK(object == nullptr);
    }
    object = &pc;
    CHECK(DllGetClassObject(shellClass(0x82), __uuidof(IContextMenu), &object) == E_NOINTERFACE);
    CHECK(object == nullptr);
    CHECK(DllGetClassObject(shellClass(0x82), __uuidof(IUnknown), nullptr) == E_POINTER);

    pc.faults().failMemory(1);
    object = &pc;
    CHECK(DllGetClassObject(shellClass(0x82), __uuidof(IUnknown), &object) == E_OUTOFMEMORY);
    CHECK(object == nullptr);
    pc.faults().clear();
    for (const unsigned number : {0x80u, 0x81u, 0x82u}) {
        IClassFactory* factory = nullptr;
        DllGetClassObject(shellClass(number), __uuidof(IClassFactory), reinterpret_cast<void**>(&factory));
        REQUIRE(factory != nullptr);
        pc.faults().failMemory(1);
        object = &pc;
        CHECK(factory->CreateInstance(nullptr, __uuidof(IUnknown), &object) == E_OUTOFMEMORY);
        CHECK(object == nullptr);
        pc.faults().clear();
        factory->Release();
    }
    CHECK(ModuleLockCount == 0);
    CHECK(pc.nothingHeld());
}

TEST_CASE("What an extension is given it keeps until it is given something else, or goes") {
    TestPc pc;
    ItemList windows;
    REQUIRE(SUCCEEDED(PathToItemList(nullptr, "C:\\windows", windows)));
    for (const unsigned number : {0x80u, 0x81u, 0x82u}) {
        FilesObject first(std::vector<std::string>{}), second(std::vector<std::string>{});
        auto* const extension = makeObject<IShellExtInit>(number);
        CHECK(extension->Initialize(windows.get(), &first, nullptr) == S_OK);
        CHECK(first.references == 1);
        CHECK(extension->Initialize(nullptr, &second, nullptr) == S_OK);
        CHECK(first.references == 0);
        CHECK(second.references == 1);
        CHECK(extension->Initialize(windows.get(), &second, nullptr) == S_OK);
        CHECK(second.references == 1);
        CHECK(pc.memory().size() == 2);
        pc.faults().failMemory(1);
        CHECK(extension->Initialize(windows.get(), &first, nullptr) == E_OUTOFMEMORY);
        pc.faults().clear();
        CHECK(second.references == 0);
        CHECK(first.references == 1);
        CHECK(pc.memory().size() == 1);
        CHECK(extension->Initialize(windows.get(), nullptr, nullptr) == S_OK);
        CHECK(first.references == 0);
        CHECK(extension->Initialize(nullptr, &first, nullptr) == S_OK);
        CHECK(extension->Release() == 0);
        CHECK(first.references == 0);
        CHECK(pc.nothingHeld());
    }
}

TEST_CASE("The drive's commands and the page, which are still to come, add nothing") {
    TestPc pc;
    auto* const drive = makeObject<IContextMenu>(0x81);
    CHECK(drive->QueryContextMenu(nullptr, 0, 1, 100, 0) == S_OK);
    CHECK(drive->InvokeCommand(nullptr) == E_FAIL);
    char text[2] = "x";
    CHECK(drive->GetCommandString(3, GCS_HELPTEXTA, nullptr, text, sizeof text) == S_OK);
    CHECK(drive->GetCommandString(4, GCS_HELPTEXTA, nullptr, text, sizeof text) == E_INVALIDARG);
    CHECK(text == std::string("x"));
    drive->Release();
    auto* const page = makeObject<IShellPropSheetExt>(0x80);
    CHECK(page->AddPages(nullptr, 0) == S_OK);
    CHECK(page->ReplacePage(0, nullptr, 0) == E_FAIL);
    page->Release();
    CHECK(pc.nothingHeld());
}
