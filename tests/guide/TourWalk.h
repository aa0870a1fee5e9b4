#pragma once

#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/guide/TourPage.h"
#include "tests/support/FrameTest.h"

#include <QApplication>
#include <QKeySequence>
#include <QMenu>
#include <QTest>

#include <utility>

/// Does in the running program what a page tells its reader to do, and compares both, section by section: what the page
/// names must be done, and what is done must be named.
class TourWalk : public FrameTest
{
protected:
    explicit TourWalk(TourPage page) : m_page(std::move(page)) { }

    /// Begins a section; what the test then names belongs to it.
    void begin(int section)
    {
        end();
        m_section = section;
    }
    void end()
    {
        m_named.removeDuplicates();
        m_named.sort();
        if (m_section > 0) {
            EXPECT_EQ(m_named, m_page.named(m_section)) << "section " << m_section;
        }
        m_named.clear();
    }
    void expectText(const QString &text)
    {
        EXPECT_TRUE(m_page.text(m_section).contains(text)) << "section " << m_section << ": " << text.toStdString();
    }

    /// Chooses a command by mouse. Menu and line are called in the page as they are here.
    void choose(const QString &menu, const QString &command)
    {
        nameMenu(menu);
        nameLine(menu, command);
        chooseMenu(menu, command);
    }
    void nameMenu(const QString &menu) { m_named << withoutMark(menuInBar(menu).title()); }
    void nameLine(const QString &menu, const QString &command)
    {
        m_named << withoutMark(menuCommand(menu, command).text());
    }
    static QString withoutMark(QString caption) { return caption.remove(u'&'); }

    /// Presses a key as the page calls it.
    void key(const QString &name)
    {
        m_named << name;
        const QKeyCombination keys = QKeySequence::fromString(name)[0];
        press(keys.key() == Qt::Key_Enter ? Qt::Key_Return : keys.key(), keys.keyboardModifiers());
    }
    /// The first character may open an editor for the others.
    static void type(const QString &text)
    {
        for (const QChar character : text) {
            QTest::keyClick(QApplication::focusWidget(), character.toLatin1());
        }
    }

    /// Clicks a cell of the active document.
    void click(int column, int row)
    {
        const QModelIndex cell = grid().model()->index(row - 1, column - 1);
        QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, grid().visualRect(cell).center());
    }

    const TourPage &page() const { return m_page; }
    /// Notes a name that the page gives to something.
    void name(const QString &name) { m_named << name; }

private:
    TourPage m_page;
    int m_section = 0;
    QStringList m_named; ///< in the section
};
