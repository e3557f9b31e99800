// All headers of the framework serve programs with UNICODE defined, as these tests are.
#include "framework/CHandle.h"
#include "framework/CModalScope.h"
#include "framework/CWnd.h"
#include "framework/DialogItems.h"
#include "framework/DrawingScopes.h"
#include "framework/ModuleResources.h"
#include "framework/WindowScopes.h"

#include <algorithm>
#include <array>
#include <functional>
#include <gmock/gmock.h>
#include <stdexcept>
#include <string>

namespace
{
using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr UINT testMessage = WM_APP + 1;
std::string seen; // the names of the objects that saw the test message, in that order

class CNamedWnd final : public CWnd
{
public:
    explicit CNamedWnd(char letter) : name(letter) {}

    std::function<void()> onTestMessage = [] {};
    bool isDeletedWithWindow = false;

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == testMessage)
        {
            seen += name;
            onTestMessage();
        }
        const LRESULT answer = CWnd::HandleMessage(message, wParam, lParam);
        if (message == WM_NCDESTROY && isDeletedWithWindow)
        {
            delete this;
        }
        return answer;
    }

private:
    char name;
};

LRESULT CALLBACK FirstProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == testMessage)
    {
        seen += '.';
        return 42;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

WNDPROC belowStranger = nullptr;
LRESULT CALLBACK StrangersProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == testMessage)
    {
        seen += 's';
    }
    return CallWindowProcW(belowStranger, window, message, wParam, lParam);
}

WNDPROC ProcedureOf(HWND window)
{
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
}

WNDPROC SetProcedure(HWND window, WNDPROC procedure)
{
    return reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure)));
}

class Wnd : public testing::Test
{
protected:
    Wnd()
    {
        RegisterPlainWindowClass(L"WndTest");
        window.reset(CreatePlainWindow({.className = L"WndTest"}));
        SetProcedure(window.get(), FirstProcedure);
    }

    std::string Send()
    {
        seen.clear();
        EXPECT_EQ(SendMessageW(window.get(), testMessage, 0, 0), 42);
        return seen;
    }

    CWindowHandle window;
};

TEST_F(Wnd, ObjectsLeaveAWindowInAnyOrder)
{
    std::string order = "abc";
    do
    {
        std::array<CNamedWnd, 3> objects{CNamedWnd('a'), CNamedWnd('b'), CNamedWnd('c')};
        for (CNamedWnd& object : objects)
        {
            ASSERT_TRUE(object.Attach(window.get()));
            EXPECT_FALSE(object.Attach(window.get())) << "attached already";
        }
        std::string left = "cba";
        for (const char leaving : order)
        {
            EXPECT_EQ(Send(), left + ".");
            objects[static_cast<std::size_t>(leaving - 'a')].Detach();
            std::erase(left, leaving);
        }
        EXPECT_EQ(Send(), ".");
        EXPECT_EQ(ProcedureOf(window.get()), &FirstProcedure);
    } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(Wnd, ObjectsLeaveWhileAMessageIsOnItsWay)
{
    for (std::size_t from = 0; from < 3; ++from)
    {
        for (std::size_t leaving = 0; leaving < 3; ++leaving)
        {
            std::array<CNamedWnd, 3> objects{CNamedWnd('a'), CNamedWnd('b'), CNamedWnd('c')};
            for (CNamedWnd& object : objects)
            {
                object.Attach(window.get());
            }
            objects[from].onTestMessage = [&] { objects[leaving].Detach(); };
            SendMessageW(window.get(), testMessage, 0, 0);
            objects[from].onTestMessage = [] {};
            std::string rest = "cba.";
            std::erase(rest, static_cast<char>('a' + leaving));
            EXPECT_EQ(Send(), rest) << from << " " << leaving;
        }
        EXPECT_EQ(ProcedureOf(window.get()), &FirstProcedure);
    }
}

TEST_F(Wnd, StaysBelowAStrangerWhoNeedsItsProcedure)
{
    CNamedWnd object('a');
    object.Attach(window.get());
    belowStranger = SetProcedure(window.get(), StrangersProcedure);
    EXPECT_EQ(Send(), "sa.");
    object.Detach();
    EXPECT_EQ(Send(), "s.");
    CNamedWnd another('b');
    another.Attach(window.get());
    EXPECT_EQ(Send(), "sb.");
    another.Detach();
    SetProcedure(window.get(), belowStranger);
    EXPECT_EQ(Send(), ".");
}

TEST_F(Wnd, ADestroyedWindowLeavesItsObjectsWithoutOne)
{
    CNamedWnd object('a');
    object.Attach(window.get());
    auto* const ownOwner = new CNamedWnd('b');
    ownOwner->isDeletedWithWindow = true;
    ownOwner->Attach(window.get());
    window.reset();
    EXPECT_EQ(object.GetHandle(), nullptr);
    object.Detach();
    EXPECT_FALSE(object.Attach(nullptr));
}

TEST_F(Wnd, ExceptionsAreKeptUntilTheLoopReturns)
{
    CNamedWnd object('a');
    object.Attach(window.get());
    object.onTestMessage = [] { throw std::runtime_error("first"); };
    CModalScope scope;
    EXPECT_EQ(SendMessageW(window.get(), testMessage, 0, 0), 0);
    object.onTestMessage = [] { throw std::runtime_error("second"); };
    SendMessageW(window.get(), testMessage, 0, 0);
    EXPECT_TRUE(scope.HasException());
    EXPECT_THAT([&] { scope.RaiseKept(); }, testing::ThrowsMessage<std::runtime_error>("first"));
    EXPECT_FALSE(scope.HasException());
    EXPECT_NO_THROW(scope.RaiseKept());
}

TEST(WndDeathTest, AnExceptionThatNobodyGetsEndsTheProcessAsHandedIn)
{
    CModalScope::SetUncaughtHandler([] { std::_Exit(77); });
    RegisterPlainWindowClass(L"WndTest");
    const CWindowHandle window(CreatePlainWindow({.className = L"WndTest"}));
    CNamedWnd object('a');
    object.Attach(window.get());
    object.onTestMessage = [] { throw std::runtime_error("nobody's"); };
    EXPECT_EXIT(SendMessageW(window.get(), testMessage, 0, 0), testing::ExitedWithCode(77), "");
}
} // namespace
