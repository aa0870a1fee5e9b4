#include "tests/reliability/FaultyDisk.h"
#include "tests/support/FrameTest.h"
#include "tests/support/WidgetTestRun.h"

namespace {

/// Reaches what FrameTest keeps for its descendants.
class Documents : public FrameTest
{
public:
    using FrameTest::document;
};

} // namespace

int main(int argc, char **argv)
{
    FaultyDisk::setUp(Documents::document(2));
    return runWidgetTests(argc, argv);
}
