#include "framework/DrawingScopes.h"
#include "shared/SizerGrip/win32/CSizerGrip.h"
#include "tests/ReadPixels.h"

#include <gtest/gtest.h>
#include <memory>

namespace
{
class SizerGrip : public testing::Test
{
protected:
    SizerGrip()
    {
        RegisterPlainWindowClass(L"SizerGripTest", 0, GetSysColorBrush(COLOR_BTNFACE));
        window.Reset(CreatePlainWindow({.className = L"SizerGripTest",
                                        .style = WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                        .left = 10,
                                        .top = 10,
                                        .width = 300,
                                        .height = 200}));
        grip = std::make_unique<CSizerGrip>(window.Get());
    }

    POINT Corner() const
    {
        RECT client{};
        GetClientRect(window.Get(), &client);
        return {client.right, client.bottom};
    }

    LRESULT HitTest(int x, int y) const
    {
        POINT point{x, y};
        ClientToScreen(window.Get(), &point);
        return SendMessageW(window.Get(), WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y));
    }

    // The pixels around the grip after everything that is invalid was painted.
    int CountDrawnPixels() const
    {
        UpdateWindow(window.Get());
        const CClientDC dc(window.Get());
        const POINT corner = Corner();
        int drawn = 0;
        for (int x = corner.x - 40; x < corner.x; ++x)
        {
            for (int y = corner.y - 40; y < corner.y; ++y)
            {
                const bool isGrip = x >= corner.x - width && y >= corner.y - height;
                const bool isDrawn = GetPixel(dc.Get(), x, y) != GetSysColor(COLOR_BTNFACE);
                EXPECT_FALSE(isDrawn && !isGrip) << x << "," << y;
                drawn += isDrawn ? 1 : 0;
            }
        }
        return drawn;
    }

    const int width = GetSystemMetrics(SM_CXVSCROLL);
    const int height = GetSystemMetrics(SM_CYHSCROLL);
    CWindowHandle window;
    std::unique_ptr<CSizerGrip> grip;
};

TEST_F(SizerGrip, TheCornerResizesTheWindow)
{
    for (int round = 0; round < 2; ++round)
    {
        const POINT corner = Corner();
        EXPECT_EQ(HitTest(corner.x - 1, corner.y - 1), HTBOTTOMRIGHT);
        EXPECT_EQ(HitTest(corner.x - width, corner.y - height), HTBOTTOMRIGHT);
        EXPECT_EQ(HitTest(corner.x - width - 1, corner.y - 1), HTCLIENT);
        EXPECT_EQ(HitTest(corner.x - 1, corner.y - height - 1), HTCLIENT);
        MoveWindow(window.Get(), -200, -100, 350, 250, TRUE); // also with negative screen coordinates
    }
    grip.reset();
    EXPECT_EQ(HitTest(Corner().x - 1, Corner().y - 1), HTCLIENT);
}

TEST_F(SizerGrip, IsDrawnInTheCornerAndFollowsIt)
{
    const int themed = CountDrawnPixels();
    EXPECT_GT(themed, 5);
    MoveWindow(window.Get(), 10, 10, 330, 230, TRUE);
    EXPECT_EQ(CountDrawnPixels(), themed) << "nothing is left where it was before";
    MoveWindow(window.Get(), 10, 10, 300, 200, TRUE);
    EXPECT_EQ(CountDrawnPixels(), themed);
}

TEST_F(SizerGrip, FollowsTheTheme)
{
    const auto readGrip = [&]
    {
        RedrawWindow(window.Get(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        const CClientDC dc(window.Get());
        return ReadPixels(dc.Get(), {Corner().x - width, Corner().y - height, Corner().x, Corner().y});
    };
    const auto drawReference = [&](auto draw)
    {
        const CClientDC screen(window.Get());
        const CMemoryDC dc(CreateCompatibleDC(screen.Get()));
        const CBitmap bitmap(CreateCompatibleBitmap(screen.Get(), width, height));
        const CSelectScope selected(dc.Get(), bitmap.Get());
        RECT rect{0, 0, width, height};
        FillRect(dc.Get(), &rect, GetSysColorBrush(COLOR_BTNFACE));
        draw(dc.Get(), rect);
        return ReadPixels(dc.Get(), rect);
    };
    const CTheme theme(OpenThemeData(window.Get(), L"SCROLLBAR"));
    ASSERT_TRUE(theme);
    const auto themed = drawReference([&](HDC dc, const RECT& rect)
                                      { DrawThemeBackground(theme.Get(), dc, 10, 5, &rect, nullptr); });
    const auto classic = drawReference([](HDC dc, RECT& rect)
                                       { DrawFrameControl(dc, &rect, DFC_SCROLL, DFCS_SCROLLSIZEGRIP); });
    ASSERT_NE(themed, classic);

    EXPECT_EQ(readGrip(), themed);
    ASSERT_EQ(SetWindowTheme(window.Get(), L" ", L" "), S_OK); // none; the window gets WM_THEMECHANGED
    EXPECT_EQ(readGrip(), classic);
    SetWindowTheme(window.Get(), nullptr, nullptr);
    EXPECT_EQ(readGrip(), themed);
}
} // namespace
