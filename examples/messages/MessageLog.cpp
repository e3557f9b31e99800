#include "MessageLog.h"

#include "MaterialLibrary/IManager.h"

#include <windows.h>

#include <cstdio>
#include <string>

namespace
{
const char* WordOf(unsigned severity)
{
    switch (severity)
    {
    case msg::severityWarning:
        return "warning";
    case msg::severityError:
    case msg::severitySevereError:
        return "error";
    default:
        return "information";
    }
}

std::string FindLogPath()
{
    char path[MAX_PATH] = {};
    if (GetEnvironmentVariableA("MESSAGE_LOG", path, MAX_PATH) != 0)
    {
        return path;
    }
    GetTempPathA(MAX_PATH, path);
    return std::string(path) + "messages.log";
}

std::string OnOneLine(std::string text)
{
    for (char& character : text)
    {
        character = character == '\r' || character == '\n' ? ' ' : character;
    }
    return text;
}
} // namespace

void LogMessage(unsigned severity, const char* text)
{
    SYSTEMTIME now;
    GetLocalTime(&now);
    if (std::FILE* const file = std::fopen(FindLogPath().c_str(), "a"))
    {
        std::fprintf(file, "%04u-%02u-%02u %02u:%02u:%02u %s: %s\n", now.wYear, now.wMonth, now.wDay,
                     now.wHour, now.wMinute, now.wSecond, WordOf(severity), OnOneLine(text).c_str());
        std::fclose(file);
    }
}
