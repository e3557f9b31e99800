#include "shared/MessageManager/FatalError.h"

#include "tests/CPrintingBox.h"

#include <gmock/gmock.h>

namespace
{
TEST(FatalErrorDeathTest, TellsWhereAndEndsTheProcessWithCodeOne)
{
    using testing::AllOf;
    using testing::HasSubstr;
    EXPECT_EXIT(
        {
            const CPrintingBox box;
            FatalError("..\\shared\\SizerGrip.cpp", 4000000000U);
        },
        testing::ExitedWithCode(1),
        AllOf(HasSubstr("[FATAL ERROR] [Line:4000000000,   File:..\\shared\\SizerGrip.cpp   File date:"),
              HasSubstr("] style 16 owner 0\n")));
}
} // namespace
