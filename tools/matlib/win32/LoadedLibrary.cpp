#include "MaterialLibrary/MaterialLibrary.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/ILibraryHost.h"
#include "tools/matlib/win32/messages/MessageSink.h"

#include <windows.h>

#include <filesystem>
#include <utility>

namespace
{
namespace fs = std::filesystem;

constexpr wchar_t messageModuleFolder[] = L"matlib-modules";
constexpr wchar_t messageModuleName[] = L"MsgHandler.dll";
constexpr wchar_t libraryName[] = L"MaterialLibrary.dll";

std::string DescribeLastError()
{
    return " (system error " + std::to_string(GetLastError()) + ")";
}

fs::path FindProgramFolder()
{
    constexpr DWORD longestPath = 32768;
    std::wstring path(longestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), longestPath));
    return fs::path(path).parent_path();
}

// The absolute path of one in the system's code page.
fs::path MakeAbsolute(const std::string& path)
{
    std::wstring wide(path.size() + 1, L'\0');
    const int length =
        MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(length > 0 ? length - 1 : 0));
    return fs::absolute(wide);
}

class CModule
{
public:
    // `path` is absolute, `shownPath` is what messages call it.
    CModule(const fs::path& path, std::string shownPath)
        : name(std::move(shownPath)),
          module(LoadLibraryExW(path.c_str(), nullptr,
                                LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS))
    {
        if (module == nullptr)
        {
            throw CFailure("cannot load " + name + DescribeLastError());
        }
    }
    ~CModule() { FreeLibrary(module); }
    CModule(const CModule&) = delete;
    CModule& operator=(const CModule&) = delete;

    template <class Function>
    [[nodiscard]] Function Resolve(const char* entryPoint) const
    {
        const auto function = reinterpret_cast<void (*)()>(GetProcAddress(module, entryPoint));
        if (function == nullptr)
        {
            throw CFailure(name + " has no entry point " + entryPoint);
        }
        return reinterpret_cast<Function>(function);
    }

private:
    std::string name;
    HMODULE module;
};

// The module through which the library shows its messages. It must be there before the library looks for
// it: without it, the library would open a box.
class CMessageModule
{
public:
    CMessageModule()
        : folder(FindProgramFolder() / messageModuleFolder),
          module(folder / messageModuleName,
                 "matlib-modules\\MsgHandler.dll, which belongs beside the program"),
          setSink(module.Resolve<SetMessageSinkFunction>("SetMessageSink"))
    {
        if (AddDllDirectory(folder.c_str()) == nullptr)
        {
            throw CFailure("cannot use the folder matlib-modules" + DescribeLastError());
        }
        setSink(&Receive, &messages);
    }
    ~CMessageModule() { Leave(); }
    CMessageModule(const CMessageModule&) = delete;
    CMessageModule& operator=(const CMessageModule&) = delete;

    [[nodiscard]] std::vector<std::string> Take() { return std::exchange(messages, {}); }

    // The library goes on without the module.
    void Leave() const { setSink(nullptr, nullptr); }

private:
    static void Receive(void* context, const char* text)
    {
        static_cast<std::vector<std::string>*>(context)->emplace_back(text);
    }

    fs::path folder;
    CModule module;
    SetMessageSinkFunction setSink;
    std::vector<std::string> messages;
};

class CLoadedLibrary final : public ILibraryHost
{
public:
    CLoadedLibrary(const fs::path& path, const std::string& shownPath)
        : module(path, shownPath), create(module.Resolve<MLCREATEMATERIALLIBRARY>("CreateMaterialLibrary")),
          free(module.Resolve<MLFREEMATERIALLIBRARY>("FreeMaterialLibrary"))
    {
    }

    [[nodiscard]] IMatLib* Create(const char* fileList) override { return create(fileList); }
    void Free(IMatLib* library) override { free(library); }
    [[nodiscard]] std::vector<std::string> TakeMessages() override { return messages.Take(); }
    void ShowMessagesInBoxes() override { messages.Leave(); }

private:
    CMessageModule messages;
    CModule module;
    MLCREATEMATERIALLIBRARY create;
    MLFREEMATERIALLIBRARY free;
};
} // namespace

std::unique_ptr<ILibraryHost> OpenLibraryHost(const std::string& dllPath)
{
    if (dllPath.empty())
    {
        return std::make_unique<CLoadedLibrary>(FindProgramFolder() / libraryName,
                                                "MaterialLibrary.dll, which belongs beside the program");
    }
    return std::make_unique<CLoadedLibrary>(MakeAbsolute(dllPath), dllPath);
}
