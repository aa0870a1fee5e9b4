#include "help/HelpWindow.h"

#include "help/HelpBrowser.h"
#include "tests/help/HelpFile.h"
#include "tests/support/Controls.h"
#include "tests/support/Patience.h"
#include "tests/support/QtPrinters.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QHelpContentWidget>
#include <QHelpIndexWidget>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPrinter>
#include <QScrollBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>

#include <functional>

using namespace Qt::StringLiterals;

namespace {

QWidget *openWindow()
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == u"helpWindow") {
            return window;
        }
    }
    return nullptr;
}

class HelpWindowTest : public testing::Test
{
protected:
    void TearDown() override { delete openWindow(); }

    void show(int contextId = 1)
    {
        ASSERT_TRUE(HelpWindow::showTopic(helpFile(u"en"_s), contextId, nullptr));
        window = openWindow();
        ASSERT_NE(window, nullptr);
        browser = &control<HelpBrowser>(*window, u"helpBrowser"_s);
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window, patience));
    }

    QString page() const { return browser->source().fileName(); }

    QAction &action(const QString &name) const { return control<QAction>(*window, name); }

    QWidget *window = nullptr;
    HelpBrowser *browser = nullptr;
};

using Damage = std::function<void(QByteArray &)>;

QString damagedCopy(const QTemporaryDir &folder, const Damage &damage)
{
    QFile whole(helpFile(u"en"_s));
    EXPECT_TRUE(whole.open(QIODevice::ReadOnly));
    QByteArray bytes = whole.readAll();
    damage(bytes);
    QString name = folder.filePath(u"DAMAGED.HLP"_s);
    QFile damaged(name);
    EXPECT_TRUE(damaged.open(QIODevice::WriteOnly | QIODevice::Truncate));
    damaged.write(bytes);
    return name;
}

} // namespace

TEST_F(HelpWindowTest, showsThePageOfTheContextUnderItsTitle)
{
    show(50);
    EXPECT_EQ(page(), u"funccode.html"_s);
    EXPECT_EQ(window->windowTitle(), u"Functional list code dialog"_s);
    EXPECT_TRUE(browser->toPlainText().contains(u"Magnetic flux vector"_s));
}

TEST_F(HelpWindowTest, stylesTheFirstPageAndThoseAfterIt)
{
    show(50);
    EXPECT_EQ(browser->document()->begin().blockFormat().topMargin(), 14);
    show(60);
    EXPECT_EQ(browser->document()->begin().blockFormat().topMargin(), 14);
}

TEST_F(HelpWindowTest, drawsThePicturesOfTheToolBarForTheScreen)
{
    show(1);
    browser->setSource(browser->source().resolved(QUrl(u"frame.html"_s)));
    const QUrl picture = browser->source().resolved(QUrl(u"1010.svg"_s));
    const auto image = browser->loadResource(QTextDocument::ImageResource, picture).value<QImage>();
    EXPECT_EQ(image.deviceIndependentSize(), QSizeF(24, 24));
    EXPECT_EQ(image.devicePixelRatio(), browser->devicePixelRatio());
    EXPECT_NE(image, QImage(image.size(), image.format()));
    EXPECT_TRUE(image.pixelColor(0, 0).alpha() < 255);
}

TEST_F(HelpWindowTest, scalesPicturesOfWindowsToThePage)
{
    show(1);
    browser->setSource(browser->source().resolved(QUrl(u"frame.html"_s)));
    const auto width = [this] {
        const QVariant shown = browser->document()->resource(QTextDocument::ImageResource, QUrl(u"window-frame.png"_s));
        return shown.value<QImage>().width();
    };
    window->resize(1100, 700);
    const int whole = width();
    EXPECT_GT(whole, 500);
    EXPECT_EQ(browser->horizontalScrollBar()->maximum(), 0);
    window->resize(640, 480);
    EXPECT_LT(width(), whole);
    EXPECT_GT(width(), browser->viewport()->width() * 3 / 4);
    EXPECT_EQ(browser->horizontalScrollBar()->maximum(), 0);
    window->resize(1100, 700);
    EXPECT_EQ(width(), whole);
}

TEST_F(HelpWindowTest, usesTheSameWindowForTheNextTopic)
{
    show(50);
    QWidget *first = window;
    window->hide();
    show(60);
    EXPECT_EQ(window, first);
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(page(), u"conditions.html"_s);
    EXPECT_EQ(window->windowTitle(), u"Read condition dialog"_s);
}

