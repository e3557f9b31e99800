#include "shared/OptionalModule/IModuleLoader.h"

#include <windows.h>

#include <string>

// The linker's name for the start of the module that this code is part of.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace
{
std::wstring FolderOfThisModule()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;)
    {
        const DWORD length = GetModuleFileNameW(reinterpret_cast<HMODULE>(&__ImageBase), path.data(),
                                                static_cast<DWORD>(path.size()));
        if (length == 0)
        {
            return {};
        }
        if (length < path.size())
        {
            path.resize(length);
            break;
        }
        path.resize(path.size() * 2);
    }
    const std::size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash + 1);
}

class CSystemModuleLoader final : public IModuleLoader
{
public:
    [[nodiscard]] Module Load(const char* name) override
    {
        constexpr DWORD hostFolders = LOAD_LIBRARY_SEARCH_APPLICATION_DIR | LOAD_LIBRARY_SEARCH_USER_DIRS |
                                      LOAD_LIBRARY_SEARCH_SYSTEM32;
        if (const HMODULE module = LoadLibraryExA(name, nullptr, hostFolders))
        {
            return module;
        }
        const std::wstring folder = FolderOfThisModule();
        if (folder.empty())
        {
            return nullptr;
        }
        const std::wstring path = folder + std::wstring(name, name + std::char_traits<char>::length(name));
        return LoadLibraryExW(path.c_str(), nullptr, hostFolders | LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR);
    }

    [[nodiscard]] EntryPoint Resolve(Module module, const char* name) override
    {
        return reinterpret_cast<EntryPoint>(GetProcAddress(static_cast<HMODULE>(module), name));
    }
};
} // namespace

IModuleLoader& GetSystemModuleLoader()
{
    static CSystemModuleLoader loader;
    return loader;
}
