#include "tests/windows/PeerProgram.h"

TEST(Help, mayBeOpenOrOpeningWhenTheProgramEnds)
{
    for (int i = 0; i < 10; ++i) {
        PeerProgram program({QString::number(i % 5)});
        ASSERT_EQ(program.finish(), 0) << "round " << i;
    }
}
