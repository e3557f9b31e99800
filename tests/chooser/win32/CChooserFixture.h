#pragma once

#include "chooser/ChooserFilterSettings.h"
#include "chooser/MaterialColumns.h"
#include "chooser/win32/CChooseMaterialDlg.h"
#include "chooser/win32/RunChooser.h"
#include "framework/DialogItems.h"
#include "resources/DialogIds.h"
#include "tests/CModalScript.h"
#include "tests/CSandboxedProfile.h"
#include "tests/CollectedMessages.h"
#include "tests/chooser/MakeLibrary.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

// The dialog over a small library, in front of a host's window. The steps of a script find it by its title.
class CChooserFixture : public testing::Test
{
protected:
    using Steps = std::deque<std::function<void()>>;

    CChooserFixture()
    {
        SetProcessDPIAware(); // or every scale would be the usual one
        GetChooserFilterSettings() = {};
        FillLibrary();
        RegisterGridWindowClass();
        CChartControl::RegisterWindowClass();
        RegisterPlainWindowClass(L"ChooserTestHost");
        host.reset(
            CreatePlainWindow({.className = L"ChooserTestHost", .style = WS_OVERLAPPEDWINDOW | WS_VISIBLE}));
        SetActiveWindow(host.get());
    }

    // Rows from the first: "No thickness", "Flex", "Prepreg", "Core" at 25 and at 85 °C. Types b, a, b, a.
    void FillLibrary()
    {
        const auto add = [&](const char* name, const char* type, int technology, double thickness)
        {
            CMaterial& material = AddMaterial(library, MLMATERIAL_DIELECTRIC, name, type);
            material.SetIntAttribute(MLATTR_TECHNOLOGY, technology);
            material.SetAttribute(MLATTR_THICKNESS, thickness);
            return &material;
        };
        CMaterial* const core = add("Core", "a", MLTECHNOLOGY_CORE, 2e-4);
        AddTable(*core, MLTABLE_ER, 25.0, {4.2, 4.1, 4.0});
        AddTable(*core, MLTABLE_LOSS_TANGENT, 25.0, {0.02, 0.021});
        AddTable(*core, MLTABLE_ER, 85.0, {4.5});
        AddTable(*add("Prepreg", "b", MLTECHNOLOGY_PREPREG, 1e-4), MLTABLE_ER, 25.0, {3.9});
        AddTable(*add("Flex", "a", MLTECHNOLOGY_FLEXCORE, 5e-5), MLTABLE_ER, 25.0, {3.2, 3.1});
        AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, "No thickness", "b"), MLTABLE_ER, 25.0,
                 {2.5, 2.4});
        AddTable(AddMaterial(library, MLMATERIAL_METAL, "Foil", "copper"), MLTABLE_ROUGHNESS_TOP, 25.0,
                 {1.1, 1.3});
        AddTable(AddMaterial(library, MLMATERIAL_METAL, "Wire", "silver"), MLTABLE_ROUGHNESS_TOP, 25.0,
                 {1.0});
    }

    // Runs the dialog through the steps; each one that is still open after the last is cancelled.
    IMaterial* Choose(Steps steps, int kind = MLMATERIAL_DIELECTRIC, IMaterial* current = nullptr)
    {
        steps.emplace_back([this] { Press(IDCANCEL); });
        CModalScript script(std::move(steps));
        CChooseMaterialDlg choosing(library, current, kind);
        dialog = &choosing;
        IMaterial* const chosen = choosing.DoModal() == IDOK ? choosing.GetAssigned() : nullptr;
        EXPECT_TRUE(script.IsDone() || closed) << "the script did not come to its end";
        closed = false;
        return chosen;
    }

    // The dialog that users can reach: the innermost one.
    [[nodiscard]] static HWND Dialog()
    {
        HWND dialog = nullptr;
        do
        {
            dialog = FindWindowExW(nullptr, dialog, L"#32770", L"Select Material Models");
        } while (dialog != nullptr && !IsWindowEnabled(dialog));
        return dialog;
    }
    [[nodiscard]] static HWND Item(int control) { return GetDlgItem(Dialog(), control); }
    [[nodiscard]] static std::string Text(int control) { return GetItemText(Dialog(), control); }
    [[nodiscard]] static CMaterialGrid& Grid() { return *dialog->grid; }
    [[nodiscard]] static CChooserChart& MaterialChart() { return dialog->chart; }
    [[nodiscard]] static CChart& Chart() { return dialog->chart.chart.GetChart(); }

    // A click on a button; OK and Cancel end the script.
    void Press(int control)
    {
        closed = closed || control == IDOK || control == IDCANCEL;
        SendMessageW(Item(control), BM_CLICK, 0, 0);
    }
    static void ChooseFrom(int combo, const char* entry)
    {
        const std::vector<std::string> entries = ComboEntries(combo);
        const auto found = std::ranges::find(entries, entry);
        ASSERT_NE(found, entries.end()) << entry;
        SendMessageW(Item(combo), CB_SETCURSEL, static_cast<WPARAM>(found - entries.begin()), 0);
        SendMessageW(Dialog(), WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(Item(combo)));
    }
    // As by hand: the focus comes, the text changes, the focus goes.
    static void Type(int edit, const char* text)
    {
        SetFocus(Item(edit));
        SetItemText(Dialog(), edit, text);
        SetFocus(Item(IDOK));
    }
    static void Select(int first, int last)
    {
        Grid().GetModel().SelectRows(1, Grid().GetModel().GetRowCount(), false);
        Grid().GetModel().SelectRows(first, last, true);
    }
    [[nodiscard]] static std::vector<std::string> Column(int key)
    {
        const CGridModel& model = Grid().GetModel();
        std::vector<std::string> texts;
        for (int row = 1; row <= model.GetRowCount(); ++row)
        {
            texts.emplace_back(model.GetText(row, model.FindColumn(key)));
        }
        return texts;
    }
    [[nodiscard]] static std::vector<std::string> Names() { return Column(COLUMNKEY_MATERIAL); }
    [[nodiscard]] static std::vector<std::string> ComboEntries(int combo)
    {
        std::vector<std::string> entries;
        for (LRESULT i = 0; i < SendMessageW(Item(combo), CB_GETCOUNT, 0, 0); ++i)
        {
            char text[100] = {};
            SendMessageA(Item(combo), CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            entries.emplace_back(text);
        }
        return entries;
    }

    // Where a control is in the dialog.
    [[nodiscard]] static RECT Place(int control)
    {
        RECT rect{};
        GetWindowRect(Item(control), &rect);
        MapWindowPoints(nullptr, Dialog(), reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    [[nodiscard]] static SIZE WindowSize()
    {
        RECT rect{};
        GetWindowRect(Dialog(), &rect);
        return {rect.right - rect.left, rect.bottom - rect.top};
    }
    static void Resize(int width, int height)
    {
        SetWindowPos(Dialog(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }

    // By the left button, which Escape may take back.
    static void DragBar(int down, bool keep = true)
    {
        const HWND handle = Item(ML_DIVIDER);
        SendMessageW(handle, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(40, 1));
        for (int i = 0; i < 4; ++i) // it comes along with the mouse
        {
            SendMessageW(handle, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(40, 1 + down / 4));
        }
        if (!keep)
        {
            SendMessageW(handle, WM_KEYDOWN, VK_ESCAPE, 0);
        }
        SendMessageW(handle, WM_LBUTTONUP, 0, MAKELPARAM(40, 1));
    }

    // The visible parts stand one below the other within the window.
    static void ExpectNoOverlap()
    {
        const bool charted = IsWindowVisible(Item(ML_CHART)) != FALSE;
        RECT client{};
        GetClientRect(Dialog(), &client);
        EXPECT_GT(Place(ML_GRID).bottom, Place(ML_GRID).top);
        EXPECT_EQ(IsWindowVisible(Item(ML_DIVIDER)) != FALSE, charted);
        if (charted)
        {
            EXPECT_EQ(Place(ML_GRID).bottom, Place(ML_DIVIDER).top);
            EXPECT_EQ(Place(ML_DIVIDER).bottom, Place(ML_CHART).top);
            EXPECT_LE(Place(ML_CHART).top, Place(ML_CHART).bottom);
        }
        const RECT above = charted ? Place(ML_CHART) : Place(ML_GRID);
        EXPECT_LE(above.bottom, Place(IDOK).top);
        EXPECT_LE(Place(IDOK).bottom, client.bottom);
        EXPECT_LE(Place(ML_BUTTON_HELP).right, client.right);
        EXPECT_EQ(Place(IDOK).top, Place(ML_BUTTON_ASSIGN).top);
        EXPECT_LE(Place(ML_EDIT_ASSIGNED).right, Place(IDOK).left);
    }

    CSandboxedProfile profile;
    CollectedMessages messages;
    CFakeMaterialLib library;
    CWindowHandle host;
    bool closed = false;
    static inline CChooseMaterialDlg* dialog = nullptr; // of Choose
};
