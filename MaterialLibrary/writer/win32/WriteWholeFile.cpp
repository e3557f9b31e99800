#include "writer/WriteWholeFile.h"

#include <windows.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <string>
#include <type_traits>

namespace
{
struct CloseFileHandle
{
    using pointer = HANDLE;
    void operator()(HANDLE file) const noexcept { CloseHandle(file); }
};
using FileHandle = std::unique_ptr<HANDLE, CloseFileHandle>;

std::string ToUtf8(const std::wstring& wide)
{
    const int length = static_cast<int>(wide.size());
    std::string text(wide.size() * 3, '\0');
    text.resize(static_cast<std::size_t>(WideCharToMultiByte(
        CP_UTF8, 0, wide.data(), length, text.data(), static_cast<int>(text.size()), nullptr, nullptr)));
    return text;
}

std::string DescribeError(DWORD error)
{
    std::wstring text(1024, L'\0');
    constexpr DWORD flags =
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    text.resize(
        FormatMessageW(flags, nullptr, error, 0, text.data(), static_cast<DWORD>(text.size()), nullptr));
    text.erase(text.find_last_not_of(L' ') + 1);
    return ToUtf8(text);
}

// What one attempt to write needs; it takes away what is unfinished.
class CReplacement
{
public:
    CReplacement(const char* filePath, ExistingFile existingFile) : path(filePath), existing(existingFile)
    {
        FindTarget();
    }

    ~CReplacement()
    {
        file.reset();
        if (!temporary.empty())
        {
            DeleteFileW(temporary.c_str());
        }
    }

    CReplacement(const CReplacement&) = delete;
    CReplacement& operator=(const CReplacement&) = delete;

    void Write(std::string_view bytes)
    {
        Open();
        while (!bytes.empty())
        {
            constexpr std::size_t most = 1 << 30;
            DWORD written = 0;
            Need(WriteFile(file.get(), bytes.data(), static_cast<DWORD>(std::min(bytes.size(), most)),
                           &written, nullptr));
            bytes.remove_prefix(written);
        }
        Need(FlushFileBuffers(file.get()));
        file.reset();
    }

    void TakeName()
    {
        // The first keeps the permissions of the file that it replaces; the second replaces nothing.
        Need(isThere ? ReplaceFileW(target.c_str(), temporary.c_str(), nullptr,
                                    REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr)
                     : MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH));
        temporary.clear();
    }

private:
    [[noreturn]] void Fail(DWORD error) const
    {
        const bool isInTheWay =
            existing == ExistingFile::keep && (error == ERROR_FILE_EXISTS || error == ERROR_ALREADY_EXISTS);
        throw CWriteError(isInTheWay ? CWriteError::Kind::exists : CWriteError::Kind::system, path,
                          DescribeError(error));
    }

    void Need(BOOL succeeded) const
    {
        if (succeeded == FALSE)
        {
            Fail(GetLastError());
        }
    }

    // From the drive on: what replaces a file needs it.
    [[nodiscard]] std::wstring MakeWholePath() const
    {
        const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.c_str(), -1, nullptr, 0);
        Need(length > 0 ? TRUE : FALSE);
        std::wstring wide(static_cast<std::size_t>(length), L'\0');
        MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path.c_str(), -1, wide.data(), length);
        std::wstring whole(32768, L'\0');
        const DWORD wholeLength =
            GetFullPathNameW(wide.c_str(), static_cast<DWORD>(whole.size()), whole.data(), nullptr);
        Need(wholeLength > 0 && wholeLength < whole.size() ? TRUE : FALSE);
        whole.resize(wholeLength);
        return whole;
    }

    // Follows links, and looks at what is there.
    void FindTarget()
    {
        target = MakeWholePath();
        const DWORD attributes = GetFileAttributesW(target.c_str());
        isThere = attributes != INVALID_FILE_ATTRIBUTES;
        if (!isThere)
        {
            return;
        }
        if (existing == ExistingFile::keep)
        {
            Fail(ERROR_FILE_EXISTS);
        }
        if ((attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DEVICE)) != 0)
        {
            Fail(ERROR_ACCESS_DENIED);
        }
        if ((attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0)
        {
            FollowLink();
        }
    }

    void FollowLink()
    {
        constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        const HANDLE opened = CreateFileW(target.c_str(), 0, shared, nullptr, OPEN_EXISTING, 0, nullptr);
        Need(opened != INVALID_HANDLE_VALUE ? TRUE : FALSE);
        const FileHandle closing(opened);
        std::wstring real(32768, L'\0');
        const DWORD length = GetFinalPathNameByHandleW(opened, real.data(), static_cast<DWORD>(real.size()),
                                                       FILE_NAME_NORMALIZED);
        Need(length > 0 && length < real.size() ? TRUE : FALSE);
        real.resize(length);
        target = std::move(real);
    }

    // A new file beside the target.
    void Open()
    {
        static std::atomic<unsigned> count = 0;
        constexpr int mostAttempts = 1000;
        const std::size_t slash = target.find_last_of(L"/\\:");
        const std::wstring folder = slash == std::wstring::npos ? L"" : target.substr(0, slash + 1);
        for (int i = 0; file == nullptr; ++i)
        {
            std::wstring name = folder + L".matlib-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
                                std::to_wstring(count++) + L".tmp";
            const HANDLE made = CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                            FILE_ATTRIBUTE_NORMAL, nullptr);
            if (made != INVALID_HANDLE_VALUE)
            {
                file.reset(made);
                temporary = std::move(name);
            }
            else if (const DWORD error = GetLastError(); error != ERROR_FILE_EXISTS || i == mostAttempts)
            {
                throw CWriteError(CWriteError::Kind::system, path, DescribeError(error));
            }
        }
    }

    std::string path;
    ExistingFile existing;
    std::wstring target;
    bool isThere = false;
    std::wstring temporary; // the unfinished file
    FileHandle file;
};
} // namespace

void WriteWholeFile(const char* path, std::string_view bytes, ExistingFile existing)
{
    CReplacement file(path, existing);
    file.Write(bytes);
    file.TakeName();
}
