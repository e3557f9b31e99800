#pragma once

#include "chart/win32/CChartControl.h"

// The chart of the material chooser.
class CSimpleChartControl final : public CChartControl
{
public:
    ~CSimpleChartControl() override = default;
    [[nodiscard]] const char* GetRuntimeClassName() const override { return "CSimpleChartControl"; }
};
