#include "shared/CtrlAutoMover/win32/CCtrlAutoMover.h"

#include "shared/CtrlAutoMover/win32/WindowPlacement.h"
#include "shared/MessageManager/FatalError.h"

#include <new>
#include <string_view>

namespace
{
constexpr const char* source = "..\\shared\\CtrlAutoMover.cpp";

// Controls paint themselves at their new places: what the system would copy there may show a neighbour that
// has moved already.
constexpr UINT moveFlags = SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS;

SIZE ClientSize(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

// One redraw for all controls. False when the system refuses; some controls may have moved then.
bool MoveTogether(const std::vector<CtrlMove>& moves)
{
    HDWP batch = BeginDeferWindowPos(static_cast<int>(moves.size()));
    for (const auto& [window, rect] : moves)
    {
        if (batch == nullptr)
        {
            return false;
        }
        batch = DeferWindowPos(batch, window, nullptr, rect.left, rect.top, rect.right - rect.left,
                               rect.bottom - rect.top, moveFlags);
    }
    return batch != nullptr && EndDeferWindowPos(batch) != FALSE;
}

void MoveOneByOne(const std::vector<CtrlMove>& moves)
{
    for (const auto& [window, rect] : moves)
    {
        SetWindowPos(window, nullptr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top,
                     moveFlags);
    }
}
} // namespace

CCtrlAutoMover::CCtrlAutoMover(const CWnd* dialog)
{
    if (dialog == nullptr)
    {
        FatalError(source, 93);
    }
    if (!IsWindow(dialog->GetHandle()) || !Attach(dialog->GetHandle()))
    {
        FatalError(source, 94);
    }
    if (const std::string_view name = dialog->GetRuntimeClassName(); name != "CWnd")
    {
        section = name;
    }
    const SIZE size = ClientSize(GetHandle());
    lastWidth = size.cx;
    lastHeight = size.cy;
    grip = std::make_unique<CSizerGrip>(GetHandle());
}

CCtrlAutoMover::~CCtrlAutoMover()
{
    RemoveAllGroups();
    grip.reset();
    try
    {
        SavePlacement();
    }
    catch (const std::bad_alloc&)
    {
        return; // it is not kept then
    }
}

int CCtrlAutoMover::AddGroup(unsigned anchorLeft, unsigned anchorTop, unsigned anchorRight,
                             unsigned anchorBottom, std::initializer_list<int> controlIds)
{
    auto group = std::make_unique<CCtrlGroup>(CtrlAnchors{anchorLeft, anchorTop, anchorRight, anchorBottom},
                                              controlIds);
    if (group->IsEmpty())
    {
        return 0;
    }
    groups.push_back(std::move(group));
    return static_cast<int>(groups.size());
}

void CCtrlAutoMover::SetProportional(int group, HWND window, double left, double top, double right,
                                     double bottom)
{
    if (group >= 1 && static_cast<std::size_t>(group) <= groups.size())
    {
        const SIZE size = ClientSize(window);
        groups[static_cast<std::size_t>(group) - 1]->SetProportional({left, top, right, bottom}, size.cx,
                                                                     size.cy);
    }
}

void CCtrlAutoMover::RemoveAllGroups()
{
    groups.clear();
}

LRESULT CCtrlAutoMover::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_GETMINMAXINFO:
        LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
        break;
    case WM_DESTROY:
        SavePlacement();
        break;
    case WM_SHOWWINDOW:
        if (wParam != FALSE)
        {
            RestorePlacement();
        }
        break;
    default:
        break;
    }
    const LRESULT answer = CWnd::HandleMessage(message, wParam, lParam);
    if (message == WM_SIZE && (wParam == SIZE_RESTORED || wParam == SIZE_MAXIMIZED))
    {
        Layout(LOWORD(lParam), HIWORD(lParam));
    }
    return answer;
}

void CCtrlAutoMover::LimitSize(MINMAXINFO& limits) const
{
    if (minWidth != noMinimum)
    {
        limits.ptMinTrackSize.x = minWidth;
    }
    if (minHeight != noMinimum)
    {
        limits.ptMinTrackSize.y = minHeight;
    }
}

void CCtrlAutoMover::SavePlacement() const
{
    if (keepPlacement && !section.empty() && GetHandle() != nullptr)
    {
        SaveWindowPlacement(GetHandle(), section.c_str());
    }
}

void CCtrlAutoMover::RestorePlacement()
{
    if (!placementRestored)
    {
        placementRestored = true; // maximising shows the window once more
        if (!section.empty())
        {
            RestoreWindowPlacement(GetHandle(), section.c_str());
        }
    }
}

void CCtrlAutoMover::Layout(int width, int height)
{
    std::vector<CtrlMove> moves;
    for (auto group = groups.rbegin(); group != groups.rend(); ++group)
    {
        (*group)->AppendMoves(GetHandle(), width, height, width - lastWidth, height - lastHeight, moves);
    }
    if (!MoveTogether(moves))
    {
        MoveOneByOne(moves);
    }
    lastWidth = width;
    lastHeight = height;
}
