#pragma once

#include <chrono>
#include <functional>
#include <string_view>

// Tells on a terminal how far long work has come: "12%", on a line that is wiped in the end. Work of less
// than half a second shows nothing.
class CProgress
{
public:
    using Clock = std::chrono::steady_clock;
    using Print = std::function<void(std::string_view)>;

    // `steps` calls of Advance are to come. Nothing is shown where `printTo` is empty.
    CProgress(int steps, Print printTo, std::function<Clock::time_point()> clock = Clock::now);
    ~CProgress();
    CProgress(const CProgress&) = delete;
    CProgress& operator=(const CProgress&) = delete;

    void Advance();

private:
    int total;
    int done = 0;
    Print print;
    std::function<Clock::time_point()> now;
    Clock::time_point nextShow;
    bool isShown = false;
};
