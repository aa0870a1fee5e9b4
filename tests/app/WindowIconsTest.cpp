#include "document/DocumentTables.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "tests/support/FrameTest.h"

#include <QImage>
#include <QMenu>
#include <QPixmap>
#include <QTest>

using namespace Qt::StringLiterals;

/// The icons by which a changed document is told from a saved one.
class WindowIcons : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(u"a.inv"_s, document(2))));
        m_saved = icon();
    }
    static QImage image(const QIcon &icon) { return icon.pixmap(QSize(32, 32), 1).toImage(); }
    QImage icon() { return image(editor().parentWidget()->windowIcon()); }
    bool isMarked() { return icon() != m_saved; }
    /// What is painted at the left end of the window's title bar.
    QImage painted()
    {
        QWidget &window = *editor().parentWidget();
        return window.grab(QRect(0, 0, 32, editor().y())).toImage();
    }
    QList<QImage> listed()
    {
        QMenu &menu = menuInBar(u"mneWin"_s);
        emit menu.aboutToShow();
        QList<QImage> icons;
        for (const QAction *item : menu.actions().mid(3)) {
            icons << image(item->icon());
        }
        return icons;
    }

    QImage m_saved;
};

TEST_F(WindowIcons, followEachChangeAndEachSave)
{
    const QString caption = editor().parentWidget()->windowTitle();
    typeInto(2, 1, u"typed"_s);
    EXPECT_TRUE(isMarked());
    pressKey(grid(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(isMarked());
    pressKey(grid(), Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(isMarked());
    pressKey(grid(), Qt::Key_S, Qt::ControlModifier);
    EXPECT_FALSE(DocFlags[docNo()].changed);
    EXPECT_FALSE(isMarked());
    chooseMenu(u"mneEdit"_s, u"mneEditAdd"_s);
    EXPECT_TRUE(isMarked());
    EXPECT_EQ(editor().parentWidget()->windowTitle(), caption);
    EXPECT_EQ(editor().windowTitle(), caption);
}

TEST_F(WindowIcons, arePaintedInTheTitleBar)
{
    editor().parentWidget()->showNormal();
    const QImage saved = painted();
    EXPECT_EQ(painted(), saved);
    typeInto(2, 1, u"typed"_s);
    EXPECT_NE(painted(), saved);
}

TEST_F(WindowIcons, standInTheListOfWindows)
{
    EXPECT_EQ(listed(), (QList{m_saved, m_saved}));
    typeInto(2, 1, u"typed"_s);
    EXPECT_EQ(listed(), (QList{m_saved, icon()}));
    EXPECT_NE(icon(), m_saved);
}

TEST_F(WindowIcons, belongToTheWindowWhoseDocumentChanged)
{
    typeInto(2, 1, u"typed"_s);
    frame().makeActive(*frame().openEditors().at(0));
    EXPECT_FALSE(isMarked());
    typeInto(2, 1, u"typed"_s);
    EXPECT_TRUE(isMarked());
}
