#include "c/OpenUtf8.h"

#include <windows.h>

#include <cerrno>
#include <string>

File OpenUtf8(const char* path)
{
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path, -1, nullptr, 0);
    if (length == 0)
    {
        errno = EILSEQ;
        return nullptr;
    }
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, path, -1, wide.data(), length);
    return File(_wfopen(wide.c_str(), L"rb"));
}
