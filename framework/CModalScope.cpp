#include "framework/CModalScope.h"

#include <utility>

namespace
{
CModalScope* innermost = nullptr;
CModalScope::UncaughtHandler uncaughtHandler = &std::terminate;
} // namespace

CModalScope::CModalScope() noexcept : outer(std::exchange(innermost, this)) {}

CModalScope::~CModalScope()
{
    innermost = outer;
}

void CModalScope::RaiseKept()
{
    if (HasException())
    {
        std::rethrow_exception(std::exchange(exception, nullptr));
    }
}

void CModalScope::KeepCurrentException() noexcept
{
    CModalScope* const scope = innermost;
    if (scope == nullptr)
    {
        uncaughtHandler();
        std::terminate();
    }
    if (!scope->HasException())
    {
        scope->exception = std::current_exception();
    }
    if (scope->dialog != nullptr)
    {
        EndDialog(scope->dialog, IDCANCEL);
    }
}

void CModalScope::SetUncaughtHandler(UncaughtHandler handler) noexcept
{
    uncaughtHandler = handler;
}
