#include "runtime/FileName.h"

#include "runtime/CommandLine.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QUrl>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Name
{
    const char *what;
    QByteArray bytes;
    QString shown;
};

void PrintTo(const Name &name, std::ostream *out)
{
    *out << name.what;
}

class FileName : public testing::TestWithParam<Name>
{
};

} // namespace

TEST_P(FileName, keepsItsBytes)
{
    const QString name = fileNameFromBytes(GetParam().bytes);
    EXPECT_EQ(fileNameBytes(name), GetParam().bytes);
    EXPECT_EQ(shownFileName(name), GetParam().shown);
    EXPECT_EQ(QString::fromUtf8(name.toUtf8()), name); // so Qt, settings and recovery copies keep it too
}

TEST_P(FileName, comesThroughTheCommandLine)
{
    QByteArray bytes = GetParam().bytes;
    QByteArray second = "b.inv";
    char program[] = "tabrix";
    char *arguments[] = {program, bytes.data(), second.data()};
    EXPECT_EQ(fileNameBytes(commandLineText(2, arguments)), GetParam().bytes);
    EXPECT_EQ(fileNameBytes(commandLineText(3, arguments)), GetParam().bytes + " b.inv");
    EXPECT_EQ(commandLineText(1, arguments), QString());
}

TEST_P(FileName, comesThroughAnAddress)
{
    const QByteArray path = "/folder/" + GetParam().bytes;
    const QUrl url = QUrl::fromEncoded("file://" + path.toPercentEncoding("/"));
    EXPECT_EQ(fileNameBytes(fileNameFromUrl(url)), path);
}

INSTANTIATE_TEST_SUITE_P(Names, FileName,
    testing::ValuesIn(std::vector<Name>{
        {"Ascii", "a b%20.inv", u"a b%20.inv"_s},
        {"Utf8", "t\xc3\xa9st-\xe8\xa1\xa8.inv", u"tést-表.inv"_s},
        {"BeyondTheFirstPlane", "\xf0\x9f\x98\x80.inv", u"\U0001F600.inv"_s},
        {"Latin1", "caf\xe9.inv", u"caf\ufffd.inv"_s},
        {"ShiftJis", "\x95\x5c\x8e\xa6.inv", u"\ufffd\\\ufffd\ufffd.inv"_s},
        {"CutUtf8", "a\xe8\xa1", u"a\ufffd\ufffd"_s},
        {"CutUtf8InTheMiddle", "a\xe8\xa1z", u"a\ufffd\ufffdz"_s},
        {"OverlongUtf8", "\xc0\xaf", u"\ufffd\ufffd"_s},
        {"Surrogate", "\xed\xa0\x80", u"\ufffd\ufffd\ufffd"_s},
        {"NoFirstByte", "\xff\xfe\x80", u"\ufffd\ufffd\ufffd"_s},
        {"ByteOrderMark", "a\xef\xbb\xbfz", u"a\ufeffz"_s},
        {"APrivateCharacterOfOurs", "\xf4\x8f\xbb\xa9.inv", u"\ufffd\ufffd\ufffd\ufffd.inv"_s},
    }),
    [](const auto &test) { return std::string(test.param.what); });

TEST(FileNames, ofQtAreOurs)
{
    EXPECT_EQ(fileNameFromQt(u"/a/é表.inv"_s), u"/a/é表.inv"_s);
    const QString name = u"/a/\U0010FEE9.inv"_s; // itself if it comes from Qt, not a byte
    EXPECT_EQ(fileNameBytes(fileNameFromQt(name)), QFile::encodeName(name));
}

TEST(FileNames, everyByteIsKept)
{
    for (int first = 1; first < 256; ++first) {
        for (int second = 1; second < 256; ++second) {
            const QByteArray bytes = {1, char(first)};
            const QByteArray name = "x" + bytes + char(second);
            ASSERT_EQ(fileNameBytes(fileNameFromBytes(name)), name);
        }
    }
}
