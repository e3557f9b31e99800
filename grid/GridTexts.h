#pragma once

#include "grid/CGridModel.h"

#include <functional>
#include <optional>

// A text as one line: tabs, line ends and other control characters become blanks.
[[nodiscard]] std::string MakeOneLine(std::string_view text);

// The columns that are not hidden, in their order.
[[nodiscard]] std::vector<int> GetVisibleColumns(const CGridModel& model);

// The first of `columns` that holds text, 0 when there is none.
[[nodiscard]] int FindFirstTextColumn(const CGridModel& model, std::span<const int> columns);

// The headers and the rows as lines of texts with tabs between them, each line ended by CR and LF.
[[nodiscard]] std::string CopyAsText(const CGridModel& model, std::span<const int> columns,
                                     std::span<const int> rows);

// The first row from `first` on whose text in `column` begins with `prefix`, letters without case; with
// `wrap` the rows before `first` come after the last one. 0 when there is none.
[[nodiscard]] int FindRowByPrefix(const CGridModel& model, int column, std::string_view prefix, int first,
                                  bool wrap);

// The width of the widest cell of a column among the rows up to `lastRow`, the header not counted. `measure`
// gives the width of a text; no text of n bytes may be wider than n times `widestCharacter`.
[[nodiscard]] int MeasureColumn(const CGridModel& model, int column, int lastRow, int widestCharacter,
                                const std::function<int(std::string_view)>& measure);
