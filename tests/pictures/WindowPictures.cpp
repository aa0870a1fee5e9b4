// Not a test of its own: makes a picture of every window in both languages, at 12 and 20 points, light and dark, in the
// folder that TABRIX_PICTURES names, to be looked at, of a file in the folder that TABRIX_PICTURED names: paths and
// times show, and a release made again has the same pictures. scripts/pictures.sh runs it.

#include "app/services/Common.h"
#include "app/services/Language.h"
#include "app/services/Settings.h"
#include "desktop/FileDialog.h"
#include "desktop/Picture.h"
#include "editor/GridFont.h"
#include "editor/ParameterCells.h"
#include "editor/ParameterGrid.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "print/CurrentPrinter.h"
#include "runtime/Country.h"
#include "tests/accessibility/ControlWalk.h"
#include "tests/dialogs/DialogDriver.h"
#include "tests/dialogs/DialogOpeners.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

struct Look
{
    bool isJapanese;
    float fontSize;
    bool isDark;
};

QString nameOf(const Look &look)
{
    return u"%1-%2-%3"_s.arg(look.isJapanese ? u"ja"_s : u"en"_s)
        .arg(int(look.fontSize))
        .arg(look.isDark ? u"dark"_s : u"light"_s);
}

/// With what cannot be chosen in grey, as desktops have it.
QPalette darkDesktop()
{
    QPalette dark = darkPalette();
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        dark.setColor(QPalette::Disabled, role, QColor(127, 127, 127));
    }
    return dark;
}

class Pictures : public FrameTest, public testing::WithParamInterface<Look>
{
protected:
    Pictures() : m_formerPalette(QApplication::palette())
    {
        QApplication::setPalette(GetParam().isDark ? darkDesktop() : lightPalette());
        QApplication::setWindowIcon(Picture::programIcon());
        setCountryCode(GetParam().isJapanese ? 81 : 1);
    }
    ~Pictures() override { QApplication::setPalette(m_formerPalette); }

    void SetUp() override
    {
        SaveUserFont(u"DejaVu Sans"_s, GetParam().fontSize, false, false);
        qputenv("HOME", qgetenv("TABRIX_PICTURED")); // which file dialogs offer
        start(writePictured());
    }

