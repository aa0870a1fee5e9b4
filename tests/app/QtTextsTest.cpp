// Whatever comes on the screen is in the user's language, the toolkit's own dialogs, boxes and menus included.

#include "app/services/Language.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "resources/QtTextTable.h"
#include "runtime/Country.h"
#include "tests/app/ShownTexts.h"
#include "tests/support/FrameTest.h"
#include "tests/support/Patience.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFontDatabase>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QLocale>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTest>
#include <QTextBrowser>
#include <QTimer>
#include <QTranslator>
#include <QTreeView>

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace {

struct LanguageCase
{
    const char *name;
    int country;
    QRegularExpression otherLanguage;
};

void PrintTo(const LanguageCase &language, std::ostream *out)
{
    *out << language.name;
}

class Language : public FrameTest, public testing::WithParamInterface<LanguageCase>
{
protected:
    void SetUp() override
    {
        setCountryCode(GetParam().country);
        start(writeFile(u"a.inv"_s, document(300)));
    }

    /// What may be English in Japanese, and the other way round: names, and what files hold.
    QStringList names() const
    {
        QStringList names{path(u"."_s).chopped(2), QDir::homePath(), QFileInfo(QDir::homePath()).fileName()};
        // The program's and its files', then what has the same name everywhere: keys, formats, units, papers
        names << u"Tabrix"_s << u"Parameter "_s << u"missing"_s << u"inv"_s << u"ine"_s << u"Pr"_s << u"No"_s << u"ID"_s
              << u"All Files(*.*)"_s << u"Parameter Files(*.inv;*.ine)"_s;
        names << u"OK"_s << u"Ctrl"_s << u"Shift"_s << u"Alt"_s << u"Home"_s << u"PDF"_s;
        names << u"mm"_s << u"in"_s << u"pt"_s << u"pc"_s << u"DD"_s << u"CC"_s << u"DL"_s << u"US"_s << u"ANSI"_s;
        for (int month = 1; month <= 12; ++month) { // the system's own way to write a file's date
            names << QLocale::system().monthName(month, QLocale::ShortFormat);
        }
        for (const QString &family : QFontDatabase::families()) {
            names << family << QFontDatabase::styles(family);
        }
        // The longest first, so that no part of a name is left
        std::ranges::sort(names, std::greater(), &QString::size);
        return names;
    }

    void expectOneLanguage()
    {
        EXPECT_GT(m_shown.count(), 10);
        const QStringList strange = m_shown.with(GetParam().otherLanguage, names());
        EXPECT_EQ(strange.join(u'\n'), QString());
    }

    /// Looks at the message that a key raises in a window, and closes it.
    void lookAtMessageAfter(ModalScript &script, QWidget &widget, Qt::Key key, const std::function<void()> &next)
    {
        script.then([this](QWidget &message) {
            EXPECT_TRUE(qobject_cast<QMessageBox *>(&message)) << message.metaObject()->className();
            m_shown.look(message);
            QTest::keyClick(&message, Qt::Key_Escape);
        });
        // The message waits in a loop of its own.
        QTimer::singleShot(0, &widget, [&widget, key, next] {
            QTest::keyClick(&widget, key);
            next();
        });
    }

    ShownTexts m_shown;
};

void close(QWidget &dialog)
{
    QTest::keyClick(&dialog, Qt::Key_Escape);
}

QAbstractButton &buttonWith(const QWidget &window, const QRegularExpression &text)
{
    for (auto *button : window.findChildren<QAbstractButton *>()) {
        if (button->text().contains(text)) {
            return *button;
        }
    }
    throw std::runtime_error("no button " + text.pattern().toStdString());
}

} // namespace

