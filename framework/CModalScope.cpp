#include "framework/CModalScope.h"

#include "shared/MessageManager/FatalError.h"

#include <utility>

namespace
{
thread_local CModalScope* innermost = nullptr;
}

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
        FatalError("..\\framework\\CModalScope.cpp", __LINE__);
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
