#include "grid/SortRows.h"

#include "grid/MergeSort.h"

namespace
{
// A row and its text in the column of the first key.
struct SortedRow
{
    const char* text = nullptr;
    int row = 0;
};

int CompareTexts(const char* a, const char* b, bool ascending, GridTextComparison compare)
{
    if (a == b)
    {
        return 0;
    }
    if (*a == '\0' || *b == '\0')
    {
        return static_cast<int>(*a == '\0') - static_cast<int>(*b == '\0');
    }
    const int order = compare(a, b);
    return ascending ? order : -order;
}

class CRowComparison
{
public:
    CRowComparison(const CGridModel& gridModel, std::vector<GridSortKey> sortKeys,
                   GridTextComparison comparison)
        : model(&gridModel), keys(std::move(sortKeys)), compare(comparison)
    {
    }

    [[nodiscard]] SortedRow MakeRow(int row) const
    {
        return {keys.empty() ? "" : model->GetText(row, keys.front().column), row};
    }

    [[nodiscard]] bool operator()(const SortedRow& a, const SortedRow& b) const
    {
        int order = keys.empty() ? 0 : CompareTexts(a.text, b.text, keys.front().ascending, compare);
        for (std::size_t i = 1; i < keys.size() && order == 0; ++i)
        {
            const GridSortKey& key = keys[i];
            order = CompareTexts(model->GetText(a.row, key.column), model->GetText(b.row, key.column),
                                 key.ascending, compare);
        }
        return order < 0;
    }

private:
    const CGridModel* model;
    std::vector<GridSortKey> keys;
    GridTextComparison compare;
};
} // namespace

void SortRows(CGridModel& model, GridTextComparison compare)
{
    std::vector<GridSortKey> keys;
    for (const GridSortKey& key : model.GetSortKeys().GetAll())
    {
        if (key.column >= 1 && key.column <= model.GetColumnCount())
        {
            keys.push_back(key);
        }
    }
    const CRowComparison before(model, std::move(keys), compare);
    std::vector<SortedRow> rows;
    rows.reserve(static_cast<std::size_t>(model.GetRowCount()));
    for (int row = 1; row <= model.GetRowCount(); ++row)
    {
        rows.push_back(before.MakeRow(row));
    }
    MergeSort(std::span(rows), before);

    std::vector<int> order;
    order.reserve(rows.size());
    for (const SortedRow& row : rows)
    {
        order.push_back(row.row);
    }
    CGridUpdateScope update(model);
    model.PermuteRows(order);
    model.MarkSorted();
    update.Finish();
}
