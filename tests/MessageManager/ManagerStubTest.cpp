#include "shared/MessageManager/ManagerStub.h"

#include "shared/Translation/Translate.h"
#include "tests/CollectedMessages.h"
#include "tests/MessageManager/CFakeRegistrator.h"
#include "tests/fakes/CFakeModuleLoader.h"

#include <functional>
#include <gmock/gmock.h>
#include <thread>
#include <utility>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned yesNo = 4;
constexpr int answerNo = 7;

std::vector<std::string> translations;

const char* NoteTranslation(const char* domain, const char* catalogue, const char* text)
{
    translations.push_back(std::string(domain) + " " + catalogue + " " + text);
    return text;
}

CFakeRegistrator* hostRegistrator = nullptr;
msg::IManager* hostManager = nullptr;

class ManagerStub : public testing::Test
{
protected:
    ManagerStub()
    {
        translations.clear();
        box.mainWindow = &mainWindow;
        box.answer = answerNo;
    }
    void TearDown() override { translate = ownTranslate; }

    void GiveRegistrator()
    {
        hostRegistrator = &registrator;
        hostManager = &stub;
        loader.modules["MsgHandler.dll"] = {
            {"GetMsgHandlerManager", AsEntryPoint(+[]() { return hostManager; })},
            {"IsMsgHandlerEnabled", AsEntryPoint(+[]() { return true; })},
            {"SetMsgHandlerEnabled", [] {}},
            {"GetMsgHandlerRegistrator",
             AsEntryPoint(+[]() -> msg::IRegistrator* { return hostRegistrator; })},
        };
    }

    TranslateFunction ownTranslate = std::exchange(translate, NoteTranslation);
    int mainWindow = 0;
    int window = 0;
    CollectedMessages box;
    CFakeModuleLoader loader;
    CFakeRegistrator registrator;
    msg::CHandlerModule handler{loader};
    msg::ManagerStub stub{handler};
};

using Call = std::function<int(msg::IManager&, msg::WindowHandle owner)>;

TEST_F(ManagerStub, ShowsEveryFormOfAMessage)
{
    const struct
    {
        Call call;
        bool owned;
        unsigned buttons;
        int answer;
    } rows[] = {
        {[](auto& m, auto w) { return m.Show(w, "t", 2, "text", "cap"); }, true, 0, answerNo},
        {[](auto& m, auto w) { return m.ShowGeneric(w, 2, "text", "cap"); }, true, 0, answerNo},
        {[](auto& m, auto) { return m.ShowDefaultOwner("t", 2, "text", "cap"); }, false, 0, answerNo},
        {[](auto& m, auto) { return m.ShowGenericDefaultOwner(2, "text", "cap"); }, false, 0, answerNo},
        {[](auto& m, auto w) { return m.ShowOnce(w, "i", "t", 2, "text", "cap", "c"); }, true, 0, 1},
        {[](auto& m, auto w) { return m.ShowOnceGeneric(w, "i", 2, "text", "cap", "c"); }, true, 0, 1},
        {[](auto& m, auto) { return m.ShowOnceDefaultOwner("i", "t", 2, "text", "cap", "c"); }, false, 0, 1},
        {[](auto& m, auto) { return m.ShowOnceGenericDefaultOwner("i", 2, "text", "cap", "c"); }, false, 0,
         1},
        {[](auto& m, auto w) { return m.Ask(w, "t", 2, "text", 4, "cap"); }, true, 4, answerNo},
        {[](auto& m, auto w) { return m.AskGeneric(w, 2, "text", 4, "cap"); }, true, 4, answerNo},
        {[](auto& m, auto) { return m.AskDefaultOwner("t", 2, "text", 4, "cap"); }, false, 4, answerNo},
        {[](auto& m, auto) { return m.AskGenericDefaultOwner(2, "text", 4, "cap"); }, false, 4, answerNo},
        {[](auto& m, auto w) { return m.AskRemembered(w, "i", "t", 2, "text", 4, "cap", "c"); }, true, 4, 7},
        {[](auto& m, auto w) { return m.AskRememberedGeneric(w, "i", 2, "text", 4, "cap", "c"); }, true, 4,
         7},
        {[](auto& m, auto) { return m.AskRememberedDefaultOwner("i", "t", 2, "text", 4, "cap", "c"); }, false,
         4, 7},
        {[](auto& m, auto) { return m.AskRememberedGenericDefaultOwner("i", 2, "text", 4, "cap", "c"); },
         false, 4, 7},
    };
    int slot = 1;
    for (const auto& row : rows)
    {
        SCOPED_TRACE(slot++);
        box.boxes.clear();
        EXPECT_EQ(row.call(stub, &window), row.answer);
        msg::WindowHandle const owner = row.owned ? &window : &mainWindow;
        ASSERT_EQ(box.boxes.size(), 1U);
        EXPECT_EQ(box.boxes[0].owner, owner);
        EXPECT_EQ(box.boxes[0].text, "text");
        EXPECT_EQ(box.boxes[0].caption, "cap");
        EXPECT_EQ(box.boxes[0].style, row.buttons | 0x30);
    }
    EXPECT_THAT(translations, IsEmpty()) << "every message brought its check text";
    stub.ShowGeneric(nullptr, 2, "text", "cap");
    EXPECT_EQ(box.boxes.back().owner, nullptr) << "an owner given as none stays none";
}

