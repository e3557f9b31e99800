#include "shared/SizerGrip/win32/CSizerGrip.h"
#include "tests/CPixels.h"

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
        window.reset(CreatePlainWindow({.className = L"SizerGripTest",
                                        .style = WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                        .left = 10,
                                        .top = 10,
                                        .width = 300,
                                        .height = 200}));
        grip = std::make_unique<CSizerGrip>(window.get());
    }

    POINT Corner() const
    {
        RECT client{};
        GetClientRect(window.get(), &client);
        return {client.right, client.bottom};
    }

    LRESULT HitTest(int x, int y) const
    {
        POINT point{x, y};
        ClientToScreen(window.get(), &point);
        return SendMessageW(window.get(), WM_NCHITTEST, 0, MAKELPARAM(point.x, point.y));
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
        MoveWindow(window.get(), -200, -100, 350, 250, TRUE); // also with negative screen coordinates
    }
    grip.reset();
    EXPECT_EQ(HitTest(Corner().x - 1, Corner().y - 1), HTCLIENT);
}

TEST_F(SizerGrip, FollowsTheTheme)
{
    const auto readGrip = [&]
    {
        RedrawWindow(window.get(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        return ReadWindow(window.get(), {Corner().x - width, Corner().y - height, Corner().x, Corner().y});
    };
    const auto drawReference = [&](auto draw)
    {
        const CPixels pixels(width, height);
        RECT rect{0, 0, width, height};
        FillRect(pixels.GetContext(), &rect, GetSysColorBrush(COLOR_BTNFACE));
        draw(pixels.GetContext(), rect);
        return pixels.Read();
    };
    const CTheme theme(OpenThemeData(window.get(), L"SCROLLBAR"));
    ASSERT_TRUE(theme);
    const auto themed = drawReference([&](HDC dc, const RECT& rect)
                                      { DrawThemeBackground(theme.get(), dc, 10, 5, &rect, nullptr); });
    const auto classic = drawReference([](HDC dc, RECT& rect)
                                       { DrawFrameControl(dc, &rect, DFC_SCROLL, DFCS_SCROLLSIZEGRIP); });
    ASSERT_NE(themed, classic);

    EXPECT_EQ(readGrip(), themed);
    ASSERT_EQ(SetWindowTheme(window.get(), L" ", L" "), S_OK); // none; the window gets WM_THEMECHANGED
    EXPECT_EQ(readGrip(), classic);
    SetWindowTheme(window.get(), nullptr, nullptr);
    EXPECT_EQ(readGrip(), themed);
}
} // namespace
