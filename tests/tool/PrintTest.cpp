#include "app/services/Settings.h"
#include "dialogs/print/DocumentPrinter.h"
#include "dialogs/print/PrintSettings.h"
#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "print/CurrentPrinter.h"
#include "tests/support/FrameTest.h"
#include "tests/support/PdfText.h"
#include "tests/support/ThisSystem.h"

#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

constexpr int inch = 72; // points

struct Printed
{
    int status = -1;
    QByteArray out;
    QByteArray err;
};

/// The command beside the running editor, with the same settings.
class ToolPrint : public FrameTest
{
protected:
    ~ToolPrint() override
    {
        SharedPrintSettings = {};
        SaveUserFont(u"System"_s, 12, false, false);
        ListVisualState = {};
        SaveWindowSettings(2);
    }

    /// Runs the tool without a display; input is its standard input.
    static Printed tool(const QStringList &arguments, const QByteArray &input = {})
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const QString &name : {u"DISPLAY"_s, u"WAYLAND_DISPLAY"_s}) {
            environment.remove(name);
        }
        environment.insert(u"QT_QPA_PLATFORM"_s, ThisSystem::sessionPlatform()); // the session may have ended
        process.setProcessEnvironment(environment);
        process.start(QStringLiteral(TABRIX_TOOL), QStringList{u"print"_s, u"--language"_s, u"en"_s} + arguments);
        process.write(input);
        process.closeWriteChannel();
        EXPECT_TRUE(process.waitForFinished(-1));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
    }

    /// What the editor's print command makes of the file that is shown, without its dates.
    QByteArray printedByEditor(bool machine, bool parameters)
    {
        SharedPrintSettings.flags = {qint16(machine ? 1 : 0), qint16(parameters ? 1 : 0)};
        DocumentPrinter(&editor(), grid(), MachineInfos[docNo()], editor().document().title())
            .toPdf(path(u"editor.pdf"_s), CurrentPrinter::printer().pageLayout());
        const QByteArray bytes = withoutDates(readFile(path(u"editor.pdf"_s)));
        QFile::remove(path(u"editor.pdf"_s));
        return bytes;
    }
    QByteArray printedByTool(const QString &file, const QStringList &options = {})
    {
        const Printed run = tool(QStringList{file, u"-o"_s, path(u"tool.pdf"_s)} + options);
        EXPECT_EQ(run.status, 0) << run.err.constData();
        return withoutDates(readFile(path(u"tool.pdf"_s)));
    }
    QList<PdfPage> pages(const QString &file, const QStringList &options)
    {
        EXPECT_FALSE(printedByTool(file, options).isEmpty());
        return readPdf(path(u"tool.pdf"_s));
    }

    static QByteArray withoutDates(const QByteArray &pdf)
    {
        static const QRegularExpression date(u"/CreationDate \\(D:[^)]*\\)"_s);
        return QString::fromLatin1(pdf).remove(date).toLatin1();
    }

    /// A file whose texts need wrapped lines, several strips and many pages.
    QString bigFile()
    {
        QByteArray bytes = document(150);
        bytes.replace("Parameter 7,", QByteArray("A name that is longer than its column is wide ").repeated(3) + ',');
        bytes.replace("Parameter 9,", "\x93\x64\x88\xB3,"); // two characters of code page 932
        return writeFile(u"big.inv"_s, bytes);
    }
};

TEST_F(ToolPrint, makesTheEditorsPages)
{
    const QString file = bigFile();
    start(file);
    const QByteArray both = printedByEditor(true, true);
    ASSERT_TRUE(both.startsWith("%PDF"));
    EXPECT_TRUE(printedByTool(file) == both);
    EXPECT_TRUE(printedByTool(file, {u"--machine"_s, u"--parameters"_s}) == both);
    EXPECT_TRUE(printedByTool(file, {u"--machine"_s}) == printedByEditor(true, false));
    EXPECT_TRUE(printedByTool(file, {u"--parameters"_s}) == printedByEditor(false, true));
    EXPECT_GT(readPdf(path(u"tool.pdf"_s)).size(), 5);
}

TEST_F(ToolPrint, goesByTheUsersFontAndColumns)
{
    const QString file = bigFile();
    SaveUserFont(u"DejaVu Serif"_s, 9, true, false);
    ListVisualState = {};
    ListVisualState[2] = ListVisualState[4] = ListVisualState[5] = true;
    SaveWindowSettings(2);
    start(file);
    const QByteArray printed = printedByEditor(true, true);
    EXPECT_TRUE(printed.contains("DejaVuSerif"));
    EXPECT_TRUE(printedByTool(file) == printed);
}

TEST_F(ToolPrint, printsTheColumnsThatAreNamed)
{
    const QString file = writeFile(u"a.inv"_s, document(3));
    const QList<PdfPage> all = pages(file, {u"--parameters"_s, u"--columns"_s, u"name,number"_s});
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all[0].count(u"Pr"_s), 1);
    EXPECT_EQ(all[0].count(u"Name"_s), 1);
    EXPECT_EQ(all[0].count(u"Unit"_s), 0);
    EXPECT_EQ(all[0].count(u"Setting"_s), 0);
}

TEST_F(ToolPrint, takesPaperAndOrientation)
{
    const QString file = writeFile(u"a.inv"_s, document(3));
    const QSizeF a5 = pages(file, {u"--machine"_s, u"--paper"_s, u"A5"_s})[0].size;
    EXPECT_NEAR(a5.width(), 148 / 25.4 * inch, 1);
    EXPECT_NEAR(a5.height(), 210 / 25.4 * inch, 1);
    const QSizeF letter = pages(file, {u"--machine"_s, u"--paper"_s, u"Letter"_s, u"--landscape"_s})[0].size;
    EXPECT_NEAR(letter.width(), 11 * inch, 1);
    EXPECT_NEAR(letter.height(), 8.5 * inch, 1);
}

TEST_F(ToolPrint, takesStandardInputAndWritesToStandardOutput)
{
    const Printed run = tool({u"-"_s}, document(3));
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_TRUE(run.out.startsWith("%PDF"));
}

TEST_F(ToolPrint, writesNothingIfItCannotPrint)
{
    const QString out = path(u"out.pdf"_s);
    const QString file = writeFile(u"a.inv"_s, document(3));
    const QString broken = writeFile(u"broken.inv"_s, "no parameter file");
    const QStringList wrong[] = {{broken, u"-o"_s, out}, {path(u"none.inv"_s), u"-o"_s, out},
        {file, u"-o"_s, out, u"--paper"_s, u"A9"_s}, {file, u"-o"_s, out, u"--columns"_s, u"colour"_s}, {u"-o"_s, out}};
    for (const QStringList &arguments : wrong) {
        const Printed run = tool(arguments);
        EXPECT_EQ(run.status, 2) << arguments.join(u' ').toStdString();
        EXPECT_TRUE(run.err.startsWith("tabrix-tool: ")) << run.err.constData();
    }
    const Printed missing = tool({file, u"-o"_s, path(u"no/folder/out.pdf"_s)});
    EXPECT_EQ(missing.status, 2);
    EXPECT_TRUE(missing.err.contains("cannot be written")) << missing.err.constData();
    ListVisualState.fill(true);
    SaveWindowSettings(2);
    const Printed hidden = tool({file, u"-o"_s, out});
    EXPECT_EQ(hidden.status, 2);
    EXPECT_TRUE(hidden.err.startsWith("tabrix-tool: ")) << hidden.err.constData();
    EXPECT_FALSE(QFile::exists(out));
}

} // namespace
