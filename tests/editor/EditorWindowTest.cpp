#include "app/services/Settings.h"
#include "desktop/RibbonButton.h"
#include "document/DocumentTables.h"
#include "editor/GridFont.h"
#include "editor/OpenDocument.h"
#include "editor/frmPrFile.h"
#include "grid/SpreadGrid.h"
#include "runtime/Country.h"
#include "tests/support/FrameTest.h"
#include "tests/support/UserPlaces.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QFontDialog>
#include <QFontInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

class EditorWindow : public FrameTest
{
protected:
    void SetUp() override
    {
        start();
        open(u"a.inv"_s, 12);
    }
    void open(const QString &name, int rows)
    {
        ASSERT_TRUE(frame().documents().OpenPrFile(writeFile(name, document(rows))));
    }
    QString box() { return control<QLineEdit>(frame(), u"txtPr"_s).text(); }
    QPoint cellPlace(int column, int row)
    {
        return grid().visualRect(grid().model()->index(row - 1, column - 1)).center();
    }
    QPoint headerPlace(int column)
    {
        const QHeaderView &header = *grid().horizontalHeader();
        return {header.sectionViewportPosition(column - 1) + header.sectionSize(column - 1) / 2, header.height() / 2};
    }
};

TEST_F(EditorWindow, fillsItsGrid)
{
    frame().showNormal();
    for (const QSize size : {QSize(500, 300), QSize(700, 200)}) {
        editor().parentWidget()->resize(size);
        EXPECT_EQ(grid().geometry(), editor().rect());
    }
}

TEST_F(EditorWindow, fillsItsGridFromTheRecords)
{
    ASSERT_GE(grid().rowCount(), 2);
    PrRecord record;
    record.number = u"77"_s;
    record.name = u"From a record"_s;
    PrRecords = {record};
    editor().SetPrInfSpread();
    EXPECT_EQ(grid().text(ParameterColumn::Number, 1), u"77"_s);
    EXPECT_EQ(grid().text(ParameterColumn::Name, 1), u"From a record"_s);
    EXPECT_EQ(grid().text(ParameterColumn::Number, 2), u"2"_s);
    EXPECT_FALSE(editor().document().isChanged());
}

TEST_F(EditorWindow, showsCountAndNumberWhenItBecomesActive)
{
    grid().setActiveCell(3, 7);
    open(u"b.inv"_s, 3);
    EXPECT_EQ(control<QLabel>(frame(), u"lblPrcount"_s).text(), u"3"_s);
    frame().makeActive(*frame().openEditors().at(1));
    EXPECT_EQ(control<QLabel>(frame(), u"lblPrcount"_s).text(), u"12"_s);
    EXPECT_EQ(box(), u"7"_s);
}

TEST_F(EditorWindow, showsTheNumberOfTheRowThatTheCursorEnters)
{
    grid().setActiveCell(2, 1);
    grid().setFocus();
    pressKey(grid(), Qt::Key_Down);
    EXPECT_EQ(box(), u"2"_s);
    QTest::mouseClick(grid().viewport(), Qt::LeftButton, {}, cellPlace(2, 4));
    EXPECT_EQ(box(), u"4"_s);
}

