#include "grid/GridTexts.h"

#include "shared/Misc_String/LowerCase.h"

#include <algorithm>
#include <cstring>

std::string MakeOneLine(std::string_view text)
{
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return line;
}

std::vector<int> GetVisibleColumns(const CGridModel& model)
{
    std::vector<int> visible;
    for (int column = 1; column <= model.GetColumnCount(); ++column)
    {
        if (!model.IsColumnHidden(column))
        {
            visible.push_back(column);
        }
    }
    return visible;
}

int FindFirstTextColumn(const CGridModel& model, std::span<const int> columns)
{
    const auto found =
        std::find_if(columns.begin(), columns.end(),
                     [&model](int column) { return model.GetValueType(column) == GridValueType::Text; });
    return found != columns.end() ? *found : 0;
}

std::string CopyAsText(const CGridModel& model, std::span<const int> columns, std::span<const int> rows)
{
    std::string copy;
    const auto appendRow = [&](int row)
    {
        for (std::size_t i = 0; i < columns.size(); ++i)
        {
            copy += i > 0 ? "\t" : "";
            copy += MakeOneLine(model.GetText(row, columns[i]));
        }
        copy += "\r\n";
    };
    appendRow(0);
    for (const int row : rows)
    {
        appendRow(row);
    }
    return copy;
}

int FindRowByPrefix(const CGridModel& model, int column, std::string_view prefix, int first, bool wrap)
{
    const std::string wanted = ToLowerCase(prefix);
    const auto find = [&](int from, int to)
    {
        for (int row = std::max(from, 1); row <= to; ++row)
        {
            const std::string_view text = model.GetText(row, column);
            if (ToLowerCase(text.substr(0, prefix.size())) == wanted)
            {
                return row;
            }
        }
        return 0;
    };
    const int found = find(first, model.GetRowCount());
    return found != 0 || !wrap ? found : find(1, std::min(first - 1, model.GetRowCount()));
}

int MeasureColumn(const CGridModel& model, int column, int lastRow, int widestCharacter,
                  const std::function<int(std::string_view)>& measure)
{
    int widest = 0;
    const char* last = nullptr; // equal texts often follow each other and share their characters
    for (int row = 1; row <= std::min(lastRow, model.GetRowCount()); ++row)
    {
        const char* const text = model.GetText(row, column);
        const std::size_t length = text != last ? std::strlen(text) : 0;
        last = text;
        if (length > static_cast<std::size_t>(widest / std::max(widestCharacter, 1)))
        {
            widest = std::max(widest, measure({text, length}));
        }
    }
    return widest;
}
