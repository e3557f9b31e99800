#include "shared/MessageManager/FatalError.h"

#include "shared/MessageManager/ISystemMessageBox.h"

#include <cstdio>
#include <gmock/gmock.h>

namespace
{
class CPrintingBox final : public msg::ISystemMessageBox
{
public:
    int Show(msg::WindowHandle owner, const char* text, const char* caption, unsigned style) override
    {
        std::fprintf(stderr, "[%s] [%s] style %u owner %d\n", caption, text, style, owner != nullptr);
        return msg::answerOk;
    }

    [[nodiscard]] msg::WindowHandle FindMainWindow() override { return this; }
    [[nodiscard]] std::string GetApplicationName() override { return {}; }
    [[nodiscard]] std::string GetExecutablePath() override { return {}; }
};

TEST(FatalErrorDeathTest, TellsWhereAndEndsTheProcessWithCodeOne)
{
    using testing::AllOf;
    using testing::HasSubstr;
    EXPECT_EXIT(
        {
            CPrintingBox box;
            msg::ReplaceSystemMessageBox(&box);
            FatalError("..\\shared\\SizerGrip.cpp", 4000000000U);
        },
        testing::ExitedWithCode(1),
        AllOf(HasSubstr("[FATAL ERROR] [Line:4000000000,   File:..\\shared\\SizerGrip.cpp   File date:"),
              HasSubstr("] style 16 owner 0\n")));
}
} // namespace
