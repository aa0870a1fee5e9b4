#include "print/PageText.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

static void PrintTo(const PageTextLine &line, std::ostream *out)
{
    *out << '[' << line.left.toStdString() << '|' << line.centre.toStdString() << '|' << line.right.toStdString()
         << ']';
}

namespace {

struct CodeCase
{
    QString codes;
    QList<PageTextLine> lines;
};

class PageTextCodes : public testing::TestWithParam<CodeCase>
{
};

TEST_P(PageTextCodes, areReplaced)
{
    EXPECT_EQ(PageText().addCodes(GetParam().codes).lines(7), GetParam().lines);
}

INSTANTIATE_TEST_SUITE_P(OnPageSeven, PageTextCodes,
    testing::Values(CodeCase{u""_s, {}}, CodeCase{u"plain"_s, {{u"plain"_s, {}, {}}}},
        CodeCase{u"/c /p"_s, {{{}, u" 7"_s, {}}}}, CodeCase{u"a/cb/rc"_s, {{u"a"_s, u"b"_s, u"c"_s}}},
        CodeCase{u"/cone/ntwo/lthree"_s, {{{}, u"one"_s, {}}, {u"three"_s, u"two"_s, {}}}},
        CodeCase{u"/lname/n"_s, {{u"name"_s, {}, {}}, {}}}, CodeCase{u"1//2"_s, {{u"1/2"_s, {}, {}}}},
        CodeCase{u"/x/"_s, {{u"/x/"_s, {}, {}}}}, CodeCase{u"/p/p"_s, {{u"77"_s, {}, {}}}}));

TEST(PageText, findsNoCodesInAText)
{
    PageText header;
    header.addCodes(u"/l").addText(u"File name:"_s).addText(u"/p&/n.inv"_s).addCodes(u"/n");
    EXPECT_EQ(header.lines(3), (QList<PageTextLine>{{u"File name:/p&/n.inv"_s, {}, {}}, {}}));
}

TEST(PageText, makesNoCodeOfATextThatFollowsASlash)
{
    EXPECT_EQ(PageText().addCodes(u"/").addText(u"page"_s).lines(1), (QList<PageTextLine>{{u"/page"_s, {}, {}}}));
}

TEST(PageText, keepsATextWithLineFeedsOnItsLine)
{
    EXPECT_EQ(PageText().addText(u"a\nb\rc"_s).lines(1), (QList<PageTextLine>{{u"a b c"_s, {}, {}}}));
}

} // namespace
