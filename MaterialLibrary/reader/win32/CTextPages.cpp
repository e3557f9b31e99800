#include "reader/CTextPages.h"

#include <windows.h>

#include <new>

CTextPages::CTextPages(std::size_t bytes)
    : reserved(bytes + 1),
      text(static_cast<char*>(VirtualAlloc(nullptr, reserved, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE))),
      firstKept(text)
{
    if (text == nullptr)
    {
        throw std::bad_alloc();
    }
}

CTextPages::~CTextPages()
{
    VirtualFree(text, 0, MEM_RELEASE);
}

void CTextPages::Release(char* start, std::size_t bytes) noexcept
{
    VirtualFree(start, bytes, MEM_DECOMMIT);
}
