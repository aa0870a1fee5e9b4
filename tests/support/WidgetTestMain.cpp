#include "tests/support/WidgetTestRun.h"

int main(int argc, char **argv)
{
    return runWidgetTests(argc, argv);
}
