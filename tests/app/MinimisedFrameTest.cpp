// What a task bar does to the frame, under a window manager.

#include "app/services/Settings.h"
#include "document/DocumentTables.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMdiArea>
#include <QMessageBox>
#include <QProcess>
#include <QTest>

using namespace Qt::StringLiterals;

class MinimisedFrame : public FrameTest
{
protected:
    void SetUp() override
    {
        taskBar({u"await"_s});
        start();
        first = openChanged(u"first.inv"_s, 2);
        second = openChanged(u"second.inv"_s, 3);
    }

    /// Opens a file of its own and changes it; returns its full path.
    QString openChanged(const QString &name, int rows)
    {
        const QString file = writeFile(name, document(rows));
        EXPECT_TRUE(frame().documents().OpenPrFile(file));
        typeInto(2, 1, u"changed in "_s + name);
        return file;
    }
    static QByteArray changed(const QByteArray &name, int rows)
    {
        return document(rows).replace(",Parameter 1,", ",changed in " + name + ',');
    }
    void taskBar(const QStringList &arguments)
    {
        QProcess bar;
        bar.start(QStringLiteral(TABRIX_TASK_BAR), arguments);
        EXPECT_TRUE(bar.waitForFinished());
        EXPECT_EQ(bar.exitCode(), 0) << bar.readAllStandardError().toStdString();
    }
    QString frameWindow() { return QString::number(frame().winId()); }
    void iconify()
    {
        taskBar({u"iconify"_s, frameWindow()});
        ASSERT_TRUE(QTest::qWaitFor([this] { return frame().isMinimized(); }));
        // Only then the MDI area has heard of it as well.
        ASSERT_TRUE(QTest::qWaitFor([this] { return !frame().isActiveWindow(); }));
    }
    /// Answers the question whether a document is to be saved, which a frame in view asks.
    void answer(ModalScript &script, const QString &file, const QString &button)
    {
        script.then([=, this](QWidget &window) {
            const auto &box = dynamic_cast<QMessageBox &>(window);
            EXPECT_EQ(box.text(), file + u" is update.\nSave?"_s);
            EXPECT_FALSE(frame().isMinimized());
            EXPECT_EQ(editor().windowTitle(), file) << "the window in question is in front";
            QTest::mouseClick(&control<QAbstractButton>(window, button), Qt::LeftButton);
        });
    }
    void requestClose(const ModalScript &script, int questions)
    {
        taskBar({u"close"_s, frameWindow()});
        EXPECT_TRUE(QTest::qWaitFor([&] { return script.asked() == questions; }));
        EXPECT_TRUE(QTest::qWaitFor([&] { return !QApplication::activeModalWidget(); }));
    }

    QString first;
    QString second;
};

TEST_F(MinimisedFrame, asksAboutEachDocumentAndSavesEachIntoItsFile)
{
    iconify();
    ModalScript script;
    answer(script, first, u"cmdYes"_s);
    answer(script, second, u"cmdYes"_s);
    requestClose(script, 2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !frame().isVisible(); }));
    EXPECT_EQ(readFile(first), changed("first.inv", 2));
    EXPECT_EQ(readFile(second), changed("second.inv", 3));
    EXPECT_EQ(recentFiles().first(2), QStringList({second, first}));
}

TEST_F(MinimisedFrame, givesUpOnlyTheDocumentThatNoWasSaidOf)
{
    iconify();
    ModalScript script;
    answer(script, first, u"cmdNo"_s);
    answer(script, second, u"cmdYes"_s);
    requestClose(script, 2);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !frame().isVisible(); }));
    EXPECT_EQ(readFile(first), document(2));
    EXPECT_EQ(readFile(second), changed("second.inv", 3));
}

TEST_F(MinimisedFrame, isBackWithTheDocumentThatKeepsItOpen)
{
    iconify();
    ModalScript script;
    answer(script, first, u"cmdCancel"_s);
    requestClose(script, 1);
    EXPECT_FALSE(frame().isMinimized());
    EXPECT_TRUE(frame().isVisible());
    EXPECT_EQ(readFile(first), document(2));
    EXPECT_EQ(readFile(second), document(3));
    EXPECT_EQ(editor().windowTitle(), first);
    EXPECT_TRUE(QTest::qWaitFor([this] { return control<QLabel>(frame(), u"lblPrcount"_s).text() == u"2"_s; }));
}

TEST_F(MinimisedFrame, savesTheDocumentThatIsMeantWithItsOwnRowsAndName)
{
    iconify();
    frmPrFile &meant = *frame().openEditors().at(1);
    ASSERT_EQ(meant.windowTitle(), first);
    EXPECT_EQ(frame().documents().SavePrFile(meant, path(u"elsewhere.inv"_s)), SaveOutcome::Saved);
    EXPECT_EQ(readFile(path(u"elsewhere.inv"_s)), changed("first.inv", 2));
    EXPECT_EQ(meant.windowTitle(), path(u"elsewhere.inv"_s));
    EXPECT_EQ(frame().openEditors().at(2)->windowTitle(), second);
    EXPECT_FALSE(DocFlags[meant.document().number()].changed);
    EXPECT_TRUE(DocFlags[frame().openEditors().at(2)->document().number()].changed);
}
