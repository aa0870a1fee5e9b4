#include "runtime/CommandLine.h"

#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Line
{
    const char *what;
    QString line;
    QStringList left; ///< what the toolkit leaves of the arguments
    QString text;
};

void PrintTo(const Line &line, std::ostream *out)
{
    *out << line.what;
}

class TypedLine : public testing::TestWithParam<Line>
{
};

} // namespace

TEST_P(TypedLine, isKeptAsItWasTyped)
{
    EXPECT_EQ(commandLineAsTyped(GetParam().line, GetParam().left), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Lines, TypedLine,
    testing::Values(Line{"nothing", u"tabrix.exe"_s, {}, {}}, Line{"blanks only", u"tabrix.exe \t "_s, {}, {}},
        Line{"an empty line", {}, {}, {}},
        Line{"a name", uR"(tabrix.exe C:\a.inv)"_s, {uR"(C:\a.inv)"_s}, uR"(C:\a.inv)"_s},
        Line{"a quoted program", uR"("C:\Program Files\tabrix.exe"  C:\a.inv)"_s, {uR"(C:\a.inv)"_s}, uR"(C:\a.inv)"_s},
        Line{"a program without its second quote", uR"("C:\Program Files\tabrix.exe)"_s, {}, {}},
        Line{
            "a quoted program in a folder of that name", uR"("C:\x\"C:\a.inv)"_s, {uR"(C:\a.inv)"_s}, uR"(C:\a.inv)"_s},
        Line{
            "a space", uR"(tabrix.exe C:\two words.inv)"_s, {uR"(C:\two)"_s, u"words.inv"_s}, uR"(C:\two words.inv)"_s},
        Line{"a run of blanks", uR"(tabrix.exe  C:\two   words.inv  )"_s, {uR"(C:\two)"_s, u"words.inv"_s},
            uR"(C:\two   words.inv)"_s},
        Line{"quotes", uR"(tabrix.exe "C:\two words.inv")"_s, {uR"(C:\two words.inv)"_s}, uR"("C:\two words.inv")"_s},
        Line{"quotes within", uR"(tabrix.exe C:\"two  words".inv)"_s, {uR"(C:\two  words.inv)"_s},
            uR"(C:\"two  words".inv)"_s},
        Line{"a folder in quotes", uR"(tabrix.exe "C:\x\\" b)"_s, {uR"(C:\x\)"_s, u"b"_s}, uR"("C:\x\\" b)"_s},
        Line{"a quote that stays open", uR"(tabrix.exe "C:\a  b)"_s, {uR"(C:\a  b)"_s}, uR"("C:\a  b)"_s},
        Line{"a toolkit's option", uR"(tabrix.exe -style fusion C:\two   words.inv)"_s,
            {uR"(C:\two)"_s, u"words.inv"_s}, uR"(C:\two   words.inv)"_s},
        Line{"a toolkit's option at the end", uR"(tabrix.exe "C:\a  b.inv"  -style fusion)"_s, {uR"(C:\a  b.inv)"_s},
            uR"("C:\a  b.inv")"_s},
        Line{"a toolkit's option within", uR"(tabrix.exe C:\two -style fusion   words.inv)"_s,
            {uR"(C:\two)"_s, u"words.inv"_s}, uR"(C:\two   words.inv)"_s},
        Line{"a toolkit's quoted option", uR"(tabrix.exe "-style" "fu\"sion" "C:\a.inv")"_s, {uR"(C:\a.inv)"_s},
            uR"("C:\a.inv")"_s},
        Line{"a toolkit's options only", u"tabrix.exe -style fusion"_s, {}, {}},
        Line{"an option that is a name", u"tabrix.exe -a  -b"_s, {u"-a"_s, u"-b"_s}, u"-a  -b"_s},
        Line{"arguments that nobody knows", u"tabrix.exe a  b"_s, {u"c"_s}, u"a  b"_s}));
