#include "tools/matlib/check/ReasonText.h"

// A table of its own: the program's string table does not hold the library's texts.
std::string_view GetReasonText(MLTEXTID reason)
{
    switch (static_cast<unsigned>(reason))
    {
#define ML_TEXT(identifier, text)                                                                            \
    case identifier:                                                                                         \
        return text;
#include "resources/Texts.inc"
#undef ML_TEXT
    default:
        return {};
    }
}
