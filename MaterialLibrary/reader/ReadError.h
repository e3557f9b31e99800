#pragma once

#include "resources/TextIds.h"

#include <string>
#include <utility>

// A material file that does not keep to the format: the reason's text identifier. Where it happened is
// the scanner's position.
class CParseError
{
public:
    explicit CParseError(MLTEXTID reasonId) : reason(reasonId) {}
    [[nodiscard]] MLTEXTID GetReason() const { return reason; }

private:
    MLTEXTID reason;
};

// A material file that cannot be opened or read: the whole message, and the system's reason in it.
class CFileError
{
public:
    CFileError(std::string messageText, std::string systemReason)
        : text(std::move(messageText)), reason(std::move(systemReason))
    {
    }
    [[nodiscard]] const std::string& GetText() const { return text; }
    [[nodiscard]] const std::string& GetReason() const { return reason; }

private:
    std::string text;
    std::string reason;
};
