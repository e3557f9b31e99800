#pragma once

#include "chooser/CChartPaneState.h"
#include "chooser/CMaterialFilter.h"
#include "chooser/ISelectionChangeNotifier.h"
#include "chooser/win32/CChooserChart.h"
#include "chooser/win32/CDividerBar.h"
#include "chooser/win32/CMaterialGrid.h"
#include "framework/CDialog.h"
#include "framework/CHandle.h"
#include "shared/CtrlAutoMover/win32/CCtrlAutoMover.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

class IMatLib;
class IMaterial;

// The dialog "Select Material Models": shows the library's materials of one kind and the curves of the
// selected one, and lets the user assign a material to what the host asks for.
class CChooseMaterialDlg final : public CDialog, private ISelectionChangeNotifier, private IMaterialFilter
{
public:
    // `current` is assigned at first, null for none. Neither is owned; both outlive the dialog.
    CChooseMaterialDlg(IMatLib& materialLibrary, IMaterial* current, int materialKind);
    ~CChooseMaterialDlg() override;

    // The assigned material, null for none; the user's choice when DoModal has returned IDOK.
    [[nodiscard]] IMaterial* GetAssigned() const { return assigned; }

    [[nodiscard]] const char* GetRuntimeClassName() const override { return "CChooseMaterialDlg"; }

protected:
    bool OnInitDialog() override;
    bool OnCommand(int control, unsigned code) override;
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    friend class CChooserFixture; // of the tests, which look at grid and chart

    void OnSelectionChange() override;
    IMaterial* GetAssignedMaterial() override { return assigned; }
    bool Accept(IMaterial* material) override { return materialFilter.Accept(material); }

    void ResetNameFilters();
    void FillCombos();
    void FillTypeCombo();
    void FillTechnologyCombo();
    void FillUnitCombo();
    void ListenToEnter();

    void ChooseType();
    void ChooseTechnology();
    // An edit box for a thickness and what it stands for. The text is rounded, the metres are not.
    struct ThicknessBox
    {
        int control;
        double metres;
        std::string text;
    };

    void ApplyThicknessRange();
    void LeaveThickness();
    // Whether the boxes hold numbers; tells the user where one does not.
    [[nodiscard]] bool ReadThickness();
    void ShowThickness();
    void ApplyUnits();
    void RefillGrid();

    void Assign(IMaterial* material);

    void TakeTemplateSize();
    void CreateMover();
    void CreateBar();
    void LayOutControls();
    void ToggleChart();
    void ShowOrHideChart();
    void ReadShowChart();
    void StackGridAndChart();
    int MoveBar(int down);
    void ReadGridHeight();
    void StoreGridHeight() const;
    void SetControlHeight(int control, int top, int height);
    void KeepInWorkArea();
    void NarrowControls(int width);
    int PlaceFilters(int width);
    int PlaceBottomControls(int width);
    void AlignCombos();
    void OnResized();

    IMatLib* library;
    IMaterial* assigned;
    int kind;
    unsigned units;
    bool showChart = true;
    CMaterialFilter materialFilter;
    std::vector<std::string> typeNames;    // of the type combo's entries
    std::array<ThicknessBox, 2> thickness; // least and greatest
    CChooserChart chart;
    std::unique_ptr<CMaterialGrid> grid; // goes before the chart's curves
    std::unique_ptr<CCtrlAutoMover> mover;
    CChartPaneState chartPane;
    CDividerBar bar;                          // between grid and chart
    CChartPaneState paneBeforeBar;            // was moved
    std::vector<std::unique_ptr<CWnd>> edits; // those in which Enter applies
    int templateWidth = 0;                    // of the client area
    int templateGridHeight = 0;
    int gapAboveChart = 0;
    int gapBelowChart = 0;
    bool changingSize = false; // the dialog itself, not its user
    bool opened = false;       // where it was left
    bool wasNormal = true;     // its frame, when that changed last
};
