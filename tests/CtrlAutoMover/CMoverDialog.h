#pragma once

#include "framework/CDialog.h"
#include "shared/CtrlAutoMover/win32/CCtrlAutoMover.h"

#include <functional>
#include <memory>

// A resizable dialog with a mover that a test drives.
class CMoverDialog final : public CDialog
{
public:
    CMoverDialog() : CDialog(500) {}

    using CDialog::EndModal;

    [[nodiscard]] const char* GetRuntimeClassName() const override { return name; }

    [[nodiscard]] RECT GetFrame() const
    {
        RECT frame{};
        GetWindowRect(GetHandle(), &frame);
        return frame;
    }
    [[nodiscard]] CtrlRect GetControl(int id) const
    {
        RECT rect{};
        GetWindowRect(GetDlgItem(GetHandle(), id), &rect);
        MapWindowPoints(nullptr, GetHandle(), reinterpret_cast<POINT*>(&rect), 2);
        return {rect.left, rect.top, rect.right, rect.bottom};
    }
    void Resize(int width, int height) const
    {
        SetWindowPos(GetHandle(), nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    std::unique_ptr<CCtrlAutoMover> mover;
    std::function<void()> onInit;
    const char* name = "CMoverDialog";

protected:
    bool OnInitDialog() override
    {
        mover = std::make_unique<CCtrlAutoMover>(this);
        if (onInit)
        {
            onInit();
        }
        return true;
    }
};