    static QString pictured(const QString &name)
    {
        return QDir(qEnvironmentVariable("TABRIX_PICTURED")).filePath(name);
    }
    static QString writePictured()
    {
        QFile file(pictured(u"a.inv"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(document(30));
        EXPECT_TRUE(file.flush());
        EXPECT_TRUE(file.setFileTime({{2026, 4, 1}, {9, 30}}, QFileDevice::FileModificationTime));
        return file.fileName();
    }

    static void save(QWidget &window, const QString &name)
    {
        QApplication::processEvents();
        const QDir folder(qEnvironmentVariable("TABRIX_PICTURES"));
        EXPECT_TRUE(window.grab().save(folder.filePath(name + u'-' + nameOf(GetParam()) + u".png"_s)));
    }
    /// A picture of the modal window that open shows.
    static void saveModal(const QString &name, const std::function<void()> &open)
    {
        QTimer::singleShot(0, qApp, [name] {
            auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            EXPECT_TRUE(QTest::qWaitForWindowExposed(dialog));
            save(*dialog, name);
            dialog->reject();
        });
        open();
    }

private:
    QPalette m_formerPalette;
};

TEST_P(Pictures, ofTheFrame)
{
    grid().setTextColour({ParameterColumn::Name, 2, ParameterColumn::Name, 3}, QColor(changedCellColour));
    grid().setText(ParameterColumn::Name, 5, u"A name that is much too long for its column"_s);
    grid().setText(ParameterColumn::FactorySetting, 5, u"123456789.25"_s);
    grid().selectBlock({ParameterColumn::Name, 7, ParameterColumn::RangeCheck, 9});
    save(frame(), u"frame"_s);
}

TEST_P(Pictures, ofTheDialogs)
{
    for (const OpenedDialog &dialog : openedDialogs) {
        (GetParam().isJapanese ? useJapanese : useEnglish)();
        UserFont.FontSize = GetParam().fontSize;
        dialog.open([&dialog](QDialog &shown) {
            if (auto *memory = shown.findChild<QLabel *>(u"lblMemory"_s)) {
                memory->setText(ResString(Text::AboutMemory) + u"2097151KB"_s); // whoever takes the picture
            }
            save(shown, QString::fromLatin1(dialog.name));
            shown.reject();
        });
    }
}

TEST_P(Pictures, ofTheToolkitsDialogs)
{
    QWidget *window = &frame();
    const FileDialogSettings files{
        .defaultExtension = u"INV"_s, .filter = ResString(Text::OpenFilter), .filterIndex = 2, .folder = pictured({})};
    saveModal(u"open"_s, [&] { askForFileToOpen(window, files); });
    saveModal(u"save"_s, [&] { askForFileToSave(window, files); });
    saveModal(u"font"_s, [&] { chooseGridFont(grid()); });
    saveModal(u"printerSetup"_s, [&] {
        CurrentPrinter::showSetup(
            window, ResString(Text::PrintSetup), ResString(Text::Ok), ResString(Text::Cancel), pictured(u"a.pdf"_s));
    });
}

TEST_P(Pictures, ofTheMenus)
{
    for (const QAction *menu : frame().menuBar()->actions()) {
        menu->menu()->popup(frame().mapToGlobal(QPoint()));
        save(*menu->menu(), u"menu-"_s + menu->menu()->objectName());
        menu->menu()->close();
    }
}

TEST_P(Pictures, ofTheFindField)
{
    for (const QString &searched : {u"Parameter 1"_s, u"zebra"_s}) {
        pressKey(grid(), Qt::Key_F, Qt::ControlModifier);
        auto &field = control<QLineEdit>(editor(), u"txtFind"_s);
        field.clear();
        QTest::keyClicks(&field, searched);
        save(frame(), u"find-"_s + searched.section(u' ', 0, 0));
    }
}

TEST_P(Pictures, ofTheHelp)
{
    HelpFilePath =
        QStringLiteral(TABRIX_HELP_FOLDER "/") + (GetParam().isJapanese ? u"TABRIX.HLP"_s : u"TABRIXE.HLP"_s);
    ShowHelp(&frame(), 100); // in the user's font
    const auto windows = QApplication::topLevelWidgets();
    QWidget &help = **std::ranges::find(windows, u"helpWindow"_s, &QWidget::objectName);
    auto &contents = control<QAbstractItemView>(help, u"helpContents"_s);
    EXPECT_TRUE(QTest::qWaitFor([&] { return contents.currentIndex().isValid(); }, patience));
    save(help, u"help"_s);
    auto &tabs = control<QTabWidget>(help, u"helpTabs"_s);
    tabs.setCurrentIndex(1);
    save(help, u"helpIndex"_s);
    tabs.setCurrentIndex(2);
    control<QLineEdit>(help, u"helpSearchText"_s).setText(GetParam().isJapanese ? u"バックアップ"_s : u"backup"_s);
    auto &hits = control<QListWidget>(help, u"helpSearchHits"_s);
    QTest::mouseClick(hits.viewport(), Qt::LeftButton, {}, hits.visualItemRect(hits.item(1)).center());
    save(help, u"helpSearch"_s);
    delete &help;
}

INSTANTIATE_TEST_SUITE_P(, Pictures,
    testing::ValuesIn(std::vector<Look>{
        {false, 12, false},
        {false, 12, true},
        {false, 20, false},
        {false, 20, true},
        {true, 12, false},
        {true, 12, true},
        {true, 20, false},
        {true, 20, true},
    }),
    [](const auto &look) { return nameOf(look.param).replace(u'-', u'_').toStdString(); });

} // namespace
