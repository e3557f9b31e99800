#include "chooser/win32/CChooseMaterialDlg.h"

#include "MaterialLibrary/IMatLib.h"
#include "MaterialLibrary/IMaterial.h"
#include "chooser/ChooserFilterSettings.h"
#include "chooser/ThicknessUnits.h"
#include "chooser/win32/ChooserProfile.h"
#include "framework/DialogItems.h"
#include "framework/Profile.h"
#include "framework/WindowScopes.h"
#include "resources/DialogIds.h"
#include "resources/Texts.h"
#include "shared/MessageManager/MessageManager.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <windowsx.h>

namespace
{
constexpr LONG largestTemplate = 30'000; // in pixels at any scale

constexpr const char* showChartName = "ShowChart";

// Where the columns of a kind stand.
constexpr const char* GetColumnsName(int kind)
{
    return kind == MLMATERIAL_METAL ? "MetalColumns" : "DielectricColumns";
}

struct TechnologyChoice
{
    int technology;
    MLTEXTID name;
};
constexpr TechnologyChoice technologyChoices[] = {
    {MLTECHNOLOGY_FLEXCORE, MLTEXT_FLEXCORE},
    {MLTECHNOLOGY_PREPREG, MLTEXT_PREPREG},
    {MLTECHNOLOGY_CORE, MLTEXT_CORE},
};

constexpr MLUNITS unitChoices[] = {MLUNITS_METRIC, MLUNITS_ENGLISH};

constexpr int dielectricControls[] = {
    ML_LABEL_TECHNOLOGY,   ML_COMBO_TECHNOLOGY,       ML_LABEL_THICKNESS, ML_EDIT_THICKNESS_MINIMUM,
    ML_LABEL_THICKNESS_TO, ML_EDIT_THICKNESS_MAXIMUM, ML_LABEL_UNIT,      ML_COMBO_UNITS,
};

constexpr int editsWithEnter[] = {ML_EDIT_MATERIAL_FILTER, ML_EDIT_LIBRARY_FILTER, ML_EDIT_THICKNESS_MINIMUM,
                                  ML_EDIT_THICKNESS_MAXIMUM};

// An edit control of a dialog in which Enter does something of its own instead of pressing the default
// button.
class CEnterEdit final : public CWnd
{
public:
    explicit CEnterEdit(std::function<void()> pressed) : onEnter(std::move(pressed)) {}

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_GETDLGCODE && wParam == VK_RETURN)
        {
            return CWnd::HandleMessage(message, wParam, lParam) | DLGC_WANTMESSAGE;
        }
        if (message == WM_KEYDOWN && wParam == VK_RETURN)
        {
            onEnter();
            return 0;
        }
        if (message == WM_CHAR && wParam == VK_RETURN)
        {
            return 0; // the control would beep
        }
        return CWnd::HandleMessage(message, wParam, lParam);
    }

private:
    std::function<void()> onEnter;
};

} // namespace

CChooseMaterialDlg::CChooseMaterialDlg(IMatLib& materialLibrary, IMaterial* current, int materialKind)
    : CDialog(ML_DIALOG_CHOOSE_MATERIAL), library(&materialLibrary), assigned(current), kind(materialKind),
      units(MLUNITS_ENGLISH), materialFilter(materialKind, GetChooserFilterSettings()),
      thickness{{{ML_EDIT_THICKNESS_MINIMUM, GetChooserFilterSettings().thicknessMinimum, {}},
                 {ML_EDIT_THICKNESS_MAXIMUM, GetChooserFilterSettings().thicknessMaximum, {}}}},
      chart(materialKind)
{
}

CChooseMaterialDlg::~CChooseMaterialDlg() = default;

bool CChooseMaterialDlg::OnInitDialog()
{
    ResetNameFilters();
    FillCombos();
    AlignCombos();
    TakeTemplateSize();
    grid = std::make_unique<CMaterialGrid>(*library);
    grid->AttachDlgItem(ML_GRID, GetHandle());
    grid->SetNotifier(this);
    grid->SetFilter(this);
    grid->SetOnChosen(
        [this]
        {
            if (IMaterial* const chosen = grid->GetCurrentMaterial())
            {
                Assign(chosen);
            }
        });
    grid->SetUp(kind);
    ApplyUnits();
    grid->ShowColumnPlaces(ParseColumnPlaces(ReadProfileString(chooserSection, GetColumnsName(kind), "")));
    chart.Attach(ML_CHART, GetHandle());
    CreateBar();
    CreateMover();
    ReadShowChart();
    SetItemText(GetHandle(), ML_EDIT_ASSIGNED, assigned != nullptr ? assigned->GetName() : "");
    ListenToEnter();
    return true;
}

