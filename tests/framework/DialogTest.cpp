#include "framework/CDialog.h"
#include "framework/CHandle.h"
#include "framework/CModuleState.h"
#include "framework/DialogItems.h"
#include "tests/CModalScript.h"
#include "tests/CountHandles.h"

#include <functional>
#include <gmock/gmock.h>
#include <stdexcept>
#include <vector>

namespace
{
using testing::ThrowsMessage;

constexpr int firstEdit = 601;
constexpr int secondEdit = 602;
constexpr int combo = 603;
constexpr int check = 604;

class CTestDialog final : public CDialog
{
public:
    CTestDialog() : CDialog(500) {}

    using CDialog::EndModal;
    using CDialog::RefuseText;

    void PressEscape() const { PostMessageW(GetHandle(), WM_COMMAND, IDCANCEL, 0); }

    std::function<void()> onInit;
    std::function<void(UINT)> onMessage;
    std::vector<std::pair<int, unsigned>> commands;

protected:
    bool OnInitDialog() override
    {
        if (onInit)
        {
            onInit();
        }
        return true;
    }
    bool OnCommand(int control, unsigned code) override
    {
        commands.emplace_back(control, code);
        return CDialog::OnCommand(control, code);
    }
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (onMessage)
        {
            onMessage(message);
        }
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
                             dialog.EndModal(77);
                         }});
    EXPECT_EQ(dialog.DoModal(), 77);
    EXPECT_TRUE(script.IsDone());
    EXPECT_TRUE(IsWindowEnabled(host.get()));
    EXPECT_EQ(GetActiveWindow(), host.get());
    EXPECT_EQ(dialog.GetHandle(), nullptr);
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
    const auto fail = [] { throw std::runtime_error("failed"); };
    dialog.onInit = fail;
    EXPECT_THAT([&] { dialog.DoModal(); }, ThrowsMessage<std::runtime_error>("failed"));
    dialog.onInit = nullptr;

    for (const UINT moment : {UINT{WM_SHOWWINDOW}, UINT{WM_PAINT}, UINT{WM_COMMAND}, UINT{WM_TIMER},
                              UINT{WM_DESTROY}, UINT{WM_NCDESTROY}})
    {
        dialog.onMessage = [&](UINT message)
        {
            if (message == moment)
            {
                fail();
            }
        };
        CModalScript script(
            {[&] { PostMessageW(dialog.GetHandle(), WM_TIMER, 1, 0); }, [&] { dialog.PressEscape(); }});
        EXPECT_THAT([&] { dialog.DoModal(); }, ThrowsMessage<std::runtime_error>("failed")) << moment;
        EXPECT_EQ(dialog.GetHandle(), nullptr);
        EXPECT_TRUE(IsWindowEnabled(host.get()));
    }
}

TEST_F(Dialog, AnExceptionPassesThroughNestedDialogs)
{
    CTestDialog inner;
    inner.onInit = [] { throw std::runtime_error("inner"); };
    dialog.onMessage = [&](UINT message)
    {
        if (message == WM_APP)
        {
            inner.DoModal();
        }
    };
    CModalScript script({[&] { PostMessageW(dialog.GetHandle(), WM_APP, 0, 0); }});
    EXPECT_THAT([&] { dialog.DoModal(); }, ThrowsMessage<std::runtime_error>("inner"));
    EXPECT_TRUE(script.IsDone());
}

TEST_F(Dialog, ARefusedTextIsSelectedAndNobodyValidatesMeanwhile)
{
    const auto refuse = [&]
    {
        const HWND window = dialog.GetHandle();
        SetItemText(window, firstEdit, "1mm");
        SetFocus(GetDlgItem(window, secondEdit));
        dialog.commands.clear();
        dialog.RefuseText(firstEdit, [&] { SetFocus(nullptr); });
        EXPECT_EQ(GetFocus(), GetDlgItem(window, firstEdit));
        EXPECT_EQ(SendDlgItemMessageW(window, firstEdit, EM_GETSEL, 0, 0), MAKELONG(0, 3));
        EXPECT_THAT(dialog.commands, testing::IsEmpty());
        SetFocus(GetDlgItem(window, secondEdit));
        EXPECT_THAT(dialog.commands, testing::Contains(std::pair<int, unsigned>(firstEdit, EN_KILLFOCUS)));
        dialog.PressEscape();
    };
    CModalScript script({refuse});
    dialog.DoModal();
    EXPECT_TRUE(script.IsDone());
}

TEST_F(Dialog, EndedItNoLongerListensToItsControls)
{
    CModalScript script({[&]
                         {
                             SetFocus(GetDlgItem(dialog.GetHandle(), firstEdit));
                             dialog.commands.clear();
                             dialog.PressEscape();
                         }});
    dialog.DoModal();
    EXPECT_THAT(dialog.commands, testing::ElementsAre(std::pair<int, unsigned>(IDCANCEL, 0U)));
}

TEST_F(Dialog, ItemsKeepTextsChecksAndChoices)
{
    const std::string longText = "tab\t & \xB0 " + std::string(10000, 'x');
    dialog.onInit = [&]
    {
        const HWND window = dialog.GetHandle();
        EXPECT_EQ(GetItemText(window, 999), "");
        SetItemChecked(window, check, true);
        EXPECT_TRUE(IsItemChecked(window, check));
        EXPECT_FALSE(IsItemChecked(window, 999));
        AddComboItem(window, combo, "<All>", -1);
        EXPECT_EQ(GetComboData(window, combo, -7), -7);
        AddComboItem(window, combo, longText, 5);
        EXPECT_FALSE(SelectComboData(window, combo, 6));
        EXPECT_TRUE(SelectComboData(window, combo, 5));
        EXPECT_EQ(GetComboData(window, combo, 0), 5);
        EXPECT_EQ(GetItemText(window, combo), longText);
        dialog.EndModal(1);
    };
    EXPECT_EQ(dialog.DoModal(), 1);
}

TEST_F(Dialog, HundredsOfRoundsLeaveNothingBehind)
{
    dialog.onInit = [&] { dialog.EndModal(1); };
    ExpectRoundsLeaveNothingBehind(3, 200, [&](int) { dialog.DoModal(); });
}
} // namespace
