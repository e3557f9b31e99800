#pragma once

// The chart's cursors in the module's resources.
#define IDC_CHART_ZOOM 1002
#define IDC_CHART_PICK 1003
#define IDC_CHART_PAN 1004
