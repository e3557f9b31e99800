// The stack-up of a small board, as a host of MaterialLibrary.dll shows it. A double-click on a layer, or
// Enter, opens the library's dialog for the layer's kind of material; the material that comes back fills the
// row, with Er and loss tangent at the frequency above the list.
//
//   stack_up.exe ["a.mat;b.mat"]       without files: the built-in samples
#include "MaterialLibrary/MaterialLibrary.h"

#include <windows.h>

#include <charconv>
#include <cmath>
#include <commctrl.h>
#include <cstdio>
#include <iterator>
#include <string>
#include <string_view>

namespace
{
struct Layer
{
    const char* name;
    MLMATERIALKIND kind;
    IMaterial* material = nullptr; // the library's, until FreeMaterialLibrary
};

Layer layers[] = {
    {"L1 signal", MLMATERIAL_METAL}, {"Prepreg 1-2", MLMATERIAL_DIELECTRIC},
    {"L2 ground", MLMATERIAL_METAL}, {"Core 2-3", MLMATERIAL_DIELECTRIC},
    {"L3 power", MLMATERIAL_METAL},  {"Prepreg 3-4", MLMATERIAL_DIELECTRIC},
    {"L4 signal", MLMATERIAL_METAL},
};

enum Column
{
    layerColumn,
    materialColumn,
    erColumn,
    lossTangentColumn
};

constexpr int frequencyEdit = 101;
constexpr int layerList = 102;

// The library in this process: the module stays loaded as long as its materials are used.
class CLibrary
{
public:
    explicit CLibrary(const char* files)
    {
        const HMODULE module = LoadLibraryA("MaterialLibrary.dll");
        const auto create = Resolve<MLCREATEMATERIALLIBRARY>(module, "CreateMaterialLibrary");
        release = Resolve<MLFREEMATERIALLIBRARY>(module, "FreeMaterialLibrary");
        if (create != nullptr && release != nullptr)
        {
            library = create(files);
        }
    }
    ~CLibrary()
    {
        if (library != nullptr)
        {
            release(library); // never "delete": the object belongs to the module
        }
    }
    CLibrary(const CLibrary&) = delete;
    CLibrary& operator=(const CLibrary&) = delete;

    [[nodiscard]] IMatLib* Get() const { return library; }

private:
    template <class Function>
    static Function Resolve(HMODULE module, const char* name)
    {
        return reinterpret_cast<Function>(reinterpret_cast<void (*)()>(GetProcAddress(module, name)));
    }

