#pragma once

#include "chooser/MaterialColumns.h"
#include "chooser/ThicknessUnits.h"
#include "grid/CGridModel.h"

#include <string>
#include <vector>

class IMatLib;
class IMaterial;
class IMaterialFilter;
class IMaterialTable;
class ISelectionChangeNotifier;
class ITechnologyMapProvider;

// The materials of a library as the rows of a grid: one row for each material and each of its temperatures,
// from the last material to the first. What stands behind CMaterialGrid, without its window.
//
// Rows know their materials by name: of two with the same name the one that was loaded last answers.
class CMaterialRows
{
public:
    // Neither the grid nor the library is owned; both must outlive this object.
    CMaterialRows(CGridModel& gridModel, IMatLib& materialLibrary);

    // Not owned, null for none.
    void SetNotifier(ISelectionChangeNotifier* newNotifier) { notifier = newNotifier; }
    void SetFilter(IMaterialFilter* newFilter) { filter = newFilter; }

    // The words for technologies, at first the module's; not owned, with null their cells are empty.
    void SetTechnologies(ITechnologyMapProvider* provider) { technologies = provider; }

    // Makes the columns for materials of that kind and fills the rows.
    void SetUp(int materialKind);

    // Makes all rows anew: the materials that the filter accepts, in the order of the library or sorted as
    // the user has asked for. The rows that were selected are so again, as far as they are listed.
    void Refill();

    // Shows thicknesses in that unit (MLUNITS). The last row keeps its former unit until the next Refill.
    void SetUnits(unsigned newUnits);

    // Marks the rows of the assigned material, and no others.
    void RefreshAssignedMarker();

    // Sorts as a click on the header of that column asks for.
    void ClickHeader(int column);

    // Selects the first row of that material and no other. Nothing happens when it is not listed.
    void SelectMaterial(const IMaterial& material);

    // What the tip of a cell says besides its text: of one that shows a table, values of it. Empty for
    // others.
    [[nodiscard]] std::string DescribeCell(GridCell cell) const;

    // The material of the selected row, or of the current cell where nothing is selected. Null unless that is
    // exactly one row.
    [[nodiscard]] IMaterial* GetCurrentMaterial() const;

    // The temperature of that row in °C; 0 when there is no such row or it shows none.
    [[nodiscard]] double GetCurrentTemperature() const;

private:
    struct Styles
    {
        GridStyleId text = 0;
        GridStyleId number = 0;
        GridStyleId notAvailable = 0;
        GridStyleId marker = 0;
    };

    [[nodiscard]] double ReadTemperature(int row) const;

    // The materials that the filter accepts, in the order of their rows.
    [[nodiscard]] std::vector<IMaterial*> ListMaterials() const;
    void FillRow(int row, IMaterial& material, double temperature);
    void FillCell(int row, int column, IMaterial& material, double temperature);
    void FillMarker(int row, int column, const char* materialName, const IMaterial* assigned);
    void FillThickness(int row, int column, const IMaterial& material);
    void FillTableCell(int row, int column, const IMaterialTable* table);
    [[nodiscard]] const IMaterial* AskForAssigned() const;

    CGridModel* model;
    IMatLib* library;
    ISelectionChangeNotifier* notifier = nullptr;
    IMaterialFilter* filter = nullptr;
    ITechnologyMapProvider* technologies;
    unsigned units = MLUNITS_ENGLISH;
    Styles styles;
    std::string tableText;
    std::string notAvailableText;
};
