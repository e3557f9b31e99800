#pragma once

#include "chooser/CMaterialRows.h"
#include "grid/win32/CGXGridWnd.h"

#include <functional>
#include <utility>

// The table of materials in the chooser: the rows of a library in a grid control. Attach it to a control of
// the class gridWindowClass, name the notifier and the filter, and set it up once.
class CMaterialGrid final : public CGXGridWnd
{
public:
    // The library is not owned.
    explicit CMaterialGrid(IMatLib& library) : rows(GetModel(), library) {}

    // Neither is owned; null for none.
    void SetNotifier(ISelectionChangeNotifier* newNotifier);
    void SetFilter(IMaterialFilter* filter) { rows.SetFilter(filter); }

    // Called when the user wants the selected material: a double-click on its row, or Ctrl+Enter.
    void SetOnChosen(std::function<void()> function) { onChosen = std::move(function); }

    // Makes the columns for materials of that kind and fills the rows.
    void SetUp(int materialKind);

    // As those of CMaterialRows.
    void Refill() { rows.Refill(); }
    void SetUnits(unsigned units) { rows.SetUnits(units); }
    void SelectMaterial(const IMaterial& material) { rows.SelectMaterial(material); }
    void RefreshAssignedMarker() { rows.RefreshAssignedMarker(); }
    [[nodiscard]] IMaterial* GetCurrentMaterial() const { return rows.GetCurrentMaterial(); }
    [[nodiscard]] double GetCurrentTemperature() const { return rows.GetCurrentTemperature(); }

    [[nodiscard]] const char* GetRuntimeClassName() const override { return "CMaterialGrid"; }

protected:
    void OnSelectionChanged() override;
    void OnChosenRow() override;
    bool OnClickedCell(GridCell cell) override;
    [[nodiscard]] std::string DescribeCell(GridCell cell) const override { return rows.DescribeCell(cell); }

private:
    CMaterialRows rows;
    ISelectionChangeNotifier* notifier = nullptr;
    std::function<void()> onChosen = [] {};
};
