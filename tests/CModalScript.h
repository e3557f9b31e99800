#pragma once

#include <windows.h>

#include <deque>
#include <functional>

// Runs steps one after the other from within modal loops of the calling thread, each while the loop's window
// is shown. At the end of a test IsDone tells whether all of them ran: a modal loop that never began
// runs none. There is one script at a time.
class CModalScript
{
public:
    explicit CModalScript(std::deque<std::function<void()>> todo) : steps(std::move(todo))
    {
        current = this;
        timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { current->RunStep(); });
    }
    ~CModalScript()
    {
        KillTimer(nullptr, timer);
        current = nullptr;
    }
    CModalScript(const CModalScript&) = delete;
    CModalScript& operator=(const CModalScript&) = delete;

    [[nodiscard]] bool IsDone() const { return steps.empty(); }

private:
    void RunStep()
    {
        const HWND active = GetActiveWindow(); // the system shows a dialog when there is nothing else to do
        if (!steps.empty() && IsWindowVisible(active) != FALSE && IsWindowEnabled(active) != FALSE)
        {
            const auto step = std::move(steps.front());
            steps.pop_front();
            step(); // may itself run a modal loop
        }
    }

    static inline CModalScript* current = nullptr;
    std::deque<std::function<void()>> steps;
    UINT_PTR timer = 0;
};
