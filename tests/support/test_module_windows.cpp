#include "test_module_windows.h"

#include <doctest/doctest.h>

std::string besideProgram(const char* name) {
    char path[MAX_PATH];
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string program = path;
    return program.substr(0, program.rfind('\\') + 1) + name;
}

LoadedLibrary::LoadedLibrary(const char* name) : module_(LoadLibraryA(besideProgram(name).c_str())) {
    REQUIRE_MESSAGE(module_ != nullptr, name << ": error " << GetLastError());
}

std::map<DWORD, std::string> messagesOf(HMODULE module) {
    HRSRC const found = FindResourceA(module, MAKEINTRESOURCEA(1), RT_MESSAGETABLE);
    REQUIRE(found != nullptr);
    const auto* const table = static_cast<const BYTE*>(LockResource(LoadResource(module, found)));
    const auto* const data = reinterpret_cast<const MESSAGE_RESOURCE_DATA*>(table);
    std::map<DWORD, std::string> messages;
    for (DWORD i = 0; i < data->NumberOfBlocks; ++i) {
        const MESSAGE_RESOURCE_BLOCK& block = data->Blocks[i];
        const BYTE* place = table + block.OffsetToEntries;
        for (DWORD id = block.LowId; id <= block.HighId; ++id) {
            const auto* const entry = reinterpret_cast<const MESSAGE_RESOURCE_ENTRY*>(place);
            const auto* const text = reinterpret_cast<const WCHAR*>(entry->Text);
            for (const WCHAR* c = text; *c != 0; ++c)
                messages[id] += static_cast<char>(*c);
            place += entry->Length;
        }
    }
    return messages;
}
