#pragma once

#include <string>

// What belongs to one module of the process while its code runs: where its resources are and under which
// key its settings live. The process is in its host's state until an entry of the library switches.
class CModuleState
{
public:
    void* instance = nullptr;    // the module's handle: its texts, cursors and dialogs; null is the host's
    std::string applicationName; // empty until the module's application object is initialised
    std::string registryKey;     // settings of the module's users live under this key
};

// The state of the module that this code is linked into. Lives as long as the module.
[[nodiscard]] CModuleState& OwnModuleState();

// The state that the user-interface thread, which runs all of this, is in; null while it is its host's.
[[nodiscard]] CModuleState* CurrentModuleState() noexcept;

// Switches to a module's state and, at the end of the scope, back to the one before, also when an exception
// passes. Scopes nest.
class CModuleStateScope
{
public:
    explicit CModuleStateScope(CModuleState& state = OwnModuleState()) noexcept;
    ~CModuleStateScope();
    CModuleStateScope(const CModuleStateScope&) = delete;
    CModuleStateScope& operator=(const CModuleStateScope&) = delete;

private:
    CModuleState* previous;
};
