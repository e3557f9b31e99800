#pragma once

#include <windows.h>

#include <exception>

// Carries exceptions past the system: what a window's code throws while a modal dialog runs must not fly
// through the window system's frames. It is kept in the innermost scope, the dialog ends, and the caller of
// the dialog gets it. Scopes nest, on one thread.
class CModalScope
{
public:
    CModalScope() noexcept;
    ~CModalScope();
    CModalScope(const CModalScope&) = delete;
    CModalScope& operator=(const CModalScope&) = delete;

    // The dialog that an exception is to end.
    void SetDialog(HWND window) noexcept { dialog = window; }

    [[nodiscard]] bool HasException() const noexcept { return exception != nullptr; }

    // Throws the exception that was kept, if any. Call it when the modal loop has returned.
    void RaiseKept();

    // Keeps the exception that is being handled in the innermost scope of the thread and ends its dialog. The
    // first one of a scope counts. Without a scope nobody gets it: the handler below is called.
    static void KeepCurrentException() noexcept;

    // What ends the process when a window throws while there is no scope; std::terminate at first.
    using UncaughtHandler = void (*)();
    static void SetUncaughtHandler(UncaughtHandler handler) noexcept;

private:
    CModalScope* outer;
    HWND dialog = nullptr;
    std::exception_ptr exception;
};

// Calls `function` on behalf of the system: what it throws is kept, and the answer is then `failed`.
template <class Result, class Function>
Result CallKeepingExceptions(Result failed, Function&& function) noexcept
{
    try
    {
        return function();
    }
    catch (...)
    {
        CModalScope::KeepCurrentException();
        return failed;
    }
}
