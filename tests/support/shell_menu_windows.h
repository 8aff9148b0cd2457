// The shell's side of the library's extensions: how Explorer finds them, what it hands to them, and its menu.
#ifndef TIDEWELL_TESTS_SUPPORT_SHELL_MENU_H
#define TIDEWELL_TESTS_SUPPORT_SHELL_MENU_H

#include <windows.h>
#include <shlobj.h>

#include <memory>
#include <string>
#include <vector>

struct ShellReleaser {
    void operator()(IUnknown* object) const { object->Release(); }
    void operator()(ITEMIDLIST* list) const { CoTaskMemFree(list); }
};
template <typename Object>
using Held = std::unique_ptr<Object, ShellReleaser>;

// What `ask` gives for an identifier and the place for an interface; null for none.
template <typename Interface, typename Ask>
Held<Interface> hold(Ask ask) {
    void* object = nullptr;
    const HRESULT result = ask(__uuidof(Interface), &object);
    return Held<Interface>(SUCCEEDED(result) ? static_cast<Interface*>(object) : nullptr);
}

template <typename Interface>
Held<Interface> interfaceOf(IUnknown* object) {
    return hold<Interface>([&](REFIID iid, void** out) { return object->QueryInterface(iid, out); });
}

template <typename Interface>
Held<Interface> createObject(const CLSID& id) {
    return hold<Interface>([&](REFIID iid, void** out) {
        return CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, iid, out);
    });
}

// A value of a key; empty for none.
inline std::string registryText(HKEY root, const std::string& key, const char* name) {
    HKEY opened = nullptr;
    char text[MAX_PATH] = "";
    DWORD size = sizeof text - 1;
    if (RegOpenKeyExA(root, key.c_str(), 0, KEY_READ, &opened) != 0) return "";
    RegQueryValueExA(opened, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text), &size);
    RegCloseKey(opened);
    return text;
}

inline std::string textOf(const CLSID& id) {
    char text[40] = "";
    OLECHAR wide[40];
    WideCharToMultiByte(CP_ACP, 0, wide, StringFromGUID2(id, wide, 40), text, sizeof text, nullptr, nullptr);
    return text;
}

inline std::string serverOf(const CLSID& id, const char* value = nullptr) {
    return registryText(HKEY_CLASSES_ROOT, "CLSID\\" + textOf(id) + "\\InprocServer32", value);
}

using Classes = std::vector<std::string>;
inline const Classes kFileClasses = {"*"};
inline const Classes kFolderClasses = {"Directory", "Folder"};
inline const Classes kDriveClasses = {"Drive", "Folder"};

inline bool isClass(const std::string& text, CLSID& id) {
    return SUCCEEDED(CLSIDFromString(std::wstring(text.begin(), text.end()).data(), &id));
}

// The library's handlers of a thing of these classes, as often as they are there: "ContextMenuHandlers",
// "DragDropHandlers" or "PropertySheetHandlers". A handler's class is the value of its key, or the key's
// name.
inline std::vector<CLSID> handlersOf(const Classes& classes, const std::string& list) {
    std::vector<CLSID> handlers;
    for (const std::string& itemClass : classes) {
        const std::string path = itemClass + "\\shellex\\" + list;
        HKEY key = nullptr;
        if (RegOpenKeyExA(HKEY_CLASSES_ROOT, path.c_str(), 0, KEY_READ, &key) != 0) continue;
        char name[MAX_PATH];
        for (DWORD i = 0; RegEnumKeyA(key, i, name, sizeof name) == 0; ++i) {
            CLSID id;
            const std::string value = registryText(HKEY_CLASSES_ROOT, path + '\\' + name, nullptr);
            if (!isClass(value, id) && !isClass(name, id)) continue;
            if ((id.Data1 & ~0xFU) == 0x4DD19180) handlers.push_back(id);
        }
        RegCloseKey(key);
    }
    return handlers;
}

inline Held<ITEMIDLIST> listOf(IShellFolder* folder, std::wstring name) {
    ITEMIDLIST* list = nullptr;
    folder->ParseDisplayName(nullptr, nullptr, name.data(), nullptr, &list, nullptr);
    return Held<ITEMIDLIST>(list);
}

inline Held<IShellFolder> desktopFolder() {
    return hold<IShellFolder>(
        [](REFIID, void** out) { return SHGetDesktopFolder(reinterpret_cast<IShellFolder**>(out)); });
}

// Files of a folder as the shell hands them over; null when it cannot.
inline Held<IDataObject> selectFiles(const std::wstring& folder, const std::vector<std::wstring>& names) {
    const auto desktop = desktopFolder();
    const auto folderList = listOf(desktop.get(), folder);
    if (!folderList) return nullptr;
    const auto parent = hold<IShellFolder>(
        [&](REFIID iid, void** out) { return desktop->BindToObject(folderList.get(), nullptr, iid, out); });
    std::vector<Held<ITEMIDLIST>> lists;
    std::vector<const ITEMIDLIST*> items;
    for (const std::wstring& name : names) {
        lists.push_back(listOf(parent.get(), name));
        if (!lists.back()) return nullptr;
        items.push_back(lists.back().get());
    }
    return hold<IDataObject>([&](REFIID iid, void** out) {
        return parent->GetUIObjectOf(nullptr, static_cast<UINT>(items.size()), items.data(), iid, nullptr,
                                     out);
    });
}

