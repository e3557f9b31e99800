#include "chooser/CRememberedRows.h"

#include "chooser/MaterialColumns.h"
#include "grid/CGridModel.h"

namespace
{
std::string MakeKey(const CGridModel& model, int row)
{
    std::string key = model.GetText(row, model.FindColumn(COLUMNKEY_MATERIAL));
    key += '\0';
    key += model.GetText(row, model.FindColumn(COLUMNKEY_TEMPERATURE));
    return key;
}
} // namespace

CRememberedRows::CRememberedRows(const CGridModel& model)
{
    const CGridSelection& selection = model.GetSelection();
    if (selection.GetSelectedCount() > 0)
    {
        for (const int row : selection.GetRows())
        {
            ++selected[MakeKey(model, row)];
        }
    }
    if (const GridCell cell = selection.GetCurrentCell(); cell.row != 0)
    {
        current = MakeKey(model, cell.row);
        currentColumn = cell.column;
    }
}

void CRememberedRows::Restore(CGridModel& model) const
{
    if (currentColumn == 0 && selected.empty())
    {
        return;
    }
    std::unordered_map<std::string, int> missing = selected;
    GridCell cell;
    int firstSelected = 0;
    for (int row = 1; row <= model.GetRowCount(); ++row)
    {
        const std::string key = MakeKey(model, row);
        if (cell.row == 0 && currentColumn != 0 && key == current)
        {
            cell = {row, currentColumn};
        }
        if (const auto found = missing.find(key); found != missing.end() && found->second > 0)
        {
            --found->second;
            model.SelectRows(row, row, true);
            firstSelected = firstSelected != 0 ? firstSelected : row;
        }
    }
    if (cell.row == 0 && firstSelected != 0)
    {
        cell = {firstSelected, currentColumn != 0 ? currentColumn : 1};
    }
    if (cell.row != 0)
    {
        model.SetCurrentCell(cell);
    }
}