TEST_F(HelpWindowTest, opensAgainAfterItWasClosed)
{
    show(50);
    const QPointer<QWidget> first = window;
    QTest::keyClick(window, Qt::Key_Escape);
    ASSERT_TRUE(QTest::qWaitFor([&] { return first.isNull(); }, patience));
    show(100);
    EXPECT_EQ(page(), u"machine.html"_s);
}

TEST_F(HelpWindowTest, changesTheLanguageWithTheFile)
{
    show(1);
    ASSERT_TRUE(HelpWindow::showTopic(helpFile(u"ja"_s), 100, nullptr));
    EXPECT_EQ(openWindow()->windowTitle(), u"機種情報ダイアログ"_s);
    EXPECT_EQ(control<QTabWidget>(*openWindow(), u"helpTabs"_s).tabText(0), u"目次"_s);
}

TEST_F(HelpWindowTest, opensAFileNamedRelativeToTheWorkingFolder)
{
    const QString name = QDir().relativeFilePath(helpFile(u"en"_s));
    ASSERT_TRUE(HelpWindow::showTopic(name, 50, nullptr));
    show(60);
    EXPECT_TRUE(action(u"helpback"_s).isEnabled()) << "one window for one file";
}

TEST_F(HelpWindowTest, walksBackAndForwardAndHome)
{
    show(50);
    EXPECT_FALSE(action(u"helpback"_s).isEnabled());
    show(60);
    QTest::keyClick(window, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(page(), u"funccode.html"_s);
    QTest::keyClick(window, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(page(), u"conditions.html"_s);
    EXPECT_FALSE(action(u"helpforward"_s).isEnabled());
    action(u"helphome"_s).trigger();
    EXPECT_EQ(page(), u"index.html"_s);
}

TEST_F(HelpWindowTest, followsALinkAndMarksItsPageInTheContents)
{
    show(1);
    auto &tree = control<QHelpContentWidget>(*window, u"helpContents"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tree.currentIndex().isValid(); }, patience));
    EXPECT_EQ(tree.currentIndex().data().toString(), u"Tabrix Help"_s);
    browser->moveCursor(QTextCursor::Start);
    browser->setFocus();
    QTest::keyClick(browser, Qt::Key_Tab);
    QTest::keyClick(browser, Qt::Key_Return);
    EXPECT_EQ(page(), u"first-steps.html"_s);
    EXPECT_EQ(tree.currentIndex().data().toString(), u"First steps"_s);
}

TEST_F(HelpWindowTest, opensThePageThatIsClickedInTheContents)
{
    show(1);
    auto &tree = control<QHelpContentWidget>(*window, u"helpContents"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return tree.currentIndex().isValid(); }, patience));
    const QModelIndex last = tree.model()->index(tree.model()->rowCount() - 1, 0);
    tree.scrollTo(last);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(last).center());
    EXPECT_EQ(page(), u"about.html"_s);
}

TEST_F(HelpWindowTest, opensThePositionThatTheIndexNames)
{
    show(1);
    control<QTabWidget>(*window, u"helpTabs"_s).setCurrentIndex(1);
    auto &index = control<QHelpIndexWidget>(*window, u"helpIndex"_s);
    ASSERT_TRUE(QTest::qWaitFor([&] { return index.model()->rowCount() > 0; }, patience));
    auto &filter = control<QLineEdit>(*window, u"helpIndexFilter"_s);
    QTest::keyClicks(&filter, u"add pas"_s);
    QTest::keyClick(&filter, Qt::Key_Return);
    EXPECT_EQ(page(), u"edit.html"_s);
    EXPECT_EQ(browser->source().fragment(), u"addpaste"_s);
}