constexpr char kMenus[] = "ContextMenuHandlers", kDrags[] = "DragDropHandlers",
               kSheets[] = "PropertySheetHandlers";

// What the setup program registers: one handler for each list of each kind of thing.
struct Registration {
    const Classes& classes;
    const char* list;
    DWORD number;  // the class, by its identifier's last byte of the first part
    IID iid;
};
inline const Registration kRegistrations[] = {
    {kFileClasses, kMenus, 0x82, IID_IContextMenu},
    {kFileClasses, kSheets, 0x80, IID_IShellPropSheetExt},
    {kFolderClasses, kMenus, 0x82, IID_IContextMenu},
    {kFolderClasses, kDrags, 0x82, IID_IContextMenu},
    {kFolderClasses, kSheets, 0x80, IID_IShellPropSheetExt},
    {kDriveClasses, kMenus, 0x81, IID_IContextMenu},
    {kDriveClasses, kDrags, 0x82, IID_IContextMenu},
    {kDriveClasses, kSheets, 0x80, IID_IShellPropSheetExt},
};

// The popup menu of files: two items of the shell's own, and between them what the handlers add.
class ShellMenu {
  public:
    // `folder`: where the files were dragged; null for their own menu. `library`: makes the objects without
    // COM, when it is not null.
    explicit ShellMenu(IDataObject* files, const ITEMIDLIST* folder = nullptr,
                       const Classes& classes = kFileClasses, HMODULE library = nullptr) {
        for (const char* const item : {"&Open", "P&roperties"})
            AppendMenuA(menu_, MF_STRING, 1, item);
        for (const CLSID& id : handlersOf(folder ? kFolderClasses : classes, folder ? kDrags : kMenus))
            addHandler(id, folder, files, library);
    }
    ~ShellMenu() { DestroyMenu(menu_); }
    ShellMenu(const ShellMenu&) = delete;
    ShellMenu& operator=(const ShellMenu&) = delete;

    HMENU handle() const { return menu_; }
    IContextMenu* handler() const { return handlers_.empty() ? nullptr : handlers_.back().get(); }

    // Each with its number: "0 View Mac Resources...|(1 ...)", in parentheses what cannot be chosen; "?" for
    // a number that its handler has not asked for.
    std::string items() const {
        std::string texts;
        for (int i = 1; i + 1 < GetMenuItemCount(menu_); ++i) {
            const auto at = static_cast<UINT>(i);
            char text[100] = "";
            GetMenuStringA(menu_, at, text, sizeof text, MF_BYPOSITION);
            const UINT number = GetMenuItemID(menu_, i);
            std::string item = (number < next_ ? std::to_string(number - kFirst) : "?") + ' ' + text;
            if (GetMenuState(menu_, at, MF_BYPOSITION) != 0) item = '(' + item + ')';
            texts += (texts.empty() ? "" : "|") + item;
        }
        return texts;
    }

    HRESULT invoke(UINT command, HWND owner) const {
        CMINVOKECOMMANDINFO invocation = {};
        invocation.cbSize = sizeof invocation;
        invocation.hwnd = owner;
        invocation.nShow = SW_SHOWNORMAL;
        invocation.lpVerb = MAKEINTRESOURCEA(command);
        return handler()->InvokeCommand(&invocation);
    }

  private:
    static constexpr UINT kFirst = 0x100;

    static Held<IShellExtInit> make(const CLSID& id, HMODULE library) {
        if (!library) return createObject<IShellExtInit>(id);
        return hold<IShellExtInit>([&](REFIID iid, void** out) {
            const auto getClass = reinterpret_cast<LPFNGETCLASSOBJECT>(
                reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
            const auto factory = hold<IClassFactory>(
                [&](REFIID factoryId, void** made) { return getClass(id, factoryId, made); });
            return factory ? factory->CreateInstance(nullptr, iid, out) : E_FAIL;
        });
    }

    void addHandler(const CLSID& id, const ITEMIDLIST* folder, IDataObject* files, HMODULE library) {
        const auto extension = make(id, library);
        if (!extension || FAILED(extension->Initialize(folder, files, nullptr))) return;
        handlers_.push_back(interfaceOf<IContextMenu>(extension.get()));
        const HRESULT used = handlers_.back()->QueryContextMenu(menu_, 1, next_, 0x7FFF, CMF_NORMAL);
        if (SUCCEEDED(used)) next_ += static_cast<UINT>(HRESULT_CODE(used));
    }

    HMENU const menu_ = CreatePopupMenu();
    UINT next_ = kFirst;
    std::vector<Held<IContextMenu>> handlers_;
};

#endif