void CChooseMaterialDlg::ResetNameFilters()
{
    ChooserFilterSettings& settings = GetChooserFilterSettings();
    settings.materialFilter.Reset();
    settings.libraryFilter.Reset();
    SetItemText(GetHandle(), ML_EDIT_MATERIAL_FILTER, settings.materialFilter.GetInput());
    SetItemText(GetHandle(), ML_EDIT_LIBRARY_FILTER, settings.libraryFilter.GetInput());
}

void CChooseMaterialDlg::FillCombos()
{
    FillTypeCombo();
    FitDropDownList(GetHandle(), ML_COMBO_TYPE);
    if (kind == MLMATERIAL_METAL)
    {
        for (const int control : dielectricControls)
        {
            ShowItem(GetHandle(), control, false);
        }
        return;
    }
    FillTechnologyCombo();
    FillUnitCombo();
}

void CChooseMaterialDlg::FillTypeCombo()
{
    typeNames = {LoadText(MLTEXT_ALL)};
    for (std::string& name : ListTypeNames(*library, kind))
    {
        typeNames.push_back(std::move(name));
    }
    LPARAM selected = 0;
    for (std::size_t i = 0; i < typeNames.size(); ++i)
    {
        AddComboItem(GetHandle(), ML_COMBO_TYPE, typeNames[i], static_cast<LPARAM>(i));
        if (selected == 0 && typeNames[i] == GetChooserFilterSettings().typeText)
        {
            selected = static_cast<LPARAM>(i);
        }
    }
    SelectComboData(GetHandle(), ML_COMBO_TYPE, selected);
    materialFilter.SetType(typeNames[static_cast<std::size_t>(selected)]);
}

void CChooseMaterialDlg::FillTechnologyCombo()
{
    AddComboItem(GetHandle(), ML_COMBO_TECHNOLOGY, LoadText(MLTEXT_ALL),
                 ChooserFilterSettings::allTechnologies);
    for (const TechnologyChoice& choice : technologyChoices)
    {
        AddComboItem(GetHandle(), ML_COMBO_TECHNOLOGY, LoadText(choice.name), choice.technology);
    }
    if (!SelectComboData(GetHandle(), ML_COMBO_TECHNOLOGY, GetChooserFilterSettings().technology))
    {
        SelectComboData(GetHandle(), ML_COMBO_TECHNOLOGY, ChooserFilterSettings::allTechnologies);
    }
}

void CChooseMaterialDlg::FillUnitCombo()
{
    for (const MLUNITS choice : unitChoices)
    {
        AddComboItem(GetHandle(), ML_COMBO_UNITS, LoadText(GetThicknessUnit(choice).name), choice);
    }
    SelectComboData(GetHandle(), ML_COMBO_UNITS, units);
}

void CChooseMaterialDlg::ListenToEnter()
{
    for (const int control : editsWithEnter)
    {
        edits.push_back(std::make_unique<CEnterEdit>([this] { ApplyThicknessRange(); }));
        edits.back()->AttachDlgItem(control, GetHandle());
    }
}

bool CChooseMaterialDlg::OnCommand(int control, unsigned code)
{
    const bool clicked = code == BN_CLICKED;
    const bool chosen = code == CBN_SELCHANGE;
    if (control == ML_BUTTON_APPLY && clicked)
    {
        ApplyThicknessRange();
    }
    else if ((control == ML_EDIT_THICKNESS_MINIMUM || control == ML_EDIT_THICKNESS_MAXIMUM) &&
             code == EN_KILLFOCUS)
    {
        LeaveThickness();
    }
    else if (control == ML_COMBO_TYPE && chosen)
    {
        ChooseType();
    }
    else if (control == ML_COMBO_TECHNOLOGY && chosen)
    {
        ChooseTechnology();
    }
    else if (control == ML_COMBO_UNITS && chosen)
    {
        ApplyUnits();
    }
    else if (control == ML_CHECK_SHOW_GRAPHICALLY && clicked)
    {
        ToggleChart();
    }
    else if (control == ML_BUTTON_ASSIGN && clicked)
    {
        Assign(grid->GetCurrentMaterial());
    }
    else if (control == ML_BUTTON_UNASSIGN && clicked)
    {
        Assign(nullptr);
    }
    else
    {
        return CDialog::OnCommand(control, code);
    }
    return true;
}