TEST_P(Language, isThatOfMenus)
{
    for (QAction *action : frame().menuBar()->actions()) {
        QMenu &menu = *action->menu();
        QTest::mouseClick(frame().menuBar(), Qt::LeftButton, {}, frame().menuBar()->actionGeometry(action).center());
        ASSERT_TRUE(menu.isVisible());
        m_shown.look(menu);
        menu.close();
    }
    m_shown.look(frame());
    m_shown.lookAtMenuOf(*grid().verticalScrollBar());
    m_shown.lookAtMenuOf(control<QLineEdit>(frame(), u"txtPr"_s));
    activateFrame();
    grid().setFocus();
    pressKey(grid(), Qt::Key_F2);
    m_shown.lookAtMenuOf(*QApplication::focusWidget());
    auto &window = dynamic_cast<QMdiSubWindow &>(*editor().parentWidget());
    window.showSystemMenu();
    ASSERT_TRUE(QApplication::activePopupWidget());
    m_shown.look(*QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();
    expectOneLanguage();
}

TEST_P(Language, isThatOfTheDialogThatOpensFiles)
{
    ModalScript script;
    script.then([&](QWidget &dialog) {
        m_shown.look(dialog);
        auto &name = control<QLineEdit>(dialog, u"fileNameEdit"_s);
        auto &list = control<QTreeView>(dialog, u"treeView"_s);
        m_shown.lookAtMenuOf(name);
        m_shown.lookAtMenuOf(*list.viewport());
        name.setText(u"missing.inv"_s);
        lookAtMessageAfter(script, name, Qt::Key_Return, [&, this] {
            dynamic_cast<QFileDialog &>(dialog).selectFile(path(u"a.inv"_s));
            dialog.activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog, patience));
            list.setFocus();
            lookAtMessageAfter(script, list, Qt::Key_Delete, [&dialog] { close(dialog); });
        });
    });
    pressKey(grid(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_TRUE(QFile::exists(path(u"a.inv"_s)));
    expectOneLanguage();
}

TEST_P(Language, isThatOfTheDialogThatSavesFiles)
{
    ModalScript script;
    script.then([&](QWidget &dialog) {
        m_shown.look(dialog);
        auto &name = control<QLineEdit>(dialog, u"fileNameEdit"_s);
        lookAtMessageAfter(script, name, Qt::Key_Return, [&dialog] { close(dialog); });
    });
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    expectOneLanguage();
}

TEST_P(Language, isThatOfTheFontDialog)
{
    ModalScript script;
    script.then([&](QWidget &dialog) {
        m_shown.look(dialog);
        for (auto *box : dialog.findChildren<QLineEdit *>()) {
            m_shown.lookAtMenuOf(*box);
        }
        close(dialog);
    });
    chooseMenu(u"mneVisual"_s, u"mneVisualItem(3)"_s);
    expectOneLanguage();
}

TEST_P(Language, isThatOfThePrintSetup)
{
    ModalScript script;
    const auto properties = [&](QWidget &dialog) {
        m_shown.look(dialog);
        m_shown.lookThroughTabs(dialog);
        close(dialog);
    };
    const auto setup = [&](QWidget &dialog) {
        QTest::mouseClick(&buttonWith(dialog, QRegularExpression(u">>"_s)), Qt::LeftButton);
        m_shown.look(dialog);
        m_shown.lookThroughTabs(dialog);
        script.then(properties);
        QTimer::singleShot(0, &dialog, [&dialog] {
            QTest::mouseClick(&control<QAbstractButton>(dialog, u"properties"_s), Qt::LeftButton);
            close(dialog);
        });
    };
    script.then([&](QWidget &dialog) {
        m_shown.look(dialog);
        script.then(setup);
        QTimer::singleShot(0, &dialog, [&dialog] {
            QTest::mouseClick(&control<QAbstractButton>(dialog, u"cmdSet"_s), Qt::LeftButton);
            close(dialog);
        });
    });
    pressKey(grid(), Qt::Key_P, Qt::ControlModifier);
    expectOneLanguage();
}

TEST_P(Language, isThatOfTheHelpWindow)
{
    setProgramFolder(QStringLiteral(TABRIX_HELP_FOLDER));
    start();
    activateFrame();
    press(Qt::Key_F1);
    QWidget *help = nullptr;
    const auto isOpen = [&] {
        const QWidgetList windows = QApplication::topLevelWidgets();
        const auto found = std::ranges::find(windows, u"helpWindow"_s, &QWidget::objectName);
        help = found == windows.end() ? nullptr : *found;
        return help != nullptr;
    };
    ASSERT_TRUE(QTest::qWaitFor(isOpen, patience));
    m_shown.look(*help);
    m_shown.lookThroughTabs(*help);
    for (auto *box : help->findChildren<QLineEdit *>()) {
        if (box->isVisible()) {
            m_shown.lookAtMenuOf(*box);
        }
    }
    m_shown.lookAtMenuOf(*control<QTextBrowser>(*help, u"helpBrowser"_s).viewport());
    help->close();
    expectOneLanguage();
}

INSTANTIATE_TEST_SUITE_P(Each, Language,
    testing::Values(LanguageCase{"English", 1,
                        QRegularExpression(u"[\\x{3040}-\\x{30ff}\\x{3400}-\\x{9fff}\\x{ff61}-\\x{ff9f}]"_s)},
        LanguageCase{"Japanese", 81, QRegularExpression(u"[A-Za-z]{2}"_s)}),
    [](const auto &tested) { return std::string(tested.param.name); });

// Qt's own catalogue goes before, so that a line of the table is of use only where that has none.
TEST(QtTextTable, fillsTheGapsOfTheCatalogue)
{
    QTranslator catalogue;
    ASSERT_TRUE(catalogue.load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
    const QtTextTable table;
    for (const QtTextEntry &entry : qtTextEntries()) {
        EXPECT_EQ(catalogue.translate(entry.context, entry.english), QString()) << entry.english;
        EXPECT_EQ(table.translate(entry.context, entry.english), QString::fromUtf16(entry.japanese));
        EXPECT_EQ(QString::fromUtf8(entry.english).count(u'%'), QString::fromUtf16(entry.japanese).count(u'%'));
    }
}
