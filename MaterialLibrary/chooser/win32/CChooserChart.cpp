#include "chooser/win32/CChooserChart.h"

#include "MaterialLibrary/IMaterial.h"
#include "chooser/win32/ChooserProfile.h"
#include "framework/CHandle.h"
#include "framework/Clipboard.h"
#include "framework/Profile.h"
#include "framework/TextConversion.h"
#include "shared/MessageManager/MessageManager.h"
#include "shared/Misc_String/FormatNumber.h"
#include "shared/Translation/Translate.h"

#include <commdlg.h>

namespace
{
constexpr const char* logarithmicName = "LogarithmicFrequency";

struct MenuEntry
{
    ChartCommand command; // None: a line between groups
    const char* text;
};
constexpr MenuEntry menuEntries[] = {
    {ChartCommand::LogarithmicFrequency, "&Logarithmic frequency"},
    {ChartCommand::None, ""},
    {ChartCommand::KeepCurves, "&Keep curves"},
    {ChartCommand::ForgetKeptCurves, "&Forget kept curves"},
    {ChartCommand::None, ""},
    {ChartCommand::PreviousView, "&Previous view"},
    {ChartCommand::WholeView, "&Whole view"},
    {ChartCommand::None, ""},
    {ChartCommand::CopyPicture, "&Copy picture"},
    {ChartCommand::CopyValues, "Copy &values"},
    {ChartCommand::SavePicture, "&Save picture..."},
    {ChartCommand::None, ""},
    {ChartCommand::MoveBar, "Move the &bar above the chart"},
};

// The font of a window, for labels in the language of its texts.
HFONT CopyFont(HWND window)
{
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof(font), &font);
    return CreateFontW(font.lfHeight, 0, 0, 0, font.lfWeight, font.lfItalic, FALSE, FALSE, DEFAULT_CHARSET,
                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH,
                       font.lfFaceName);
}

// "material, temperature".
std::string NameCurves(const IMaterial* material, double temperature)
{
    constexpr int digits = 13;
    return material == nullptr ? ""
                               : std::string(material->GetName()) + ", " + FormatNumber(temperature, digits) +
                                     ToMultibyte(L" \u00B0C");
}

// Asks the user; empty when there is no answer. The host's current folder stays.
std::wstring AskForPictureFile(HWND owner)
{
    wchar_t path[MAX_PATH] = L"chart.svg";
    OPENFILENAMEW question{};
    question.lStructSize = sizeof question;
    question.hwndOwner = owner;
    question.lpstrFilter = L"SVG (*.svg)\0*.svg\0";
    question.lpstrFile = path;
    question.nMaxFile = MAX_PATH;
    question.lpstrDefExt = L"svg";
    question.Flags = OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
    return GetSaveFileNameW(&question) != FALSE ? path : L"";
}

// By the system itself: the standard library's streams would make the module twice as large.
bool WriteWholeFile(const wchar_t* path, std::string_view text)
{
    const HANDLE handle =
        CreateFileW(path, GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
    {
        return false;
    }
    const CHandle<HANDLE, CloseFileHandle> file(handle);
    DWORD written = 0;
    return WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != FALSE &&
           written == text.size();
}
} // namespace

void CChooserChart::Attach(int control, HWND dialog)
{
    chart.AttachDlgItem(control, dialog);
    font.reset(CopyFont(dialog));
    chart.SetFont(font.get());
    content.SetLogarithmic(ReadProfileInteger(chooserSection, logarithmicName, 0) != 0);
    content.SetUpAxes(chart.GetChart().GetModel());
    LayOut();
}

void CChooserChart::SetMaterial(IMaterial* material, double temperature)
{
    chart.RemoveCurves();
    MaterialCurves curves;
    BuildMaterialCurves(curves, material, temperature);
    content.SetCurves(std::move(curves), NameCurves(material, temperature));
}

void CChooserChart::Refresh()
{
    content.Show(chart.GetChart());
    LayOut();
}

void CChooserChart::LayOut()
{
    chart.RecomputeLayout();
    views.Begin(chart.GetChart().GetModel());
    chart.Invalidate();
}