LRESULT CChooseMaterialDlg::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_DESTROY)
    {
        StoreProfileInteger(chooserSection, showChartName, showChart ? 1 : 0);
        StoreProfileString(chooserSection, GetColumnsName(kind),
                           FormatColumnPlaces(grid->ReadColumnPlaces()));
        StoreGridHeight();
    }
    if (message == chartZoomChangedMessage)
    {
        chart.OnZoomChanged();
    }
    if (message == WM_CONTEXTMENU &&
        chart.OnContextMenu({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}, lParam == -1))
    {
        return 0;
    }
    const LRESULT result = CDialog::HandleMessage(message, wParam, lParam);
    if (message == WM_GETMINMAXINFO && !opened)
    {
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMaxTrackSize = {largestTemplate, largestTemplate};
    }
    if (message == WM_SHOWWINDOW && wParam != FALSE && !opened)
    {
        opened = true;
        KeepInWorkArea(); // the mover has placed it where it was left
        if (assigned != nullptr)
        {
            grid->SelectMaterial(*assigned);
        }
    }
    if (message == WM_WINDOWPOSCHANGED)
    {
        OnResized(); // the mover has placed the controls
    }
    return result;
}

void CChooseMaterialDlg::OnSelectionChange()
{
    chart.SetMaterial(grid->GetCurrentMaterial(), grid->GetCurrentTemperature());
    showChart = IsItemChecked(GetHandle(), ML_CHECK_SHOW_GRAPHICALLY);
    if (showChart)
    {
        chart.Refresh();
    }
}

void CChooseMaterialDlg::ChooseType()
{
    const LRESULT chosen = GetComboData(GetHandle(), ML_COMBO_TYPE, 0);
    GetChooserFilterSettings().typeText = typeNames.at(static_cast<std::size_t>(chosen));
    materialFilter.SetType(GetChooserFilterSettings().typeText);
    RefillGrid();
}

void CChooseMaterialDlg::ChooseTechnology()
{
    GetChooserFilterSettings().technology = static_cast<int>(
        GetComboData(GetHandle(), ML_COMBO_TECHNOLOGY, ChooserFilterSettings::allTechnologies));
    RefillGrid();
}

void CChooseMaterialDlg::ApplyThicknessRange()
{
    if (!ReadThickness())
    {
        return;
    }
    GetChooserFilterSettings().thicknessMinimum = thickness[0].metres;
    GetChooserFilterSettings().thicknessMaximum = thickness[1].metres;
    RefillGrid();
}

void CChooseMaterialDlg::LeaveThickness()
{
    const auto isChanged = [this](const ThicknessBox& box)
    { return GetItemText(GetHandle(), box.control) != box.text; };
    if (std::ranges::any_of(thickness, isChanged))
    {
        ApplyThicknessRange();
    }
}

bool CChooseMaterialDlg::ReadThickness()
{
    std::array<ThicknessBox, 2> read = thickness;
    for (ThicknessBox& box : read)
    {
        std::string text = GetItemText(GetHandle(), box.control);
        if (text == box.text)
        {
            continue;
        }
        const std::optional<double> number = ParseThickness(text);
        if (!number)
        {
            RefuseText(box.control, [this] { ShowWarning(GetHandle(), "Please enter a number."); });
            return false;
        }
        box.metres = ThicknessToMetres(*number, units);
        box.text = std::move(text);
    }
    thickness = std::move(read);
    return true;
}

void CChooseMaterialDlg::ShowThickness()
{
    for (ThicknessBox& box : thickness)
    {
        box.text = FormatThickness(box.metres, units);
        SetItemText(GetHandle(), box.control, box.text);
    }
}

void CChooseMaterialDlg::ApplyUnits()
{
    units = static_cast<unsigned>(GetComboData(GetHandle(), ML_COMBO_UNITS, MLUNITS_ENGLISH));
    SetItemText(GetHandle(), ML_LABEL_UNIT, LoadText(GetThicknessUnit(units).unitText));
    ShowThickness();
    grid->SetUnits(units);
}

void CChooseMaterialDlg::RefillGrid()
{
    const CWaitCursor waiting;
    grid->Refill();
}

void CChooseMaterialDlg::Assign(IMaterial* material)
{
    assigned = material;
    SetItemText(GetHandle(), ML_EDIT_ASSIGNED, assigned != nullptr ? assigned->GetName() : "");
    grid->RefreshAssignedMarker();
}

void CChooseMaterialDlg::ReadShowChart()
{
    showChart = ReadProfileInteger(chooserSection, showChartName, 1) != 0;
    SetItemChecked(GetHandle(), ML_CHECK_SHOW_GRAPHICALLY, showChart);
    if (!showChart)
    {
        ShowOrHideChart();
    }
}
