#include "shared/MessageManager/ManagerStub.h"
#include "shared/Translation/Translate.h"
#include "tests/CollectedMessages.h"
#include "tests/fakes/CFakeModuleLoader.h"

#include <gmock/gmock.h>
#include <set>
#include <thread>
#include <utility>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

constexpr unsigned yesNo = 4;
constexpr int answerNo = 7;

struct CFakeRegistrator final : msg::IRegistrator
{
    std::set<std::string> suppressed;
    std::vector<std::string> remembered;

    void Remember(const char* id, int) override { remembered.emplace_back(id); }
    void Reserved1() override { ADD_FAILURE() << "reserved slot called"; }
    void Reserved2() override { ADD_FAILURE() << "reserved slot called"; }
    [[nodiscard]] bool IsSuppressed(const char* id) override { return suppressed.contains(id); }
};

// What the entry points of the handler module answer and how often they are asked.
struct FakeHandler
{
    msg::IManager* manager = nullptr;
    CFakeRegistrator* registrator = nullptr;
    bool enabled = true;
    int managerCalls = 0;
    int enabledCalls = 0;
};
FakeHandler fake;
std::vector<std::string> translations;

const char* NoteTranslation(const char* domain, const char* catalogue, const char* text)
{
    translations.push_back(std::string(domain) + " " + catalogue + " " + text);
    return text;
}

// A plain manager and the handler module that it may find.
class MessageManager : public testing::Test
{
protected:
    MessageManager()
    {
        fake = {.manager = &stub, .registrator = &registrator}; // any manager will do
        translations.clear();
        box.mainWindow = &mainWindow;
        box.answer = answerNo;
        const auto neverCalled = [] { ADD_FAILURE() << "an entry point that is only looked for was called"; };
        Module() = {
            {"GetMsgHandlerManager", AsEntryPoint(+[] { return ++fake.managerCalls, fake.manager; })},
            {"IsMsgHandlerEnabled", AsEntryPoint(+[] { return ++fake.enabledCalls, fake.enabled; })},
            {"SetMsgHandlerEnabled", neverCalled},
            {"SetMsgHandlerRegistrator", neverCalled},
            {"GetMsgHandlerRegistrator",
             AsEntryPoint(+[]() -> msg::IRegistrator* { return fake.registrator; })},
        };
    }
    void TearDown() override { translate = ownTranslate; }

    CFakeModuleLoader::EntryPoints& Module() { return loader.modules["MsgHandler.dll"]; }

    TranslateFunction ownTranslate = std::exchange(translate, NoteTranslation);
    int mainWindow = 0;
    int window = 0;
    CollectedMessages box;
    CFakeModuleLoader loader;
    CFakeRegistrator registrator;
    msg::CHandlerModule handler{loader};
    msg::ManagerStub stub{handler};
};

TEST_F(MessageManager, LoadsTheHandlerOnceAndAsksEveryTimeWhetherItIsEnabled)
{
    EXPECT_EQ(handler.FindRegistrator(), &registrator) << "a message to show once comes first";
    for (const bool enabled : {true, false, true})
    {
        fake.enabled = enabled;
        EXPECT_EQ(handler.FindEnabledManager(), enabled ? &stub : nullptr);
    }
    EXPECT_EQ(fake.enabledCalls, 3);
    EXPECT_EQ(fake.managerCalls, 1);
    EXPECT_EQ(loader.loads["MsgHandler.dll"], 1);
}

