#include "framework/CModuleState.h"

namespace
{
CModuleState* currentState = nullptr;
}

CModuleState& OwnModuleState()
{
    static CModuleState state;
    return state;
}

CModuleState* CurrentModuleState() noexcept
{
    return currentState;
}

CModuleStateScope::CModuleStateScope(CModuleState& state) noexcept : previous(currentState)
{
    currentState = &state;
}

CModuleStateScope::~CModuleStateScope()
{
    currentState = previous;
}
