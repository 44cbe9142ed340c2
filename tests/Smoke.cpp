#include "Fixture.h"

using namespace quorrin;

TEST_F(Program, StartsWithABlankMap)
{
    EXPECT_EQ(window.myCharacters(20)->Number, 0);
    EXPECT_GT(window.MapText().size(), 1000u);
}