    IMatLib* library = nullptr;
    MLFREEMATERIALLIBRARY release = nullptr;
};

IMatLib* library = nullptr;

// The frequency in hertz that the user has typed in GHz; NaN when it is no number above 0.
double ReadFrequency(HWND window)
{
    char text[64] = {};
    GetDlgItemTextA(window, frequencyEdit, text, sizeof(text));
    double gigahertz = 0.0;
    const auto [end, error] = std::from_chars(text, text + std::string_view(text).size(), gigahertz);
    return error == std::errc() && *end == '\0' && gigahertz > 0.0 ? gigahertz * 1e9 : NAN;
}

std::string FormatProperty(const Layer& layer, MLTABLEKIND property, double frequency, const char* format)
{
    constexpr double temperature = 25.0; // °C
    double value = NAN;                  // stays as it is when the material has no such table
    if (layer.kind == MLMATERIAL_DIELECTRIC && layer.material != nullptr && std::isfinite(frequency))
    {
        layer.material->GetValue(property, frequency, &value, temperature);
    }
    char text[32] = "-";
    if (std::isfinite(value))
    {
        std::snprintf(text, sizeof(text), format, value);
    }
    return text;
}

void SetCell(HWND list, int row, Column column, std::string text)
{
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = text.data();
    SendMessageA(list, LVM_SETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void FillRows(HWND window)
{
    const HWND list = GetDlgItem(window, layerList);
    const double frequency = ReadFrequency(window);
    for (int row = 0; row < static_cast<int>(std::size(layers)); ++row)
    {
        const Layer& layer = layers[row];
        SetCell(list, row, layerColumn, layer.name);
        SetCell(list, row, materialColumn, layer.material != nullptr ? layer.material->GetName() : "(none)");
        SetCell(list, row, erColumn, FormatProperty(layer, MLTABLE_ER, frequency, "%.3f"));
        SetCell(list, row, lossTangentColumn, FormatProperty(layer, MLTABLE_LOSS_TANGENT, frequency, "%.4f"));
    }
}

void ChooseMaterialOf(HWND window, int row)
{
    if (row < 0 || row >= static_cast<int>(std::size(layers)))
    {
        return;
    }
    Layer& layer = layers[row];
    // Null means cancelled or nothing assigned: the layer keeps what it has.
    if (IMaterial* const chosen = library->ChooseMaterial(layer.material, layer.kind))
    {
        layer.material = chosen;
        FillRows(window);
    }
}

int FindFocusedRow(HWND window)
{
    return static_cast<int>(
        SendDlgItemMessageA(window, layerList, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
}

void AddColumn(HWND list, Column column, const char* title, int width, int alignment)
{
    std::string text = title;
    LVCOLUMNA settings{};
    settings.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    settings.fmt = alignment;
    settings.cx = width;
    settings.pszText = text.data();
    SendMessageA(list, LVM_INSERTCOLUMNA, column, reinterpret_cast<LPARAM>(&settings));
}

HWND CreateControl(HWND window, const char* className, const char* text, DWORD style, RECT place,
                   int identifier)
{
    const HWND control =
        CreateWindowExA(0, className, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                        place.right - place.left, place.bottom - place.top, window,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(identifier)), nullptr, nullptr);
    SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
    return control;
}

void CreateControls(HWND window)
{
    CreateControl(window, "STATIC", "&Frequency in GHz:", 0, {12, 15, 112, 32}, -1);
    CreateControl(window, "EDIT", "2.5", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, {114, 12, 184, 33},
                  frequencyEdit);
    const HWND list = CreateControl(window, WC_LISTVIEWA, "",
                                    WS_BORDER | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS |
                                        LVS_NOSORTHEADER,
                                    {12, 44, 492, 232}, layerList);
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    AddColumn(list, layerColumn, "Layer", 100, LVCFMT_LEFT);
    AddColumn(list, materialColumn, "Material", 200, LVCFMT_LEFT);
    AddColumn(list, erColumn, "Er", 70, LVCFMT_RIGHT);
    AddColumn(list, lossTangentColumn, "Loss tangent", 90, LVCFMT_RIGHT);
    for (int row = 0; row < static_cast<int>(std::size(layers)); ++row)
    {
        LVITEMA item{};
        item.iItem = row;
        SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
    ListView_SetItemState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    FillRows(window);
    SetFocus(list);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_COMMAND:
        if (LOWORD(wParam) == frequencyEdit && HIWORD(wParam) == EN_CHANGE)
        {
            FillRows(window);
        }
        else if (LOWORD(wParam) == IDOK) // Enter
        {
            ChooseMaterialOf(window, FindFocusedRow(window));
        }
        return 0;
    case WM_NOTIFY:
        if (reinterpret_cast<const NMHDR*>(lParam)->code == LVN_ITEMACTIVATE)
        {
            ChooseMaterialOf(window, reinterpret_cast<const NMITEMACTIVATE*>(lParam)->iItem);
        }
        return 0;
    case WM_SETFOCUS: // the system gives it to the window when the library's dialog has gone
        SetFocus(GetDlgItem(window, layerList));
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

HWND CreateStackUpWindow()
{
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
    windowClass.lpszClassName = "StackUp";
    RegisterClassA(&windowClass);
    constexpr DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX;
    RECT place{0, 0, 504, 244};
    AdjustWindowRect(&place, style, FALSE);
    return CreateWindowExA(0, "StackUp", "Stack-up", style, CW_USEDEFAULT, CW_USEDEFAULT,
                           place.right - place.left, place.bottom - place.top, nullptr, nullptr, nullptr,
                           nullptr);
}
} // namespace

int main(int argc, char** argv)
{
    InitCommonControls();
    const CLibrary owner(argc > 1 ? argv[1] : nullptr);
    library = owner.Get();
    if (library == nullptr)
    {
        std::fprintf(stderr, "MaterialLibrary.dll belongs beside this program\n");
        return 1;
    }
    const HWND window = CreateStackUpWindow();
    CreateControls(window);
    ShowWindow(window, SW_SHOW);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
    {
        if (!IsDialogMessageA(window, &message))
        {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
    return 0;
}