TEST_F(ManagerStub, AnswersTheOtherSlotsWithoutShowingAnything)
{
    int number = 4321;
    const auto read = [](void*, void*, void*, void* d) { return *static_cast<int*>(d); };
    EXPECT_EQ(stub.Invoke(read, nullptr, nullptr, nullptr, &number), 4321);
    EXPECT_TRUE(stub.Query18());
    EXPECT_EQ(stub.Query24(), 0);
    stub.Reserved17();
    stub.Reserved19();
    stub.Reserved20();
    stub.Reserved21();
    stub.Reserved22();
    stub.Reserved23();
    stub.Reserved25();
    EXPECT_THAT(box.boxes, IsEmpty());
}

TEST_F(ManagerStub, TranslatesTheCheckTextThatIsNotGiven)
{
    stub.ShowOnceGenericDefaultOwner("id", 2, "text", nullptr, nullptr);
    stub.AskRememberedGeneric(&window, "id", 2, "text", yesNo, nullptr, nullptr);
    EXPECT_THAT(translations,
                ElementsAre("SHARED shared.po Don't show this message again",
                            "SHARED shared.po Remember answer and don't show this message box again"));
}

TEST_F(ManagerStub, KeepsMessagesBackThatTheRegistratorSuppresses)
{
    GiveRegistrator();
    registrator.suppressed = {"known"};
    EXPECT_EQ(stub.ShowOnceGeneric(&window, "known", 2, "text", nullptr, nullptr), 1);
    EXPECT_EQ(stub.ShowOnceDefaultOwner("known", "t", 2, "text", nullptr, nullptr), 1);
    EXPECT_THAT(box.boxes, IsEmpty());
    EXPECT_THAT(translations, IsEmpty());
    EXPECT_EQ(stub.ShowOnceGeneric(&window, "other", 2, "text", nullptr, nullptr), 1);
    EXPECT_EQ(stub.AskRememberedGeneric(&window, "known", 2, "text", yesNo, nullptr, nullptr), answerNo)
        << "questions are always asked";
    EXPECT_EQ(box.boxes.size(), 2U);
    EXPECT_THAT(registrator.remembered, IsEmpty()) << "the plain box offers no choice to remember";
}

TEST_F(ManagerStub, ShowsOnceMessagesEveryTimeWithoutARegistrator)
{
    for (int i = 0; i < 3; ++i)
    {
        EXPECT_EQ(stub.ShowOnceGenericDefaultOwner("id", 2, "text", nullptr, nullptr), 1);
    }
    GiveRegistrator();
    hostRegistrator = nullptr;
    EXPECT_EQ(stub.ShowOnceGenericDefaultOwner("id", 2, "text", nullptr, nullptr), 1);
    EXPECT_EQ(box.boxes.size(), 4U);
}

TEST_F(ManagerStub, LoadsTheHandlerOnceForTwoThreads)
{
    GiveRegistrator();
    registrator.suppressed = {"id"};
    const auto show = [this]
    {
        for (int i = 0; i < 1000; ++i)
        {
            stub.ShowOnceGenericDefaultOwner("id", 2, "text", nullptr, nullptr);
        }
    };
    std::thread other(show);
    show();
    other.join();
    EXPECT_EQ(loader.loads["MsgHandler.dll"], 1);
}
} // namespace
