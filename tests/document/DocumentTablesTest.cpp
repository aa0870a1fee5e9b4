#include "document/DocumentTables.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

TEST(DocumentTables, growTogetherAndKeepWhatTheyHold)
{
    resetDocumentTables();
    EXPECT_EQ(documentUpperBound(), 0);
    growDocumentTables(1);
    MachineInfos[1].Name = u"a"_s;
    DocFlags[1].changed = true;
    growDocumentTables(3);
    EXPECT_EQ(documentUpperBound(), 3);
    EXPECT_EQ(MachineInfos.size(), DocFlags.size());
    EXPECT_EQ(MachineInfos[1].Name, u"a"_s);
    EXPECT_TRUE(DocFlags[1].changed);
    EXPECT_EQ(DocFlags[3], DocFlag());
}

TEST(DocumentTables, neverShrink)
{
    resetDocumentTables();
    growDocumentTables(3);
    growDocumentTables(1);
    EXPECT_EQ(documentUpperBound(), 3);
}

} // namespace
