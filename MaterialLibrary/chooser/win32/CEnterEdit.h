#pragma once

#include "framework/CWnd.h"

#include <functional>

// An edit control of a dialog in which Enter does something of its own instead of pressing the default
// button.
class CEnterEdit final : public CWnd
{
public:
    explicit CEnterEdit(std::function<void()> pressed) : onEnter(std::move(pressed)) {}

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::function<void()> onEnter;
};