TEST_F(HelpWindowTest, findsTextOnThePageAndGoesRound)
{
    show(50);
    auto &find = control<QLineEdit>(*window, u"helpFind"_s);
    QTest::keyClick(window, Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(find.hasFocus());
    QTest::keyClicks(&find, u"hexadecimal"_s);
    EXPECT_EQ(browser->textCursor().selectedText().toLower(), u"hexadecimal"_s);
    const int first = browser->textCursor().selectionStart();
    QTest::keyClick(&find, Qt::Key_Return);
    EXPECT_EQ(browser->textCursor().selectionStart(), first) << "the only place on the page";
    QTest::keyClicks(&find, u"xyz"_s);
    QTest::keyClick(&find, Qt::Key_Return);
    EXPECT_EQ(page(), u"funccode.html"_s);

    find.setText(u"code"_s);
    QTest::keyClick(window, Qt::Key_F3);
    const int second = browser->textCursor().selectionStart();
    QTest::keyClick(window, Qt::Key_F3);
    EXPECT_GT(browser->textCursor().selectionStart(), second);
    QTest::keyClick(window, Qt::Key_F3, Qt::ShiftModifier);
    EXPECT_EQ(browser->textCursor().selectionStart(), second);
}

TEST_F(HelpWindowTest, escapeInTheFindFieldClosesTheFieldOnly)
{
    show(1);
    auto &find = control<QLineEdit>(*window, u"helpFind"_s);
    for (int time = 0; time < 2; ++time) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
        ASSERT_EQ(QApplication::focusWidget(), &find);
        EXPECT_TRUE(find.isVisible());
        QTest::keyClicks(&find, u"the"_s);
        QTest::keyClick(&find, Qt::Key_Escape);
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(QApplication::focusWidget(), browser);
        QApplication::processEvents();
        EXPECT_FALSE(find.isVisible());
    }
    const int reached = browser->textCursor().position();
    QTest::keyClick(browser, Qt::Key_F3); // finds the next one nevertheless
    EXPECT_NE(browser->textCursor().position(), reached);
    show(50);
    EXPECT_TRUE(find.isVisible()) << "each call of the help offers it";
    QTest::keyClick(browser, Qt::Key_Escape);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(HelpWindowTest, printsThePage)
{
    show(50);
    const QTemporaryDir folder;
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(folder.filePath(u"page.pdf"_s));
    browser->print(&printer);
    EXPECT_GT(QFile(folder.filePath(u"page.pdf"_s)).size(), 1000);
}

TEST_F(HelpWindowTest, staysUsableBesideTheModalDialogThatCalledIt)
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&dialog, patience));
    ASSERT_TRUE(HelpWindow::showTopic(helpFile(u"en"_s), 1, &dialog));
    show(50);
    ASSERT_TRUE(HelpWindow::showTopic(helpFile(u"en"_s), 60, &dialog));
    QTest::keyClick(window->windowHandle(), Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ(page(), u"funccode.html"_s);
    dialog.accept();
    EXPECT_TRUE(window->isVisible());
}

TEST_F(HelpWindowTest, doesNotKeepTheProgramRunning)
{
    show(1);
    EXPECT_FALSE(window->testAttribute(Qt::WA_QuitOnClose));
}

TEST_F(HelpWindowTest, reportsAMissingFileAndShowsNothing)
{
    EXPECT_FALSE(HelpWindow::showTopic(u"/nowhere/TABRIX.HLP"_s, 1, nullptr));
    EXPECT_FALSE(HelpWindow::showTopic(QStringLiteral(TABRIX_HELP_FOLDER), 1, nullptr)) << "a folder";
    EXPECT_EQ(openWindow(), nullptr);
}

TEST_F(HelpWindowTest, reportsADamagedFileAndShowsNothing)
{
    const QTemporaryDir folder;
    const Damage damages[] = {
        [](QByteArray &bytes) { bytes.clear(); },
        [](QByteArray &bytes) { bytes = "This is no help file.\r\n"; },
        [](QByteArray &bytes) { bytes.truncate(1000); },
        [](QByteArray &bytes) { bytes.replace(0, 16, QByteArray(16, '\0')); },
        [](QByteArray &bytes) { bytes.fill('x').prepend(QByteArray("SQLite format 3\0", 16)); },
    };
    for (const auto &damage : damages) {
        EXPECT_FALSE(HelpWindow::showTopic(damagedCopy(folder, damage), 1, nullptr));
        EXPECT_EQ(openWindow(), nullptr);
    }
}

TEST_F(HelpWindowTest, survivesAnyDamageInTheMiddleOfTheFile)
{
    const QTemporaryDir folder;
    for (qsizetype part = 1; part < 16; ++part) {
        const auto overwrite = [part](QByteArray &bytes) {
            bytes.replace(bytes.size() / 16 * part, 4096, QByteArray(4096, '\xff'));
        };
        const auto cut = [part](QByteArray &bytes) { bytes.truncate(bytes.size() / 16 * part); };
        for (const Damage &damage : {Damage(overwrite), Damage(cut)}) {
            if (HelpWindow::showTopic(damagedCopy(folder, damage), 50, nullptr)) {
                EXPECT_FALSE(control<HelpBrowser>(*openWindow(), u"helpBrowser"_s).source().isEmpty());
                QApplication::processEvents();
                delete openWindow();
            }
        }
    }
}
