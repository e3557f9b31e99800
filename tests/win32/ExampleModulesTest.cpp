// The example modules that a host may put beside itself.
#include "MaterialLibrary/IManager.h"
#include "tests/win32/CMessageBoxRobot.h"
#include "tests/win32/CModule.h"

#include <gmock/gmock.h>

namespace
{
std::string ExampleFolder(const char* name)
{
    char path[MAX_PATH] = {};
    GetFullPathNameA((std::string(ML_BINARY_DIR "/examples/") + name).c_str(), MAX_PATH, path, nullptr);
    return path;
}

template <class Function>
Function* FindFunction(HMODULE module, const char* name)
{
    return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

TEST(ExampleMessages, AskForARememberedAnswerOnce)
{
    constexpr const char* key = "Software\\Example host";
    RegDeleteTreeA(HKEY_CURRENT_USER, key);
    const HMODULE module = LoadLibraryA((ExampleFolder("messages") + "\\MsgHandler.dll").c_str());
    ASSERT_NE(module, nullptr);
    auto& manager = *FindFunction<msg::IManager*()>(module, "GetMsgHandlerManager")();
    auto& registrator = *FindFunction<msg::IRegistrator*()>(module, "GetMsgHandlerRegistrator")();
    const CMessageBoxRobot robot; // says OK: also to whether to remember
    for (int i = 0; i < 2; ++i)
    {
        EXPECT_EQ(manager.AskRememberedGeneric(nullptr, "overwrite", 2, "Overwrite it?", MB_OKCANCEL, "Host",
                                               "Remember?"),
                  IDOK);
    }
    EXPECT_THAT(robot.GetBoxes(),
                testing::ElementsAre("box Host (warning): Overwrite it?", testing::HasSubstr("Remember?")));
    EXPECT_TRUE(registrator.IsSuppressed("overwrite"));
    EXPECT_FALSE(registrator.IsSuppressed("delete"));
    RegDeleteTreeA(HKEY_CURRENT_USER, key);
    FreeLibrary(module);
}

TEST(ExampleTranslation, ReadsTheCatalogueOfTheUsersLanguage)
{
    const HMODULE module = LoadLibraryA((ExampleFolder("translation") + "\\gettext64.dll").c_str());
    ASSERT_NE(module, nullptr);
    const auto update = FindFunction<void()>(module, "UpdateLocaleDir");
    const auto load = FindFunction<void(const char*, const char*)>(module, "LoadTranslationFile");
    const auto translate = FindFunction<const char*(const char*, const char*)>(module, "mgettext");
    SetEnvironmentVariableA("LANGUAGE", "de_DE");
    update();
    load("MATERIALLIBARY.DLL", "MaterialLibrary.po");
    EXPECT_STREQ(translate("MATERIALLIBARY.DLL", "Loss Tangent"), "Verlustfaktor");
    EXPECT_STREQ(translate("MATERIALLIBARY.DLL", "MHz"), "MHz") << "the last of the file";
    EXPECT_STREQ(translate("MATERIALLIBARY.DLL", "Unheard of"), "Unheard of");
    EXPECT_STREQ(translate("SHARED", "Loss Tangent"), "Loss Tangent");
    SetEnvironmentVariableA("LANGUAGE", "xx");
    update();
    load("MATERIALLIBARY.DLL", "MaterialLibrary.po");
    EXPECT_STREQ(translate("MATERIALLIBARY.DLL", "Loss Tangent"), "Loss Tangent");
    SetEnvironmentVariableA("LANGUAGE", nullptr);
    FreeLibrary(module);
}
} // namespace
