#include "c/OpenUtf8.h"

File OpenUtf8(const char* path)
{
    return File(std::fopen(path, "rb"));
}
