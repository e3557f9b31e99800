#include "shared/MessageManager/CHandlerModule.h"
#include "shared/MessageManager/ManagerStub.h"
#include "tests/MessageManager/CFakeRegistrator.h"
#include "tests/fakes/CFakeModuleLoader.h"

#include <gtest/gtest.h>

namespace
{
struct FakeHandler
{
    msg::IManager* manager;
    CFakeRegistrator* registrator;
    bool enabled = true;
    int managerCalls = 0, enabledCalls = 0;
};
FakeHandler fake;

void NeverCalled()
{
    ADD_FAILURE() << "an entry point that is only looked for was called";
}

class HandlerModule : public testing::Test
{
protected:
    HandlerModule()
    {
        fake = {.manager = &hostManager, .registrator = &registrator};
        loader.modules["MsgHandler.dll"] = {
            {"GetMsgHandlerManager", AsEntryPoint(+[]
                                                  {
                                                      ++fake.managerCalls;
                                                      return fake.manager;
                                                  })},
            {"IsMsgHandlerEnabled", AsEntryPoint(+[]
                                                 {
                                                     ++fake.enabledCalls;
                                                     return fake.enabled;
                                                 })},
            {"SetMsgHandlerEnabled", NeverCalled},
            {"SetMsgHandlerRegistrator", NeverCalled},
            {"GetMsgHandlerRegistrator",
             AsEntryPoint(+[]() -> msg::IRegistrator* { return fake.registrator; })},
        };
    }

    CFakeModuleLoader loader;
    CFakeRegistrator registrator;
    msg::CHandlerModule handler{loader};
    msg::CHandlerModule noModule{loader};
    msg::ManagerStub hostManager{noModule}; // any manager will do
};

TEST_F(HandlerModule, IsLoadedOnceAndAskedEveryTimeWhetherItIsEnabled)
{
    EXPECT_EQ(handler.FindRegistrator(), &registrator) << "a message to show once comes first";
    EXPECT_EQ(handler.FindEnabledManager(), &hostManager);
    fake.enabled = false;
    EXPECT_EQ(handler.FindEnabledManager(), nullptr);
    fake.enabled = true;
    EXPECT_EQ(handler.FindEnabledManager(), &hostManager);
    EXPECT_EQ(fake.enabledCalls, 3);
    EXPECT_EQ(fake.managerCalls, 1);
    EXPECT_EQ(loader.loads["MsgHandler.dll"], 1);
}

TEST_F(HandlerModule, AsksForTheManagerOnceAlsoWithoutARegistrator)
{
    loader.modules["MsgHandler.dll"].erase("GetMsgHandlerRegistrator");
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(handler.FindRegistrator(), nullptr);
        EXPECT_EQ(handler.FindEnabledManager(), &hostManager);
    }
    EXPECT_EQ(fake.managerCalls, 1);
    for (const char* missing : {"GetMsgHandlerManager", "IsMsgHandlerEnabled", "SetMsgHandlerEnabled"})
    {
        CFakeModuleLoader incomplete = loader;
        incomplete.modules["MsgHandler.dll"].erase(missing);
        msg::CHandlerModule withoutIt(incomplete);
        EXPECT_EQ(withoutIt.FindEnabledManager(), nullptr) << missing;
    }
    EXPECT_EQ(fake.managerCalls, 1);
    fake.manager = nullptr;
    msg::CHandlerModule withoutManager(loader);
    EXPECT_EQ(withoutManager.FindEnabledManager(), nullptr);
    EXPECT_EQ(withoutManager.FindRegistrator(), nullptr);
}

TEST_F(HandlerModule, MayBeMissingAndIsNotLookedForAtEveryMessage)
{
    loader.modules.clear();
    EXPECT_EQ(handler.FindEnabledManager(), nullptr);
    EXPECT_EQ(handler.FindEnabledManager(), nullptr);
    EXPECT_EQ(loader.loads["MsgHandler.dll"], 1);
    EXPECT_EQ(handler.FindRegistrator(), nullptr);
}
} // namespace
