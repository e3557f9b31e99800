#include "tools/matlib/CProgress.h"

#include <cstdint>
#include <string>

namespace
{
using namespace std::chrono_literals;
constexpr auto beforeFirst = 500ms;
constexpr auto between = 100ms;
} // namespace

CProgress::CProgress(int steps, Print printTo, std::function<Clock::time_point()> clock)
    : total(steps), print(std::move(printTo)), now(std::move(clock)), nextShow(now() + beforeFirst)
{
}

CProgress::~CProgress()
{
    if (isShown)
    {
        print("\r    \r");
    }
}

void CProgress::Advance()
{
    ++done;
    if (!print || now() < nextShow)
    {
        return;
    }
    nextShow = now() + between;
    isShown = true;
    print("\r" + std::to_string(std::int64_t{100} * done / total) + "%");
}
