#include "tests/tool/ToolProcess.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

TEST_F(ToolProcess, checkReadsPipes)
{
    put(u"outside.inv"_s, threeRows().replace(",6,3,1,1,0,30", ",31,3,1,1,0,30"));
    const ToolRun found = shell(u"mkfifo pipe && (cat outside.inv > pipe &) && $TOOL check pipe"_s);
    EXPECT_EQ(found.out,
        "pipe:1:9: warning: Parameter 1, \"Factory Setting\": 31 is outside its ranges 0-30. "
        "[factory-outside-ranges]\n");
}

TEST_F(ToolProcess, fullDisksAndClosedPipes)
{
    put(u"a.inv"_s, threeRows());
    if (QFile::exists(u"/dev/full"_s)) {
        const ToolRun full = shell(u"$TOOL show a.inv > /dev/full"_s);
        EXPECT_EQ(full.status, 2);
        EXPECT_TRUE(full.err.startsWith("tabrix-tool: The output cannot be written: ")) << full.err.constData();
    }
    const ToolRun closed = shell(u"($TOOL show a.inv; echo $? > status) | true"_s);
    EXPECT_EQ(closed.err, "");
    EXPECT_EQ(contentOf(u"status"_s), "0\n");
}

} // namespace
