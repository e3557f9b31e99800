#include "chart/win32/ChartPictures.h"

#include "chart/win32/CGdiCanvas.h"
#include "framework/Clipboard.h"
#include "framework/DrawingScopes.h"

#include <cstring>
#include <vector>

namespace
{
// Of a picture that was not finished.
struct CloseRecording
{
    void operator()(HDC recording) const noexcept { DeleteEnhMetaFile(CloseEnhMetaFile(recording)); }
};

void Draw(const ChartScene& scene, HFONT font, HDC target)
{
    const CSelectScope fontScope(target, font);
    CGdiCanvas canvas(target);
    PaintChart(scene, canvas);
}
} // namespace

CMetafile DrawMetafile(const ChartScene& scene, HFONT font)
{
    constexpr int hundredths = 100; // of a millimetre
    const CClientDC screen(nullptr);
    const auto toFrame = [&screen](int pixels, int millimetres, int allPixels)
    {
        return MulDiv(pixels, GetDeviceCaps(screen.Get(), millimetres) * hundredths,
                      GetDeviceCaps(screen.Get(), allPixels));
    };
    const RECT frame = {0, 0, toFrame(scene.client.right, HORZSIZE, HORZRES),
                        toFrame(scene.client.bottom, VERTSIZE, VERTRES)};
    CHandle<HDC, CloseRecording> recording(
        CreateEnhMetaFileW(screen.Get(), nullptr, &frame, L"MaterialLibrary\0Chart\0"));
    if (!recording)
    {
        return {};
    }
    Draw(scene, font, recording.get());
    return CMetafile(CloseEnhMetaFile(recording.release()));
}

CGlobalMemory DrawBitmap(const ChartScene& scene, HFONT font)
{
    BITMAPINFO format{};
    format.bmiHeader.biSize = sizeof format.bmiHeader;
    format.bmiHeader.biWidth = scene.client.right;
    format.bmiHeader.biHeight = scene.client.bottom;
    format.bmiHeader.biPlanes = 1;
    format.bmiHeader.biBitCount = 32;
    format.bmiHeader.biCompression = BI_RGB;
    void* pixels = nullptr;
    const CMemoryDC memory(CreateCompatibleDC(nullptr));
    const CBitmap bitmap(CreateDIBSection(memory.get(), &format, DIB_RGB_COLORS, &pixels, nullptr, 0));
    if (!memory || !bitmap)
    {
        return {};
    }
    const CSelectScope bitmapScope(memory.get(), bitmap.get());
    Draw(scene, font, memory.get());
    GdiFlush();
    const auto size = static_cast<std::size_t>(scene.client.right) *
                      static_cast<std::size_t>(scene.client.bottom) * sizeof(std::uint32_t);
    std::vector<std::byte> bytes(sizeof format.bmiHeader + size);
    std::memcpy(bytes.data(), &format.bmiHeader, sizeof format.bmiHeader);
    std::memcpy(bytes.data() + sizeof format.bmiHeader, pixels, size);
    return CopyToGlobalMemory(bytes);
}
