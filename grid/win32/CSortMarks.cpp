#include "grid/win32/CSortMarks.h"

#include "framework/DrawingScopes.h"
#include "grid/win32/CMeasureScope.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <utility>

namespace
{
constexpr int markFlags = HDF_SORTUP | HDF_SORTDOWN | HDF_IMAGE | HDF_BITMAP_ON_RIGHT;

// A mark's parts in pixels: an arrow, half a gap of its height, and the digits of the rank.
struct MarkSize
{
    int arrow; // its height; it is nearly twice as wide
    int width;
    int height;

    MarkSize(HWND header, int ranks)
    {
        const CMeasureScope measure(header);
        const std::wstring digits = std::to_wstring(ranks);
        SIZE extent{};
        GetTextExtentPoint32W(measure.Get(), digits.c_str(), static_cast<int>(digits.size()), &extent);
        height = extent.cy;
        arrow = MulDiv(height, 3, 10);
        width = GetDigitsLeft() + extent.cx + 1;
    }

    [[nodiscard]] int GetDigitsLeft() const { return 2 * arrow - 1 + (arrow + 1) / 2; }
};

// A picture whose pixels carry their opacity.
class CMarkPicture
{
public:
    explicit CMarkPicture(const MarkSize& markSize) : size(markSize)
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof info.bmiHeader, size.width, -size.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* memory = nullptr;
        bitmap.reset(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &memory, nullptr, 0));
        if (bitmap != nullptr)
        {
            pixels = {static_cast<std::uint32_t*>(memory),
                      static_cast<std::size_t>(size.width * size.height)};
        }
    }

    void Draw(HFONT font, bool ascending, const std::wstring& rank)
    {
        std::ranges::fill(pixels, 0U);
        DrawDigits(font, rank);
        DrawArrow(ascending);
        const COLORREF colour = GetSysColor(COLOR_BTNTEXT);
        const std::uint32_t rgb = static_cast<std::uint32_t>(GetRValue(colour)) << 16 |
                                  static_cast<std::uint32_t>(GetGValue(colour)) << 8 | GetBValue(colour);
        for (std::uint32_t& pixel : pixels)
        {
            pixel = (pixel & 0x0000FF00) << 16 | rgb;
        }
    }

    [[nodiscard]] HBITMAP Get() const { return bitmap.get(); }

private:
    void DrawDigits(HFONT font, const std::wstring& rank)
    {
        const CMemoryDC memory(CreateCompatibleDC(nullptr));
        const CSelectScope bitmapScope(memory.get(), bitmap.get());
        const CSelectScope fontScope(memory.get(), font);
        SetTextColor(memory.get(), RGB(255, 255, 255));
        SetBkMode(memory.get(), TRANSPARENT);
        TextOutW(memory.get(), size.GetDigitsLeft(), 0, rank.c_str(), static_cast<int>(rank.size()));
        GdiFlush();
    }

    void DrawArrow(bool ascending)
    {
        const int top = (size.height - size.arrow) / 2;
        for (int line = 0; line < size.arrow && !pixels.empty(); ++line)
        {
            const int reach = ascending ? line : size.arrow - 1 - line; // to both sides of the tip
            const auto left = static_cast<std::size_t>((top + line) * size.width + size.arrow - 1 - reach);
            std::ranges::fill(pixels.subspan(left, static_cast<std::size_t>(2 * reach + 1)), 0x00FFFFFFU);
        }
    }

    MarkSize size;
    CBitmap bitmap;
    std::span<std::uint32_t> pixels; // of the bitmap, empty without memory for it
};

HIMAGELIST MakeImages(HWND header, std::span<const GridSortKey> keys)
{
    const auto ranks = static_cast<int>(keys.size());
    const MarkSize size(header, ranks);
    const HIMAGELIST images = ImageList_Create(size.width, size.height, ILC_COLOR32, ranks, 0);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(header, WM_GETFONT, 0, 0));
    CMarkPicture picture(size);
    for (int rank = 1; rank <= ranks; ++rank)
    {
        picture.Draw(font, keys[static_cast<std::size_t>(rank) - 1].ascending, std::to_wstring(rank));
        ImageList_Add(images, picture.Get(), nullptr);
    }
    return images;
}
} // namespace

void CSortMarks::Show(HWND header, std::vector<GridSortKey> keys, const std::vector<int>& columns)
{
    if (keys == shown)
    {
        return;
    }
    const bool ranked = keys.size() > 1;
    CHandle<HIMAGELIST, DestroyImageList> former = std::exchange(images, nullptr);
    if (ranked)
    {
        images.reset(MakeImages(header, keys));
    }
    SendMessageW(header, HDM_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images.get()));
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, i, reinterpret_cast<LPARAM>(&item));
        const int before = std::exchange(item.fmt, item.fmt & ~markFlags);
        const auto key = std::ranges::find(keys, columns[i], &GridSortKey::column);
        if (key != keys.end() && ranked)
        {
            item.mask |= HDI_IMAGE;
            item.iImage = static_cast<int>(key - keys.begin());
            item.fmt |= HDF_IMAGE | HDF_BITMAP_ON_RIGHT;
        }
        else if (key != keys.end())
        {
            item.fmt |= key->ascending ? HDF_SORTUP : HDF_SORTDOWN;
        }
        if (item.fmt != before || (item.mask & HDI_IMAGE) != 0)
        {
            SendMessageW(header, HDM_SETITEMW, i, reinterpret_cast<LPARAM>(&item));
        }
    }
    shown = std::move(keys);
}

int CSortMarks::GetWidth(HWND header)
{
    return MarkSize(header, 1).width + 2 * static_cast<int>(Header_GetBitmapMargin(header));
}