TEST_F(MessageManager, NeedsThreeEntryPointsOfTheHandlerAndItsManager)
{
    const auto expectNone = [this](const char* why)
    {
        msg::CHandlerModule absent(loader);
        EXPECT_EQ(absent.FindEnabledManager(), nullptr) << why;
        EXPECT_EQ(absent.FindEnabledManager(), nullptr) << why;
        EXPECT_EQ(absent.FindRegistrator(), nullptr) << why;
    };
    const CFakeModuleLoader complete = loader;
    for (const char* missing : {"GetMsgHandlerManager", "IsMsgHandlerEnabled", "SetMsgHandlerEnabled"})
    {
        Module().erase(missing);
        expectNone(missing);
        loader = complete;
    }
    EXPECT_EQ(fake.managerCalls, 0);
    fake.manager = nullptr;
    expectNone("no manager");
    fake.manager = &stub;
    loader = complete;
    Module().erase("GetMsgHandlerRegistrator");
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(handler.FindRegistrator(), nullptr);
        EXPECT_EQ(handler.FindEnabledManager(), &stub);
    }
    EXPECT_EQ(loader.loads["MsgHandler.dll"], 1);
    loader = {};
    msg::CHandlerModule withoutModule(loader);
    EXPECT_EQ(withoutModule.FindEnabledManager(), nullptr);
    EXPECT_EQ(withoutModule.FindEnabledManager(), nullptr);
    EXPECT_EQ(loader.loads["MsgHandler.dll"], 1) << "it is not looked for at every message";
    expectNone("no module");
}

TEST_F(MessageManager, AnswersEverySlot)
{
    msg::WindowHandle const w = &window;
    const int answers[] = {
        stub.Show(w, "t", 2, "text", "cap"),
        stub.ShowGeneric(w, 2, "text", "cap"),
        stub.ShowDefaultOwner("t", 2, "text", "cap"),
        stub.ShowGenericDefaultOwner(2, "text", "cap"),
        stub.ShowOnce(w, "i", "t", 2, "text", "cap", "c"),
        stub.ShowOnceGeneric(w, "i", 2, "text", "cap", "c"),
        stub.ShowOnceDefaultOwner("i", "t", 2, "text", "cap", "c"),
        stub.ShowOnceGenericDefaultOwner("i", 2, "text", "cap", "c"),
        stub.Ask(w, "t", 2, "text", yesNo, "cap"),
        stub.AskGeneric(w, 2, "text", yesNo, "cap"),
        stub.AskDefaultOwner("t", 2, "text", yesNo, "cap"),
        stub.AskGenericDefaultOwner(2, "text", yesNo, "cap"),
        stub.AskRemembered(w, "i", "t", 2, "text", yesNo, "cap", "c"),
        stub.AskRememberedGeneric(w, "i", 2, "text", yesNo, "cap", "c"),
        stub.AskRememberedDefaultOwner("i", "t", 2, "text", yesNo, "cap", "c"),
        stub.AskRememberedGenericDefaultOwner("i", 2, "text", yesNo, "cap", "c"),
    };
    ASSERT_EQ(box.boxes.size(), std::size(answers));
    for (std::size_t i = 0; i < std::size(answers); ++i)
    {
        SCOPED_TRACE("slot " + std::to_string(i + 1));
        const bool isShownOnce = i / 4 == 1;
        EXPECT_EQ(answers[i], isShownOnce ? 1 : answerNo);
        EXPECT_EQ(box.boxes[i].owner, i % 4 < 2 ? w : &mainWindow);
        EXPECT_EQ(box.boxes[i].text, "text");
        EXPECT_EQ(box.boxes[i].caption, "cap");
        EXPECT_EQ(box.boxes[i].style, (i < 8 ? 0 : yesNo) | msg::boxIconExclamation);
    }
    EXPECT_THAT(translations, IsEmpty()) << "every message brought its check text";
    stub.ShowGeneric(nullptr, 2, "text", "cap");
    EXPECT_EQ(box.boxes.back().owner, nullptr) << "an owner given as none stays none";

    int number = 4321;
    const auto read = [](void*, void*, void*, void* d) { return *static_cast<int*>(d); };
    EXPECT_EQ(stub.Invoke(read, nullptr, nullptr, nullptr, &number), 4321);
    EXPECT_TRUE(stub.Query18());
    EXPECT_EQ(stub.Query24(), 0);
}