bool CChooserChart::OnContextMenu(POINT screen, bool byKeyboard)
{
    RECT area{};
    if (IsWindowVisible(chart.GetHandle()) == FALSE || GetWindowRect(chart.GetHandle(), &area) == FALSE)
    {
        return false;
    }
    if (byKeyboard)
    {
        const PixelRect& plot = chart.GetChart().GetModel().frame.plot;
        screen = {area.left + plot.left, area.top + plot.top};
    }
    else if (PtInRect(&area, screen) == FALSE)
    {
        return false;
    }
    Execute(ChooseFromMenu(screen));
    return true;
}

ChartCommand CChooserChart::ChooseFromMenu(POINT screen) const
{
    const CMenuHandle menu(CreatePopupMenu());
    for (const MenuEntry& entry : menuEntries)
    {
        const bool isLine = entry.command == ChartCommand::None;
        const bool checked = entry.command == ChartCommand::LogarithmicFrequency && content.IsLogarithmic();
        const UINT flags = (isLine ? MF_SEPARATOR : MF_STRING) | (checked ? MF_CHECKED : MF_UNCHECKED) |
                           (isLine || CanExecute(entry.command) ? MF_ENABLED : MF_GRAYED);
        AppendMenuA(menu.get(), flags, static_cast<UINT_PTR>(entry.command),
                    isLine ? nullptr : TranslateOwn(entry.text).c_str());
    }
    return static_cast<ChartCommand>(TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x,
                                                    screen.y, 0, GetParent(chart.GetHandle()), nullptr));
}

bool CChooserChart::CanExecute(ChartCommand command) const
{
    switch (command)
    {
    case ChartCommand::KeepCurves:
        return content.CanKeep();
    case ChartCommand::ForgetKeptCurves:
        return content.HasKept();
    case ChartCommand::PreviousView:
        return views.CanGoBack();
    case ChartCommand::CopyValues:
        return content.HasRows();
    default:
        return true;
    }
}

void CChooserChart::Execute(ChartCommand command)
{
    switch (command)
    {
    case ChartCommand::LogarithmicFrequency:
        SetLogarithmic(!content.IsLogarithmic());
        break;
    case ChartCommand::KeepCurves:
        chart.RemoveCurves();
        content.Keep();
        content.Show(chart.GetChart());
        views.Restore(chart.GetChart().GetModel()); // the data are the same
        chart.RecomputeLayout();
        chart.Invalidate();
        break;
    case ChartCommand::ForgetKeptCurves:
        chart.RemoveCurves();
        content.Forget();
        Refresh();
        break;
    case ChartCommand::PreviousView:
        views.GoBack(chart.GetChart().GetModel());
        chart.RecomputeLayout();
        chart.Invalidate();
        break;
    case ChartCommand::WholeView:
        chart.ResetZoom();
        break;
    case ChartCommand::CopyPicture:
        if (!chart.CopyPicture())
        {
            MessageBeep(MB_ICONWARNING);
        }
        break;
    case ChartCommand::CopyValues:
        CopyValues();
        break;
    case ChartCommand::SavePicture:
        SavePicture();
        break;
    case ChartCommand::MoveBar:
        onMoveBar();
        break;
    case ChartCommand::None:
        break;
    }
}

void CChooserChart::SetLogarithmic(bool logarithmic)
{
    content.SetLogarithmic(logarithmic);
    StoreProfileInteger(chooserSection, logarithmicName, logarithmic ? 1 : 0);
    Refresh();
}

void CChooserChart::CopyValues()
{
    if (!PutOnClipboard(chart.GetHandle(), ToWide(content.FormatValues())))
    {
        MessageBeep(MB_ICONWARNING);
    }
}

void CChooserChart::SavePicture()
{
    const HWND dialog = GetParent(chart.GetHandle());
    const std::wstring path = AskForPictureFile(dialog);
    if (path.empty())
    {
        return;
    }
    if (!WriteWholeFile(path.c_str(), chart.DrawSvg()))
    {
        ShowWarning(dialog, ("The picture could not be written to \"" + ToMultibyte(path) + "\".").c_str());
    }
}
