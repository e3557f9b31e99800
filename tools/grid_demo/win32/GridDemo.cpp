// Shows material files in the grid control: grid_demo.exe FILE.mat...
// The window can be resized and reopens where it was left.
#include "MaterialLibrary/MaterialLibrary.h"
#include "chooser/CMaterialFilter.h"
#include "chooser/win32/CMaterialGrid.h"
#include "framework/CModalScope.h"
#include "framework/CModuleState.h"
#include "framework/CWnd.h"
#include "framework/TextConversion.h"
#include "shared/CtrlAutoMover/win32/CCtrlAutoMover.h"

#include <shellapi.h>

namespace
{
constexpr int gridIdentifier = 1;
constexpr const wchar_t* frameClass = L"GridDemo";

enum DEMOCOMMAND : unsigned
{
    DEMOCOMMAND_DIELECTRICS = 101,
    DEMOCOMMAND_METALS = 102,
    DEMOCOMMAND_MICROMETRES = 103,
    DEMOCOMMAND_MILS = 104
};

class CGridDemo final : public CWnd
{
public:
    explicit CGridDemo(IMatLib& library) : grid(library) {}

    // False when the system makes no window.
    bool Open()
    {
        RegisterGridWindowClass();
        RegisterPlainWindowClass(frameClass);
        const int unit = GetSystemMetrics(SM_CXICON); // grows with the scaling of the screen
        const HWND frame = CreatePlainWindow({.className = frameClass,
                                              .title = L"Materials",
                                              .left = 0,
                                              .top = 0,
                                              .width = 28 * unit,
                                              .height = 14 * unit});
        if (frame == nullptr || !Attach(frame))
        {
            return false;
        }
        SetMenu(frame, MakeMenu());
        RECT area{};
        GetClientRect(frame, &area);
        const HWND control = CreatePlainWindow({.className = gridWindowClass,
                                                .title = L"Materials",
                                                .style = WS_CHILD | WS_VISIBLE,
                                                .left = 0,
                                                .top = 0,
                                                .width = area.right,
                                                .height = area.bottom,
                                                .parent = frame,
                                                .identifier = gridIdentifier});
        if (!grid.Attach(control))
        {
            return false;
        }
        const auto font = reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT));
        SetUp(MLMATERIAL_DIELECTRIC);
        SendMessageW(control, WM_SETFONT, font, TRUE);
        grid.SetUnits(MLUNITS_ENGLISH);
        mover = std::make_unique<CCtrlAutoMover>(this);
        mover->AddGroup(0, 1, 2, 3, {gridIdentifier});
        ShowWindow(frame, SW_SHOW);
        SetFocus(control);
        return true;
    }

    [[nodiscard]] const char* GetRuntimeClassName() const override { return "CGridDemo"; }

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        switch (message)
        {
        case WM_COMMAND:
            Choose(LOWORD(wParam));
            return 0;
        case WM_SETFOCUS:
            SetFocus(grid.GetHandle());
            return 0;
        case WM_DESTROY:
            PostQuitMessage(0);
            break;
        default:
            break;
        }
        return CWnd::HandleMessage(message, wParam, lParam);
    }

private:
    static HMENU MakeMenu()
    {
        const HMENU menu = CreateMenu(); // the window's
        AppendMenuW(menu, MF_STRING, DEMOCOMMAND_DIELECTRICS, L"&Dielectrics");
        AppendMenuW(menu, MF_STRING, DEMOCOMMAND_METALS, L"&Metals");
        AppendMenuW(menu, MF_STRING, DEMOCOMMAND_MICROMETRES, L"M&icrometres");
        AppendMenuW(menu, MF_STRING, DEMOCOMMAND_MILS, L"Mi&ls");
        return menu;
    }

    void SetUp(int kind)
    {
        filter = std::make_unique<CMaterialFilter>(kind, settings);
        grid.SetFilter(filter.get());
        grid.SetUp(kind);
    }

    void Choose(unsigned command)
    {
        switch (command)
        {
        case DEMOCOMMAND_DIELECTRICS:
            SetUp(MLMATERIAL_DIELECTRIC);
            break;
        case DEMOCOMMAND_METALS:
            SetUp(MLMATERIAL_METAL);
            break;
        case DEMOCOMMAND_MICROMETRES:
            grid.SetUnits(MLUNITS_METRIC);
            break;
        case DEMOCOMMAND_MILS:
            grid.SetUnits(MLUNITS_ENGLISH);
            break;
        default:
            break;
        }
    }

    ChooserFilterSettings settings = GetChooserFilterSettings();
    std::unique_ptr<CMaterialFilter> filter;
    CMaterialGrid grid;
    std::unique_ptr<CCtrlAutoMover> mover;
};

// The arguments as the library takes its files.
std::string ListFiles()
{
    std::string files;
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 1; i < count; ++i)
    {
        files += ToMultibyte(arguments[i]) + ";";
    }
    LocalFree(arguments);
    return files;
}

void RunMessages()
{
    CModalScope scope;
    MSG message{};
    while (!scope.HasException() && GetMessageW(&message, nullptr, 0, 0) > 0)
    {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    scope.RaiseKept();
}
} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int)
{
    OwnModuleState().instance = instance;
    OwnModuleState().applicationName = "GridDemo";
    OwnModuleState().registryKey = "Corvane";
    IMatLib* const library = CreateMaterialLibrary(ListFiles().c_str());
    int result = 1;
    {
        CGridDemo demo(*library);
        if (demo.Open())
        {
            RunMessages();
            result = 0;
        }
    }
    FreeMaterialLibrary(library);
    return result;
}
