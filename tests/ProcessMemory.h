#pragma once

#include <cstddef>

#ifdef _WIN32
#include <windows.h>

#include <psapi.h>
#else
#include <fstream>
#include <unistd.h>
#endif

// Bytes of memory that the process holds at present; 0 when the system does not say.
[[nodiscard]] inline std::size_t GetProcessMemory()
{
#ifdef _WIN32
    PROCESS_MEMORY_COUNTERS counters = {};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return counters.PagefileUsage; // Wine leaves the field PrivateUsage empty
#else
    std::size_t total = 0;
    std::size_t resident = 0;
    std::ifstream("/proc/self/statm") >> total >> resident;
    return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
#endif
}
