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

// A material file that cannot be opened or read: the whole message.
class CFileError
{
public:
    explicit CFileError(std::string messageText) : text(std::move(messageText)) {}
    [[nodiscard]] const std::string& GetText() const { return text; }

private:
    std::string text;
};
