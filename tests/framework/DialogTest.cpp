#include "framework/CDialog.h"
#include "framework/CHandle.h"
#include "framework/CModuleState.h"
#include "tests/CModalScript.h"

#include <functional>
#include <gmock/gmock.h>
#include <stdexcept>

namespace
{
const auto failed = testing::ThrowsMessage<std::runtime_error>("failed");

constexpr int firstEdit = 601;

// What throws in the code of a window at that message.
auto FailAt(UINT moment)
{
    return [moment](UINT message)
    {
        if (message == moment)
        {
            throw std::runtime_error("failed");
        }
    };
}

bool AreControlsThemed()
{
    HANDLE context = nullptr;
    GetCurrentActCtx(&context);
    ReleaseActCtx(context);
    return context != nullptr;
}

class CTestDialog final : public CDialog
{
public:
    CTestDialog() : CDialog(500) {}

    using CDialog::EndModal;

    std::function<void(UINT)> onMessage = [](UINT) {};

protected:
    bool OnInitDialog() override
    {
        onMessage(WM_INITDIALOG);
        return true;
    }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        onMessage(message);
        return CDialog::HandleMessage(message, wParam, lParam);
    }
};

class Dialog : public testing::Test
{
protected:
    Dialog()
    {
        RegisterPlainWindowClass(L"DialogTestHost");
        host.reset(
            CreatePlainWindow({.className = L"DialogTestHost", .style = WS_OVERLAPPEDWINDOW | WS_VISIBLE}));
        SetActiveWindow(host.get());
    }

    CWindowHandle host;
    CTestDialog dialog;
};

TEST_F(Dialog, BelongsToTheHostsActiveWindow)
{
    CModalScript script({[&]
                         {
                             EXPECT_EQ(GetWindow(dialog.GetHandle(), GW_OWNER), host.get());
                             EXPECT_FALSE(IsWindowEnabled(host.get()));
                             EXPECT_EQ(GetActiveWindow(), dialog.GetHandle());
                             EXPECT_EQ(GetFocus(), GetDlgItem(dialog.GetHandle(), firstEdit));
                             EXPECT_TRUE(AreControlsThemed());
                             dialog.EndModal(77);
                         }});
    EXPECT_EQ(dialog.DoModal(), 77);
    EXPECT_TRUE(script.IsDone());
    EXPECT_TRUE(IsWindowEnabled(host.get()));
    EXPECT_EQ(GetActiveWindow(), host.get());
    EXPECT_EQ(dialog.GetHandle(), nullptr);
    EXPECT_FALSE(AreControlsThemed());
}

TEST_F(Dialog, EndsByItsButtonsAndByTheCloseBox)
{
    const struct
    {
        UINT message;
        WPARAM parameter;
        int result;
    } rows[] = {{WM_COMMAND, IDOK, IDOK}, {WM_COMMAND, IDCANCEL, IDCANCEL}, {WM_CLOSE, 0, IDCANCEL}};
    for (const auto& row : rows)
    {
        CModalScript script({[&] { PostMessageW(dialog.GetHandle(), row.message, row.parameter, 0); }});
        EXPECT_EQ(dialog.DoModal(), row.result);
        EXPECT_TRUE(script.IsDone());
    }
}

TEST_F(Dialog, IsMadeFromTheTemplateOfTheCurrentStatesModule)
{
    CDialog missing(501);
    EXPECT_EQ(missing.DoModal(), -1);
    CModuleState other;
    other.instance = GetModuleHandleW(L"ntdll");
    const CModuleStateScope scope(other);
    EXPECT_EQ(dialog.DoModal(), -1);
    EXPECT_TRUE(IsWindowEnabled(host.get()));
}

TEST_F(Dialog, ExceptionsOfEveryMomentReachTheCaller)
{
    for (const UINT moment : {UINT{WM_INITDIALOG}, UINT{WM_SHOWWINDOW}, UINT{WM_PAINT}, UINT{WM_COMMAND},
                              UINT{WM_TIMER}, UINT{WM_DESTROY}, UINT{WM_NCDESTROY}})
    {
        dialog.onMessage = FailAt(moment);
        CModalScript script({[&] { PostMessageW(dialog.GetHandle(), WM_TIMER, 1, 0); },
                             [&] { PostMessageW(dialog.GetHandle(), WM_COMMAND, IDCANCEL, 0); }});
        EXPECT_THAT([&] { dialog.DoModal(); }, failed) << moment;
        EXPECT_EQ(dialog.GetHandle(), nullptr);
        EXPECT_TRUE(IsWindowEnabled(host.get()));
    }
}

TEST_F(Dialog, AnExceptionPassesThroughNestedDialogs)
{
    CTestDialog inner;
    inner.onMessage = FailAt(WM_INITDIALOG);
    dialog.onMessage = [&](UINT message) { message == WM_APP ? inner.DoModal() : 0; };
    CModalScript script({[&] { PostMessageW(dialog.GetHandle(), WM_APP, 0, 0); }});
    EXPECT_THAT([&] { dialog.DoModal(); }, failed);
    EXPECT_TRUE(script.IsDone());
}
} // namespace
