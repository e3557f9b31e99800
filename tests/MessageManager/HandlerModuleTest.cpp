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
    bool enabled;
    int managerCalls;
    int enabledCalls;
};
FakeHandler fake;

msg::IManager* GetManager()
{
    ++fake.managerCalls;
    return fake.manager;
}

bool IsEnabled()
{
    ++fake.enabledCalls;
    return fake.enabled;
}

msg::IRegistrator* GetRegistrator()
{
    return fake.registrator;
}

void NeverCalled()
{
    ADD_FAILURE() << "an entry point that is only looked for was called";
}

class HandlerModule : public testing::Test
{
protected:
    HandlerModule()
    {
        fake = {.manager = &hostManager,
                .registrator = &registrator,
                .enabled = true,
                .managerCalls = 0,
                .enabledCalls = 0};
        loader.modules["MsgHandler.dll"] = {
            {"GetMsgHandlerManager", AsEntryPoint(GetManager)},
            {"IsMsgHandlerEnabled", AsEntryPoint(IsEnabled)},
            {"SetMsgHandlerEnabled", NeverCalled},
            {"SetMsgHandlerRegistrator", NeverCalled},
            {"GetMsgHandlerRegistrator", AsEntryPoint(GetRegistrator)},
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
    EXPECT_EQ(handler.FindEnabledManager(), &hostManager);
    fake.enabled = false;
    EXPECT_EQ(handler.FindEnabledManager(), nullptr);
    fake.enabled = true;
    EXPECT_EQ(handler.FindEnabledManager(), &hostManager);
    EXPECT_EQ(handler.FindRegistrator(), &registrator) << "also while no manager is asked for";
    EXPECT_EQ(fake.enabledCalls, 3);
    EXPECT_EQ(fake.managerCalls, 1);
    EXPECT_EQ(loader.loads["MsgHandler.dll"], 1);
}

TEST_F(HandlerModule, CountsAsAbsentWithoutAManager)
{
    for (const char* missing : {"GetMsgHandlerManager", "IsMsgHandlerEnabled", "SetMsgHandlerEnabled"})
    {
        CFakeModuleLoader incomplete = loader;
        incomplete.modules["MsgHandler.dll"].erase(missing);
        msg::CHandlerModule withoutIt(incomplete);
        EXPECT_EQ(withoutIt.FindEnabledManager(), nullptr) << missing;
        EXPECT_EQ(withoutIt.FindRegistrator(), nullptr) << missing;
    }
    fake.manager = nullptr;
    EXPECT_EQ(handler.FindEnabledManager(), nullptr);
    EXPECT_EQ(handler.FindRegistrator(), nullptr);
    EXPECT_EQ(fake.enabledCalls, 0);
}

TEST_F(HandlerModule, NeedsNoEntryPointOfTheRegistrator)
{
    loader.modules["MsgHandler.dll"].erase("SetMsgHandlerRegistrator");
    loader.modules["MsgHandler.dll"].erase("GetMsgHandlerRegistrator");
    EXPECT_EQ(handler.FindRegistrator(), nullptr);
    EXPECT_EQ(handler.FindEnabledManager(), &hostManager);
    EXPECT_EQ(handler.FindRegistrator(), nullptr);
    EXPECT_EQ(handler.FindEnabledManager(), &hostManager);
    EXPECT_EQ(fake.managerCalls, 1);
}

TEST_F(HandlerModule, MayBeMissingAndIsNotLookedForAtEveryMessage)
{
    loader.modules.clear();
    EXPECT_EQ(handler.FindEnabledManager(), nullptr);
    EXPECT_EQ(handler.FindEnabledManager(), nullptr);
    EXPECT_EQ(loader.loads["MsgHandler.dll"], 1);
    EXPECT_EQ(handler.FindRegistrator(), nullptr);
}

TEST_F(HandlerModule, IsLoadedByTheFirstMessageToShowOnce)
{
    EXPECT_EQ(handler.FindRegistrator(), &registrator);
    EXPECT_EQ(handler.FindEnabledManager(), &hostManager);
    EXPECT_EQ(loader.loads["MsgHandler.dll"], 1);
    EXPECT_EQ(fake.managerCalls, 1);
}
} // namespace