TEST_F(EditorWindow, marksATypedCellAndItsDocument)
{
    EXPECT_FALSE(DocFlags[docNo()].changed);
    typeInto(2, 3, u"New name"_s);
    EXPECT_EQ(grid().text(2, 3), u"New name"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
    EXPECT_EQ(grid().textColour(2, 3), QColor(128, 0, 0));
    EXPECT_NE(grid().textColour(2, 2), QColor(128, 0, 0));
}

TEST_F(EditorWindow, keepsTheColourAfterASave)
{
    typeInto(2, 3, u"New name"_s);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_FALSE(DocFlags[docNo()].changed);
    EXPECT_EQ(grid().textColour(2, 3), QColor(128, 0, 0));
}

TEST_F(EditorWindow, togglesTheRangeCheckByKeyAndSavesIt)
{
    grid().setActiveCell(4, 2);
    grid().setFocus();
    ASSERT_EQ(grid().text(4, 2), u"1"_s);
    pressKey(grid(), Qt::Key_Space);
    EXPECT_EQ(grid().text(4, 2), u"0"_s);
    EXPECT_TRUE(DocFlags[docNo()].changed);
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_TRUE(readFile(editor().windowTitle()).contains("Parameter 2,%,0.1,-1,-1,2,3,0,1,"));
}

TEST_F(EditorWindow, fitsAColumnOnADoubleClickOnItsHeading)
{
    grid().setText(2, 12, QString(80, u'W'));
    const int before = grid().columnWidth(1);
    QTest::mouseDClick(grid().viewport(), Qt::LeftButton, {}, cellPlace(3, 2));
    EXPECT_EQ(grid().columnWidth(1), before);
    pressKey(*QApplication::focusWidget(), Qt::Key_Escape);
    QTest::mouseDClick(grid().horizontalHeader()->viewport(), Qt::LeftButton, {}, headerPlace(2));
    EXPECT_GT(grid().columnWidth(1), grid().fontMetrics().horizontalAdvance(grid().text(2, 12)));
}

TEST_F(EditorWindow, popsUpTheEditMenuOnARightClick)
{
    QMenu &menu = *qobject_cast<QMenu *>(menuCommand(u"mneEdit"_s, u"mneEditCut"_s).parent());
    QTest::mouseClick(grid().viewport(), Qt::RightButton, {}, cellPlace(3, 4));
    EXPECT_TRUE(menu.isVisible());
    menu.close();
}

TEST_F(EditorWindow, enablesPasteFromTheClipboardWhenItBecomesActive)
{
    EXPECT_FALSE(menuCommand(u"mneEdit"_s, u"mneEditPaste"_s).isEnabled());
    QApplication::clipboard()->setText(u"foreign"_s);
    frame().makeActive(*frame().openEditors().at(0));
    EXPECT_TRUE(menuCommand(u"mneEdit"_s, u"mneEditPaste"_s).isEnabled());
    EXPECT_TRUE(toolButton(u"ssrbnEdit(2)"_s).isEnabled());
    EXPECT_FALSE(menuCommand(u"mneEdit"_s, u"mneEditAddPaste"_s).isEnabled());
    EXPECT_FALSE(toolButton(u"ssrbnEdit(3)"_s).isEnabled());
    QApplication::clipboard()->setText(u""_s);
    frame().makeActive(*frame().openEditors().at(1));
    EXPECT_FALSE(menuCommand(u"mneEdit"_s, u"mneEditPaste"_s).isEnabled());
    EXPECT_FALSE(toolButton(u"ssrbnEdit(2)"_s).isEnabled());
}

class VisibleColumns : public EditorWindow
{
protected:
    /// Toggles the boxes of those columns in the dialog and presses a button.
    void choose(const QList<int> &toggled, const QString &button)
    {
        ModalScript script;
        script.then([&](QWidget &dialog) {
            auto &list = control<SpreadGrid>(dialog, u"vaspdVisualInf"_s);
            for (const int column : toggled) {
                list.setActiveCell(1, column);
                list.setFocus();
                QTest::keyClick(&list, Qt::Key_Space);
            }
            QTest::mouseClick(&control<QPushButton>(dialog, button), Qt::LeftButton);
        });
        chooseMenu(u"mneVisual"_s, u"mneVisualInf"_s);
    }
};

TEST_F(VisibleColumns, areListedWithTheirHeadings)
{
    ModalScript script;
    script.then([this](QWidget &dialog) {
        auto &list = control<SpreadGrid>(dialog, u"vaspdVisualInf"_s);
        EXPECT_EQ(dialog.windowTitle(), u"List condition"_s);
        EXPECT_EQ(list.text(1, 0), u"Display row:"_s);
        EXPECT_EQ(control<QLabel>(dialog, u"lblInf"_s).text(), u"Please check the display rows."_s);
        EXPECT_EQ(list.rowCount(), 13);
        EXPECT_EQ(list.bottomRow(), 13);
        EXPECT_EQ(list.rowHeight(0), grid().rowHeight(0)); // both in the user font
        EXPECT_FALSE(list.horizontalScrollBar()->isVisible());
        for (int column = 1; column <= 13; ++column) {
            EXPECT_EQ(list.cellType(1, column), CellType::checkBox(grid().text(column, 0)));
            EXPECT_EQ(list.text(1, column), grid().isColumnShown(column) ? u"1"_s : u"0"_s) << column;
        }
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    chooseMenu(u"mneVisual"_s, u"mneVisualInf"_s);
}

TEST_F(VisibleColumns, applyToEveryOpenAndLaterWindow)
{
    ASSERT_TRUE(grid().isColumnShown(9));
    ASSERT_FALSE(grid().isColumnShown(8));
    choose({8, 9}, u"cmdOK"_s);
    open(u"b.inv"_s, 2);
    ASSERT_EQ(frame().openEditors().size(), 3);
    for (const frmPrFile *window : frame().openEditors()) {
        EXPECT_TRUE(window->vaspdParam().isColumnShown(8));
        EXPECT_FALSE(window->vaspdParam().isColumnShown(9));
    }
    EXPECT_FALSE(ListVisualState[7]);
    EXPECT_TRUE(ListVisualState[8]);
}

TEST_F(VisibleColumns, mayAllBeHidden)
{
    QList<int> shown;
    for (int column = 1; column <= 13; ++column) {
        if (grid().isColumnShown(column)) {
            shown << column;
        }
    }
    choose(shown, u"cmdOK"_s);
    for (int column = 1; column <= 13; ++column) {
        EXPECT_FALSE(grid().isColumnShown(column)) << column;
        EXPECT_TRUE(ListVisualState[column - 1]) << column;
    }
}

TEST_F(VisibleColumns, stayOnCancel)
{
    const auto before = ListVisualState;
    choose({2, 3}, u"cmdCancel"_s);
    EXPECT_EQ(ListVisualState, before);
    EXPECT_TRUE(grid().isColumnShown(2));
}

class GridFont : public EditorWindow
{
protected:
    static QFont bigger()
    {
        QFont font;
        font.setFamilies({u"DejaVu Sans"_s});
        font.setPointSizeF(24);
        font.setBold(true);
        return font;
    }
};

TEST_F(GridFont, isChosenStoredAndApplied)
{
    const int header = grid().horizontalHeader()->height();
    const int row = grid().rowHeight(0);
    ModalScript script;
    script.then([](QWidget &window) {
        auto &dialog = dynamic_cast<QFontDialog &>(window);
        dialog.setCurrentFont(bigger());
        dialog.accept();
    });
    chooseMenu(u"mneVisual"_s, u"mneVisualItem(3)"_s);
    EXPECT_EQ(UserFont, (UserFontSettings{u"DejaVu Sans"_s, 24, false, true}));
    const QSettings store = UserPlaces::settings();
    EXPECT_EQ(store.value(u"FontInf/FontName"_s), u"DejaVu Sans"_s);
    EXPECT_EQ(store.value(u"FontInf/FontSize"_s), u"24"_s);
    EXPECT_EQ(store.value(u"FontInf/FontItalic"_s), u"False"_s);
    EXPECT_EQ(store.value(u"FontInf/FontBold"_s), u"True"_s);
    EXPECT_EQ(grid().gridFont().pointSizeF(), 24);
    EXPECT_GT(grid().horizontalHeader()->height(), header);
    EXPECT_EQ(grid().rowHeight(0), row);
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    open(u"b.inv"_s, 2);
    EXPECT_EQ(grid().gridFont().pointSizeF(), 24);
}

TEST_F(GridFont, isChosenByListAndSizeWhereTheStoredNameIsAnAlias)
{
    ASSERT_EQ(UserFont.FontName, u"System"_s);
    const QString family = QFontInfo(grid().gridFont()).family();
    ModalScript script;
    script.then([&](QWidget &dialog) {
        const auto lists = dialog.findChildren<QListView *>();
        QAbstractItemView &families = *lists.at(0);
        QAbstractItemView &styles = *lists.at(1);
        EXPECT_EQ(families.currentIndex().data().toString(), family);
        const QModelIndex bold =
            styles.model()->match(styles.model()->index(0, 0), Qt::DisplayRole, u"Bold"_s).value(0);
        ASSERT_TRUE(bold.isValid());
        styles.scrollTo(bold);
        QTest::mouseClick(styles.viewport(), Qt::LeftButton, {}, styles.visualRect(bold).center());
        QLineEdit &size = *dialog.findChildren<QLineEdit *>().at(2);
        QTest::keyClick(&size, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&size, u"17"_s);
        QTest::keyClick(&size, Qt::Key_Return);
    });
    chooseMenu(u"mneVisual"_s, u"mneVisualItem(3)"_s);
    EXPECT_EQ(UserFont, (UserFontSettings{family, 17, false, true}));
    const QSettings store = UserPlaces::settings();
    EXPECT_EQ(store.value(u"FontInf/FontSize"_s), u"17"_s);
    EXPECT_EQ(store.value(u"FontInf/FontBold"_s), u"True"_s);
    EXPECT_TRUE(QFontInfo(grid().gridFont()).bold());
}

TEST_F(GridFont, staysWhenTheDialogIsCancelled)
{
    const UserFontSettings before = UserFont;
    ModalScript script;
    script.then([this](QWidget &window) {
        auto &dialog = dynamic_cast<QFontDialog &>(window);
        EXPECT_EQ(dialog.currentFont().pointSizeF(), grid().gridFont().pointSizeF());
        dialog.reject();
    });
    chooseMenu(u"mneVisual"_s, u"mneVisualItem(3)"_s);
    EXPECT_EQ(UserFont, before);
}

// Its upright style is called "Book" and is not the first of the list.
TEST_F(GridFont, keepsItsStyleWhenOnlyTheSizeIsChosen)
{
    UserFont = {u"DejaVu Sans"_s, 12, false, false};
    open(u"b.inv"_s, 2);
    ModalScript script;
    script.then([](QWidget &dialog) {
        QLineEdit &size = *dialog.findChildren<QLineEdit *>().at(2);
        QTest::keyClick(&size, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&size, u"17"_s);
        QTest::keyClick(&size, Qt::Key_Return);
    });
    chooseMenu(u"mneVisual"_s, u"mneVisualItem(3)"_s);
    EXPECT_EQ(UserFont.FontName, u"DejaVu Sans"_s);
    EXPECT_FALSE(UserFont.FontItalic);
    EXPECT_FALSE(UserFont.FontBold);
    EXPECT_FALSE(QFontInfo(grid().gridFont()).italic());
}

TEST_F(EditorWindow, runsCommandsByAccessKeys)
{
    grid().setActiveCell(2, 3);
    grid().setFocus();
    QTest::keyClick(&frame(), Qt::Key_E, Qt::AltModifier);
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_A);
    EXPECT_EQ(grid().rowCount(), 13);
}

TEST_F(EditorWindow, namesTheSeparatorBeforeTheFont)
{
    const QMenu &menu = menuInBar(u"mneVisual"_s);
    EXPECT_EQ(menu.actions().at(2)->objectName(), u"mneVisualItem(2)"_s);
    EXPECT_TRUE(menu.actions().at(2)->isSeparator());
}

TEST_F(EditorWindow, takesNoTypedIntoTheIncrementsAndSavesIt)
{
    for (const int column : {5, 6, 7}) {
        grid().setColumnShown(column, true);
        grid().setText(column, 2, u"1"_s);
        grid().setActiveCell(column, 2);
        grid().setFocus();
        for (const QChar letter : u"No"_s) {
            QTest::keyClicks(QApplication::focusWidget(), letter);
        }
        pressKey(*QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(grid().text(column, 2), u"No"_s);
        EXPECT_EQ(grid().textColour(column, 2), QColor(128, 0, 0));
    }
    chooseMenu(u"mneFile"_s, u"mneFileSave"_s);
    EXPECT_TRUE(readFile(editor().windowTitle()).contains("Parameter 2,%,1,-1,-1,2,"));
}
