#include "reader/CTextPages.h"

#include <new>
#include <sys/mman.h>

CTextPages::CTextPages(std::size_t bytes)
    : reserved(bytes + 1), text(static_cast<char*>(mmap(nullptr, reserved, PROT_READ | PROT_WRITE,
                                                        MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))),
      firstKept(text)
{
    if (text == MAP_FAILED)
    {
        throw std::bad_alloc();
    }
}

CTextPages::~CTextPages()
{
    munmap(text, reserved);
}

void CTextPages::Release(char* start, std::size_t bytes) noexcept
{
    madvise(start, bytes, MADV_DONTNEED);
}
