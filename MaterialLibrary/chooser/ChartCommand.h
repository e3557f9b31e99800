#pragma once

// What the menu of the chooser's chart offers.
enum class ChartCommand
{
    None,
    LogarithmicFrequency,
    KeepCurves,
    ForgetKeptCurves,
    PreviousView,
    WholeView,
    CopyPicture,
    CopyValues,
    SavePicture,
    MoveBar
};
