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
    EXPECT_TRUE(MachineInfos.contains(2) && MachineInfos.contains(3));
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

TEST(DocumentTables, keepTheFlagOfALostNumberOnly)
{
    resetDocumentTables();
    growDocumentTables(2);
    const MachineInfo *second = &MachineInfos[2];
    DocFlags[1].changed = true;
    forgetDocument(1);
    growDocumentTables(500);
    EXPECT_EQ(documentUpperBound(), 500);
    EXPECT_TRUE(DocFlags[1].changed);
    EXPECT_FALSE(MachineInfos.contains(1));
    EXPECT_EQ(&MachineInfos[2], second);
}

} // namespace
