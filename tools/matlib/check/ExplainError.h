#pragma once

#include "reader/IReadObserver.h"
#include "tools/matlib/check/ErrorContext.h"

// The mistake behind a broken rule, told to somebody who knows no grammar.
[[nodiscard]] Finding ExplainError(const ErrorContext& context, const BrokenRule& broken);

// Parts of it, by what was wanted.
[[nodiscard]] Finding ExplainHeader(const ErrorContext& context, const BrokenRule& broken);
[[nodiscard]] Finding ExplainNumber(const ErrorContext& context, const BrokenRule& broken);
[[nodiscard]] Finding ExplainRowValue(const ErrorContext& context, const BrokenRule& broken);

// A word behind a number that had ended for the library: a unit, or digits behind a comma.
[[nodiscard]] Finding ExplainBehindNumber(const ErrorContext& context, std::string_view word);

// A file that ends too soon.
[[nodiscard]] Finding ExplainEnd(const ErrorContext& context);

[[nodiscard]] inline Finding MakeError(Span where, std::string_view rule, std::string text)
{
    return {true, where, rule, std::move(text)};
}