TEST_F(MessageManager, ShowsTheIconOfTheSeverityInPlaceOfTheCallersIcon)
{
    constexpr unsigned yesNoSecondDefault = 0x104;
    const std::pair<unsigned, unsigned> rows[] = {{0, 0x40}, {1, 0x40}, {2, 0x30},         {3, 0x10},
                                                  {4, 0x10}, {5, 0x40}, {0xFFFFFFFF, 0x40}};
    for (const auto& [severity, icon] : rows)
    {
        stub.AskGenericDefaultOwner(severity, "text", yesNoSecondDefault | 0xF0, nullptr);
        EXPECT_EQ(box.boxes.back().style, yesNoSecondDefault | icon) << severity;
    }
}

TEST_F(MessageManager, CaptionsByCallerApplicationOrExecutable)
{
    const struct
    {
        const char* caption;
        const char* applicationName;
        const char* executablePath;
        const char* expected;
    } rows[] = {
        {"Stackup", "MaterialLibrary", "C:\\tool.exe", "Stackup"},
        {"", "MaterialLibrary", "C:\\tool.exe", ""},
        {nullptr, "MaterialLibrary", "C:\\tool.exe", "MaterialLibrary"},
        {nullptr, "", "C:\\bin\\tool.beta.exe", "tool.beta"},
        {nullptr, "", "C:\\bin.d\\tool", "tool"},
        {nullptr, "", "/usr/bin.d/matlib", "matlib"},
        {nullptr, "", "C:\\mixed/tool.exe", "tool"},
        {nullptr, "", "tool.exe", "tool"},
        {nullptr, "", "", ""},
    };
    for (const auto& row : rows)
    {
        box.applicationName = row.applicationName;
        box.executablePath = row.executablePath;
        stub.ShowGenericDefaultOwner(2, "text", row.caption);
        EXPECT_EQ(box.boxes.back().caption, row.expected) << row.executablePath;
    }
}

TEST_F(MessageManager, KeepsMessagesBackThatTheRegistratorSuppresses)
{
    registrator.suppressed = {"known"};
    EXPECT_EQ(stub.ShowOnceGeneric(&window, "known", 2, "text", nullptr, nullptr), 1);
    EXPECT_EQ(stub.ShowOnceDefaultOwner("known", "t", 2, "text", nullptr, nullptr), 1);
    EXPECT_THAT(box.boxes, IsEmpty());
    EXPECT_THAT(translations, IsEmpty());
    EXPECT_EQ(stub.ShowOnceGeneric(&window, "other", 2, "text", nullptr, nullptr), 1);
    EXPECT_EQ(stub.AskRememberedGeneric(&window, "known", 2, "text", yesNo, nullptr, nullptr), answerNo)
        << "questions are always asked";
    EXPECT_THAT(translations,
                ElementsAre("SHARED shared.po Don't show this message again",
                            "SHARED shared.po Remember answer and don't show this message box again"));
    fake.registrator = nullptr;
    EXPECT_EQ(stub.ShowOnceGenericDefaultOwner("known", 2, "text", nullptr, nullptr), 1);
    EXPECT_EQ(box.boxes.size(), 3U);
    EXPECT_THAT(registrator.remembered, IsEmpty()) << "the plain box offers no choice to remember";
}

TEST_F(MessageManager, LoadsTheHandlerOnceForTwoThreads)
{
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

TEST(PlatformMessageBox, KnowsTheProgram)
{
    msg::ISystemMessageBox& box = msg::GetPlatformMessageBox();
    EXPECT_NE(box.GetExecutablePath().find("message_manager_test"), std::string::npos);
    EXPECT_EQ(box.FindMainWindow(), nullptr);
    EXPECT_EQ(box.GetApplicationName(), "") << "no application object was initialised";
#ifndef _WIN32
    testing::internal::CaptureStderr();
    EXPECT_EQ(box.Show(nullptr, "text", "caption", 0x34), msg::answerOk);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "caption: text\n");
#endif
}
} // namespace
