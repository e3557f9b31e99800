#include "shared/Translation/CTranslator.h"
#include "shared/Translation/Translate.h"
#include "tests/fakes/CFakeModuleLoader.h"

#include <gmock/gmock.h>
#include <string>
#include <vector>

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> calls;

class Translator : public testing::Test
{
protected:
    Translator()
    {
        calls.clear();
        const auto neverCalled = [] { ADD_FAILURE() << "an entry point that is only looked for was called"; };
        loader.modules["gettext64.dll"] = {
            {"mgettext", AsEntryPoint(+[](const char* domain, const char* original)
                                      {
                                          Note("mgettext", domain, original);
                                          return "Verlustfaktor";
                                      })},
            {"LoadTranslationFile", AsEntryPoint(+[](const char* domain, const char* catalogue)
                                                 { Note("LoadTranslationFile", domain, catalogue); })},
            {"SelectLocale", neverCalled},
            {"GetSelectedLocaleDir", neverCalled},
            {"UpdateLocaleDir", [] { calls.emplace_back("UpdateLocaleDir"); }},
        };
    }

    static void Note(const std::string& name, const char* domain, const char* argument)
    {
        calls.push_back(name + " " + (domain != nullptr ? domain : "null") + " " + argument);
    }

    CFakeModuleLoader loader;
    CTranslator translator{loader};
    const char* const text = "Loss Tangent";
};

TEST_F(Translator, RegistersOnlyTheCatalogueOfTheFirstTranslation)
{
    EXPECT_STREQ(translator.TranslateFirst("D", "d.po", text), "Verlustfaktor");
    EXPECT_STREQ(translator.Translate("E", text), "Verlustfaktor");
    EXPECT_THAT(calls, ElementsAre("UpdateLocaleDir", "LoadTranslationFile D d.po", "mgettext D Loss Tangent",
                                   "mgettext E Loss Tangent"));
}

TEST_F(Translator, KeepsTheTextWhereTheModuleAnswersNull)
{
    loader.modules["gettext64.dll"]["mgettext"] =
        AsEntryPoint(+[](const char*, const char*) -> const char* { return nullptr; });
    EXPECT_EQ(translator.TranslateFirst("D", "d.po", text), text);
    EXPECT_EQ(translator.Translate("D", text), text);
}

TEST_F(Translator, RegistersNothingWithoutDomainOrCatalogue)
{
    loader.modules["gettext64.dll"].erase("UpdateLocaleDir");
    EXPECT_STREQ(translator.TranslateFirst("D", nullptr, text), "Verlustfaktor");
    EXPECT_STREQ(translator.TranslateFirst(nullptr, "d.po", text), "Verlustfaktor");
    EXPECT_THAT(calls, ElementsAre("mgettext D Loss Tangent", "mgettext null Loss Tangent"));
    EXPECT_EQ(loader.loads["gettext64.dll"], 1);
}

TEST_F(Translator, LeavesTextsAsTheyAreWithoutTheModule)
{
    loader.modules.clear();
    EXPECT_EQ(translator.Translate("D", text), text);
    EXPECT_THAT(loader.loads, IsEmpty()) << "only the first translation loads";
    EXPECT_EQ(translator.TranslateFirst("D", "d.po", text), text);
    EXPECT_EQ(translator.Translate("D", text), text);
    EXPECT_EQ(loader.loads["gettext64.dll"], 1);
}

TEST_F(Translator, CountsAModuleWithoutARequiredEntryPointAsAbsent)
{
    for (const char* missing : {"mgettext", "LoadTranslationFile", "SelectLocale", "GetSelectedLocaleDir"})
    {
        CFakeModuleLoader incomplete = loader;
        incomplete.modules["gettext64.dll"].erase(missing);
        CTranslator withoutIt(incomplete);
        calls.clear();
        EXPECT_EQ(withoutIt.TranslateFirst("D", "d.po", text), text) << missing;
        EXPECT_THAT(calls, ElementsAre("UpdateLocaleDir")) << missing;
    }
}

TEST(Translate, ReplacesItselfAtTheFirstCallAndGivesTheTextBack)
{
    const TranslateFunction first = translate;
    const char* const text = "Rough Factor";
    EXPECT_EQ(translate(moduleDomain, moduleCatalogue, text), text);
    const TranslateFunction steady = translate;
    EXPECT_NE(steady, first);
    EXPECT_EQ(translate(sharedDomain, sharedCatalogue, text), text);
    EXPECT_EQ(translate, steady);
}
} // namespace
