#include "check/CheckTexts.h"
#include "check/FileCheck.h"
#include "check/SavedForm.h"
#include "document/PrFileCodec.h"
#include "runtime/AnsiText.h"
#include "tests/check/CheckedFiles.h"
#include "tests/document/RandomDocument.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << fileName.toStdString();
    return file.readAll();
}

QByteArray randomFile(quint32 seed, int codePage)
{
    RandomDocument random(seed, codePage == 932);
    Document document{random.machineInfo(), random.records(8), codePage};
    document.machine.Paramater = qint16(document.rows.size());
    return encodePrFile(document).bytes;
}

/// The bytes of an open and a save; empty if the file cannot be opened.
QByteArray openedAndSaved(const QByteArray &bytes, const AnsiCodePage &page)
{
    DecodedPrFile decoded = decodePrFile(bytes, page);
    if (!decoded.outcome) {
        return {};
    }
    decoded.document.rows.resize(decoded.document.machine.Paramater);
    const auto saved = savedForm(decoded.document);
    return saved ? encodePrFile(*saved).bytes : QByteArray();
}

bool saysThatASaveChangesIt(const Findings &findings)
{
    return std::ranges::any_of(findings, [](const Finding &finding) {
        return checkInfo(finding.id).severity == Severity::Error || finding.id == CheckId::LineDropped
            || finding.id == CheckId::SpelledOtherwise || finding.id == CheckId::LayoutDiffers
            || finding.id == CheckId::LastFieldOpen;
    });
}

TEST(SaveLaw, saysNothingAboutASaveOfWhatASaveGave)
{
    for (quint32 seed = 0; seed < 500; ++seed) {
        const AnsiCodePage &page = AnsiCodePage::page(seed % 2 == 0 ? 932 : 1252);
        const QByteArray bytes = randomFile(seed, page.number());
        ASSERT_EQ(openedAndSaved(bytes, page), bytes) << "seed " << seed;
        const Findings findings = checkFile(bytes, page, u"xt.inv"_s);
        const auto isOfSave = [](const Finding &finding) {
            return finding.id == CheckId::ValueChanged || finding.id == CheckId::RangeChanged
                || finding.id == CheckId::ConditionsChanged || finding.id == CheckId::LineDropped
                || finding.id == CheckId::SpelledOtherwise || finding.id == CheckId::LayoutDiffers;
        };
        EXPECT_TRUE(std::ranges::none_of(findings, isOfSave)) << "seed " << seed << "\n"
                                                              << namesOf(findings).constData();
    }
}

/// A few bytes exchanged for others that mean something in such a file
QByteArray damaged(QByteArray bytes, RandomDocument &random)
{
    constexpr QByteArrayView odd = ",\r\n\"0179-. =;[abM\x81\xFF";
    for (int i = 1 + random.number(3); i > 0; --i) {
        bytes[random.number(int(bytes.size()) - 1)] = odd[random.number(int(odd.size()) - 1)];
    }
    return bytes;
}

TEST(SaveLaw, saysSoWheneverASaveWouldGiveOtherBytes)
{
    RandomDocument random(7, false);
    int changed = 0;
    for (quint32 seed = 0; seed < 3000; ++seed) {
        const AnsiCodePage &page = AnsiCodePage::page(seed % 2 == 0 ? 932 : 1252);
        const QByteArray bytes = damaged(randomFile(seed, page.number()), random);
        if (openedAndSaved(bytes, page) != bytes) {
            ++changed;
            const Findings findings = checkFile(bytes, page, u"xt.inv"_s);
            EXPECT_TRUE(saysThatASaveChangesIt(findings)) << "seed " << seed << "\n"
                                                          << bytes.constData() << "\n"
                                                          << openedAndSaved(bytes, page).constData();
        }
    }
    EXPECT_GT(changed, 300); // else nothing was tested
}

TEST(SaveLaw, findsNoErrorInTheExamples)
{
    for (const QString &name : QDir(QStringLiteral(TABRIX_EXAMPLES_FOLDER)).entryList(QDir::Files)) {
        const QByteArray bytes = contentOf(QStringLiteral(TABRIX_EXAMPLES_FOLDER) + u'/' + name);
        const Findings findings = checkFile(bytes, pageOfBytes(bytes, AnsiCodePage::page(1252)), name);
        EXPECT_FALSE(saysThatASaveChangesIt(findings)) << name.toStdString() << "\n" << namesOf(findings).constData();
    }
}

TEST(SaveLaw, keepsTheDocumentedIdsAndTheChecksTheSame)
{
    const QByteArray documented = contentOf(QStringLiteral(TABRIX_DOCS_FOLDER "/checks.md"));
    int headings = 0;
    for (const QByteArray &line : documented.split('\n')) {
        if (line.startsWith("### ")) {
            ++headings;
            EXPECT_TRUE(checkNamed(QString::fromUtf8(line.sliced(4)))) << line.constData();
        }
    }
    for (const CheckText &text : checkTexts(CheckLanguage::English)) {
        const CheckInfo &info = checkInfo(text.id);
        EXPECT_TRUE(documented.contains("\n### " + QByteArray(info.name.data()) + "\n")) << info.name.data();
        for (const QStringView part : {text.explanation, text.example, text.remedy}) {
            EXPECT_TRUE(documented.contains(part.toUtf8())) << info.name.data();
        }
    }
    EXPECT_EQ(headings, int(checkInfos().size()));
}

} // namespace
