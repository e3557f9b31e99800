#include "chooser/win32/CChooserChart.h"

#include "MaterialLibrary/MLTypes.h"
#include "shared/Translation/Translate.h"

namespace
{
// The chart's axes: one for frequencies, two for values.
constexpr int frequencyAxis = 0;
constexpr int leftAxis = 1;
constexpr int rightAxis = 2;

std::string Translated(const char* text)
{
    return translate(moduleDomain, moduleCatalogue, text);
}

// The font of a window, for labels in the language of its texts.
HFONT CopyFont(HWND window)
{
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)), sizeof(font), &font);
    return CreateFontW(font.lfHeight, 0, 0, 0, font.lfWeight, font.lfItalic, FALSE, FALSE, DEFAULT_CHARSET,
                       OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY, DEFAULT_PITCH,
                       font.lfFaceName);
}
} // namespace

void CChooserChart::Attach(int control, HWND dialog)
{
    chart.AttachDlgItem(control, dialog);
    font.reset(CopyFont(dialog));
    chart.SetFont(font.get());
    SetUpAxes();
    chart.RecomputeLayout();
    chart.Invalidate();
}

void CChooserChart::SetUpAxes()
{
    const bool isDielectric = kind == MLMATERIAL_DIELECTRIC;
    chart.SetAxisTitle(frequencyAxis, Translated("Frequency"), Translated("MHz"));
    chart.ClearAutomaticPrefix(frequencyAxis);
    chart.SetAxisTitle(leftAxis, Translated(isDielectric ? "Er" : "Rough Factor"), "");
    chart.ClearAutomaticPrefix(leftAxis);
    if (isDielectric)
    {
        chart.AddAxis(rightAxis, true);
        chart.SetAxisTitle(rightAxis, Translated("Loss Tangent"), "");
        chart.ClearAutomaticPrefix(rightAxis);
    }
}

void CChooserChart::SetMaterial(IMaterial* material, double temperature)
{
    chart.RemoveCurves();
    BuildMaterialCurves(curves, material, temperature);
}

void CChooserChart::Refresh()
{
    chart.RemoveCurves();
    if (kind == MLMATERIAL_DIELECTRIC)
    {
        chart.AddCurve(curves[MLTABLE_ER], frequencyAxis, leftAxis);
        chart.AddCurve(curves[MLTABLE_LOSS_TANGENT], frequencyAxis, rightAxis);
    }
    else
    {
        chart.AddCurve(curves[MLTABLE_ROUGHNESS_TOP], frequencyAxis, leftAxis);
        chart.AddCurve(curves[MLTABLE_ROUGHNESS_BOTTOM], frequencyAxis, leftAxis);
    }
    chart.SetScaleMode(false, false);
    chart.RecomputeLayout();
    chart.Invalidate();
}
